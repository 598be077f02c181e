#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

#include "FieldEditors/DvIconButton.h"
#include "FieldEditors/DvIntSlider.h"
#include "FieldEditors/DvRealSlider.h"
#include "FieldEditors/DvUIntSlider.h"
#include "FieldEditors/EditorFrame.h"
#include "FieldEditors/KlvFieldIgnoredCommand.h"
#include "FieldEditors/KlvSFSetValueCommand.h"
#include "FieldEditors/default_icon.xpm"
#include "FieldEditors/ignore_icon.xpm"

#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoSField.h>

#include <QHBoxLayout>
#include <QLabel>

namespace {

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
    m_frameType = type;
    makeSliderFrame();
}

DvSFieldWidget::~DvSFieldWidget()
{
    // The container goes with the base class; an input that then lost the focus would still commit here.
    if (getWidgetContainer())
        delete m_editionFrame;
}

void DvSFieldWidget::makeSliderFrame()
{
    if (m_frameType >= FloatFrame && m_frameType <= UShortFrame)
        m_editionFrame = createSliderFrame[m_frameType - FloatFrame](this, getWidgetContainer());
}

void DvSFieldWidget::renewWidgets()
{
    if (!renewContainer())
        return;
    m_label = nullptr;
    m_layout = nullptr;
    m_editionFrame = nullptr;
    makeSliderFrame();
}

void DvSFieldWidget::load()
{
    renewWidgets();
    KlvFieldEditors::load();
    clear();
    QFrame* container = getWidgetContainer();
    setBox(container, "frameLineWidth");
    m_layout = new QHBoxLayout(container);
    setUpLayout(m_layout, "SFieldLayout", "SFieldLayoutMargin", "SFieldLayoutSpacing");

    setUpKindLabel(m_label);
    m_layout->addWidget(m_label);
    m_labelSpacer = new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Minimum);
    m_layout->addItem(m_labelSpacer);

    m_editionAreaLayout = new QHBoxLayout;
    setUpLayout(m_editionAreaLayout, "SFieldEditionAreaLayout", "SFEditionAreaLayMargin",
                "SFEditionAreaLaySpacing");
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
    setBox(m_editionFrame, "frameLineWidth");
    m_editLayout = new QHBoxLayout(m_editionFrame);
    setUpLayout(m_editLayout, "editLayout", "SFieldEditLayoutMargin", "SFieldEditLayoutSpacing");
}

void DvSFieldWidget::buildButtons()
{
    m_buttonLayout = new QHBoxLayout;
    // The outer layout has this name too; kept for tools that look layouts up by name.
    setUpLayout(m_buttonLayout, "SFieldLayout", "SFButtonLayoutMargin", "SFButtonLayoutSpacing");
    m_defaultButton = new DvIconButton("m_defaultButton", m_defaultIcon, Qt::CTRL | Qt::SHIFT | Qt::Key_D,
                                       getWidgetContainer());
    auto* ignoreButton = new DvIconButton("m_ignoreButton", m_ignoreIcon, Qt::CTRL | Qt::SHIFT | Qt::Key_I,
                                          getWidgetContainer());
    ignoreButton->setToggling();
    m_ignoreButton = ignoreButton;
    m_buttonLayout->addWidget(m_defaultButton);
    m_buttonLayout->addWidget(m_ignoreButton);
}

void DvSFieldWidget::languageChange()
{
    m_defaultButton->setText(QString());
    m_defaultButton->setToolTip(tr("Set to default"));
    m_ignoreButton->setText(QString());
    m_ignoreButton->setToolTip(tr("Ignore this field"));
}

void DvSFieldWidget::setFieldName(const QString& kind)
{
    renewWidgets();
    nameKind(m_label, getWidgetContainer(), kind);
}

void DvSFieldWidget::setField(SoField* field)
{
    // Without its widgets an editor edits nothing.
    m_field = field && getWidget() ? field : nullptr;
    m_echoDue = false;
    KlvFieldEditors::setField(m_field);
}

void DvSFieldWidget::refresh()
{
    if (getWidget())
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
