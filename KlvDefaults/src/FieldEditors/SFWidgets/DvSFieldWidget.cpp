#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

#include "FieldEditors/DvIntSlider.h"
#include "FieldEditors/DvRealSlider.h"
#include "FieldEditors/DvUIntSlider.h"
#include "FieldEditors/KlvFieldIgnoredCommand.h"
#include "FieldEditors/KlvSFSetValueCommand.h"
#include "FieldEditors/default_icon.xpm"
#include "FieldEditors/ignore_icon.xpm"
#include "FieldEditors/klsettings_fieldEditor.h"

#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoSField.h>

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace {

void setMargins(QLayout* layout, int margin)
{
    layout->setContentsMargins(margin, margin, margin, margin);
}

void setBox(QFrame* frame, int lineWidth)
{
    frame->setFrameStyle(QFrame::Box | QFrame::Plain);
    frame->setLineWidth(lineWidth);
}

/// The icon of a button that is pressed in or out: paler when out, since a frame this small hardly shows it.
QIcon makeToggleIcon(const QPixmap& on)
{
    QPixmap off(on.size());
    off.fill(Qt::transparent);
    QPainter painter(&off);
    painter.setOpacity(0.4);
    painter.drawPixmap(0, 0, on);
    QIcon icon;
    icon.addPixmap(off, QIcon::Normal, QIcon::Off);
    icon.addPixmap(on, QIcon::Normal, QIcon::On);
    return icon;
}

template <bool isFloat>
QFrame* createReal(KlvFieldEditors* owner, QWidget* parent)
{
    return new DvRealSlider(DvSlider::SingleValue, owner, parent, isFloat, 0, 1);
}

template <typename Slider, DvSlider::SliderType type>
QFrame* createInteger(KlvFieldEditors* owner, QWidget* parent)
{
    return new Slider(type, DvSlider::SingleValue, owner, parent, 0, 1);
}

/// What makes the slider frame of each frame type, from `FloatFrame` on.
QFrame* (*const createSliderFrame[])(KlvFieldEditors* owner, QWidget* parent) = {
    createReal<true>,
    createReal<false>,
    createInteger<DvIntSlider, DvSlider::Int32>,
    createInteger<DvUIntSlider, DvSlider::UInt32>,
    createInteger<DvIntSlider, DvSlider::Int16>,
    createInteger<DvUIntSlider, DvSlider::UInt16>,
};

} // namespace

DvSFieldWidget::DvSFieldWidget(const char* name)
    : m_defaultIcon(default_icon)
    , m_ignoreIcon(ignore_icon)
{
    setObjectName(QString::fromUtf8(name ? name : "DvSFieldWidget"));
}

DvSFieldWidget::DvSFieldWidget(SFFrameType type, const char* name)
    : DvSFieldWidget(name)
{
    if (type >= FloatFrame && type <= UShortFrame)
        m_editionFrame = createSliderFrame[type - FloatFrame](this, getWidgetContainer());
}

DvSFieldWidget::~DvSFieldWidget()
{
    // The container goes with the base class; an input that then lost the focus would still commit here.
    if (getWidgetContainer())
        delete m_editionFrame;
}

void DvSFieldWidget::load()
{
    KlvFieldEditors::load();
    clear();
    QFrame* container = getWidgetContainer();
    setBox(container, klsettings_fieldEditor("frameLineWidth"));
    m_layout = new QHBoxLayout(container);
    setMargins(m_layout, klsettings_fieldEditor("SFieldLayoutMargin"));
    m_layout->setSpacing(klsettings_fieldEditor("SFieldLayoutSpacing"));
    m_layout->setObjectName(QStringLiteral("SFieldLayout"));

    m_label->setObjectName(QStringLiteral("m_label"));
    QFont font = m_label->font();
    font.setPointSize(klsettings_fieldEditor("labelPointSize"));
    m_label->setFont(font);
    setBox(m_label, klsettings_fieldEditor("labelLineWidth"));
    m_label->setScaledContents(true);
    m_layout->addWidget(m_label);
    m_labelSpacer = new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Minimum);
    m_layout->addItem(m_labelSpacer);

    m_editionAreaLayout = new QHBoxLayout;
    setMargins(m_editionAreaLayout, klsettings_fieldEditor("SFEditionAreaLayMargin"));
    m_editionAreaLayout->setSpacing(klsettings_fieldEditor("SFEditionAreaLaySpacing"));
    m_editionAreaLayout->setObjectName(QStringLiteral("SFieldEditionAreaLayout"));
    buildEditionFrame();
    m_editionAreaLayout->addWidget(m_editionFrame);
    m_editionSpacer = new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Minimum);
    m_editionAreaLayout->addItem(m_editionSpacer);
    buildButtons();
    m_editionAreaLayout->addLayout(m_buttonLayout);
    m_editionAreaLayout->setSizeConstraint(QLayout::SetMinimumSize);
    m_layout->addLayout(m_editionAreaLayout);

    languageChange();
    connect(m_defaultButton, SIGNAL(clicked()), this, SLOT(setDefaultFieldValue()));
    connect(m_ignoreButton, SIGNAL(released()), this, SLOT(ignoreButtonStateChanged()));
}

void DvSFieldWidget::clear()
{
    if (!m_layout)
        return;
    delete m_layout;
    delete m_defaultButton;
    delete m_ignoreButton;
    // A slider frame is as old as the editor.
    if (qobject_cast<DvSlider*>(m_editionFrame))
        return;
    delete m_editionFrame;
    m_editionFrame = nullptr;
}

void DvSFieldWidget::buildEditionFrame()
{
    if (m_editionFrame) {
        m_editLayout = static_cast<QHBoxLayout*>(m_editionFrame->layout());
        return;
    }
    m_editionFrame = new QFrame(getWidgetContainer());
    m_editionFrame->setObjectName(QStringLiteral("m_editionFrame"));
    setBox(m_editionFrame, klsettings_fieldEditor("frameLineWidth"));
    m_editLayout = new QHBoxLayout(m_editionFrame);
    setMargins(m_editLayout, klsettings_fieldEditor("SFieldEditLayoutMargin"));
    m_editLayout->setSpacing(klsettings_fieldEditor("SFieldEditLayoutSpacing"));
    m_editLayout->setObjectName(QStringLiteral("editLayout"));
}

void DvSFieldWidget::buildButtons()
{
    m_buttonLayout = new QHBoxLayout;
    setMargins(m_buttonLayout, klsettings_fieldEditor("SFButtonLayoutMargin"));
    m_buttonLayout->setSpacing(klsettings_fieldEditor("SFButtonLayoutSpacing"));
    // The outer layout has this name too; kept for tools that look layouts up by name.
    m_buttonLayout->setObjectName(QStringLiteral("SFieldLayout"));

    m_defaultButton = addButton(QStringLiteral("m_defaultButton"), m_defaultIcon);
    m_ignoreButton = addButton(QStringLiteral("m_ignoreButton"), makeToggleIcon(m_ignoreIcon));
    m_ignoreButton->setCheckable(true);

    m_defaultAction = addAction(m_defaultButton, Qt::CTRL | Qt::SHIFT | Qt::Key_D);
    m_ignoreAction = addAction(m_ignoreButton, Qt::CTRL | Qt::SHIFT | Qt::Key_I);
    m_ignoreAction->setCheckable(true);
    connect(m_ignoreButton, SIGNAL(toggled(bool)), m_ignoreAction, SLOT(setChecked(bool)));
    getWidgetContainer()->setContextMenuPolicy(Qt::ActionsContextMenu);
}

QPushButton* DvSFieldWidget::addButton(const QString& name, const QIcon& icon)
{
    auto* button = new QPushButton(getWidgetContainer());
    button->setObjectName(name);
    button->setMaximumSize(klsettings_fieldEditor("buttonWidth"), klsettings_fieldEditor("buttonHeight"));
    button->setIcon(icon);
    button->setFocusPolicy(Qt::NoFocus);
    m_buttonLayout->addWidget(button);
    return button;
}

QAction* DvSFieldWidget::addAction(QPushButton* button, const QKeySequence& shortcut)
{
    auto* action = new QAction(button->icon(), QString(), button);
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, SIGNAL(triggered()), button, SLOT(click()));
    getWidgetContainer()->addAction(action);
    return action;
}

void DvSFieldWidget::languageChange()
{
    const struct
    {
        QPushButton* button;
        QAction* action;
        QString text;
    } rows[] = {{m_defaultButton, m_defaultAction, tr("Set to default")},
                {m_ignoreButton, m_ignoreAction, tr("Ignore this field")}};
    for (const auto& row : rows) {
        row.button->setText(QString());
        row.button->setToolTip(row.text);
        row.button->setAccessibleName(row.text);
        row.action->setText(row.text);
    }
}

void DvSFieldWidget::setFieldName(const QString& kind)
{
    if (!m_label)
        m_label = new QLabel(getWidgetContainer());
    if (m_label->text().isEmpty())
        m_label->setText(tr("<p align=\"center\">") + kind + tr("</p>"));
}

void DvSFieldWidget::setField(SoField* field)
{
    m_field = field;
    m_echoDue = false;
    KlvFieldEditors::setField(field);
}

void DvSFieldWidget::refresh()
{
    m_ignoreButton->setChecked(m_field && m_field->isIgnored());
}

bool DvSFieldWidget::edited()
{
    return false;
}

void DvSFieldWidget::applyChanges() {}

void DvSFieldWidget::setCommandValue()
{
    applyChanges();
}

void DvSFieldWidget::setFocusLeaveEvent()
{
    if (edited())
        applyChanges();
}

void DvSFieldWidget::ignoreButtonStateChanged()
{
    if (!m_field)
        return;
    const bool ignored = m_ignoreButton->isChecked();
    // A refresh that was pending before has a change of the value to show.
    const bool onlyEcho = !isRefreshPending();
    m_field->setIgnored(ignored);
    if (onlyEcho)
        expectEcho();
    KlvServices::getInstance()->pushCommand(new KlvFieldIgnoredCommand(m_field, ignored));
}

void DvSFieldWidget::setDefaultFieldValue()
{
    resetToDefault(m_field);
}

void DvSFieldWidget::recordValue()
{
    SbString previous = fromLatin1(QByteArray());
    KlvServices::getInstance()->pushCommand(
        new KlvSFSetValueCommand(static_cast<SoSField*>(m_field), previous));
}

void DvSFieldWidget::expectEcho()
{
    m_echoDue = isRefreshPending();
    if (m_echoDue)
        m_field->get(m_echoText);
}

bool DvSFieldWidget::takeEcho()
{
    if (!m_echoDue || isRefreshPending())
        return false;
    m_echoDue = false;
    SbString text;
    m_field->get(text);
    return text == m_echoText;
}

void DvSFieldWidget::expandSpacers()
{
    for (QSpacerItem* spacer : {m_labelSpacer, m_editionSpacer})
        spacer->changeSize(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum);
}
