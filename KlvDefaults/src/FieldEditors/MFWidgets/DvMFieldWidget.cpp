#include "FieldEditors/MFWidgets/DvMFieldWidget.h"

#include "FieldEditors/DvIconButton.h"
#include "FieldEditors/DvWheelGuard.h"
#include "FieldEditors/EditorFrame.h"
#include "FieldEditors/KlvFieldIgnoredCommand.h"
#include "FieldEditors/MFWidgets/AccessButtonPrivate.h"
#include "FieldEditors/MFWidgets/DvMFColorTable.h"
#include "FieldEditors/add_icon.xpm"
#include "FieldEditors/default_icon.xpm"
#include "FieldEditors/delete_icon.xpm"
#include "FieldEditors/down_icon.xpm"
#include "FieldEditors/ignore_icon.xpm"
#include "FieldEditors/klsettings_fieldEditor.h"
#include "FieldEditors/up_icon.xpm"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoMField.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QAction>
#include <QGridLayout>
#include <QLabel>

#include <utility>

namespace {

/// The table type of the editors of color fields.
constexpr int colorTable = 1;

QSpacerItem* makeSpacer(const char* width, const char* height)
{
    return new QSpacerItem(klsettings_fieldEditor(QString::fromUtf8(width)),
                           klsettings_fieldEditor(QString::fromUtf8(height)), QSizePolicy::Expanding,
                           QSizePolicy::Minimum);
}

template <typename Operation>
QAction* addTableAction(DvMFieldTable* table, QKeySequence::StandardKey shortcut, Operation operation)
{
    auto* action = new QAction(table);
    action->setShortcut(shortcut);
    // In a cell editor these keys are for its text.
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    QObject::connect(action, &QAction::triggered, table, operation);
    table->addAction(action);
    return action;
}

} // namespace

DvMFieldWidget::DvMFieldWidget(const char* name)
    : DvMFieldWidget(0, name)
{
}

DvMFieldWidget::DvMFieldWidget(int tableType, const char* name)
    : m_deleteIcon(delete_icon)
    , m_addIcon(add_icon)
    , m_upIcon(up_icon)
    , m_downIcon(down_icon)
    , m_defaultIcon(default_icon)
    , m_ignoreIcon(ignore_icon)
    , m_tableType(tableType)
{
    setObjectName(QString::fromUtf8(name ? name : "DvMFieldWidget"));
    makeTable();
}

void DvMFieldWidget::makeTable()
{
    m_table = m_tableType == colorTable ? new DvMFColorTable(this, getWidgetContainer(), "m_table")
                                        : new DvMFieldTable(this, getWidgetContainer(), "m_table");
    // A window that shows the container takes it and all that is in it along when it goes first.
    connect(m_table, &QObject::destroyed, this, [this] {
        m_table = nullptr;
        m_accessBox = nullptr;
        m_label = m_labelNumElement = nullptr;
        m_globalLayout = nullptr;
        m_upButton = m_downButton = m_defaultButton = m_ignoreButton = m_deleteButton = m_addButton = nullptr;
    });
    m_copyAction = addTableAction(m_table, QKeySequence::Copy, &DvMFieldTable::copyRows);
    m_pasteAction = addTableAction(m_table, QKeySequence::Paste, &DvMFieldTable::pasteRows);
}

DvMFieldWidget::~DvMFieldWidget()
{
    // The container goes with the base class; the table still asks this editor while it goes.
    delete m_table;
}

void DvMFieldWidget::load()
{
    if (renewContainer())
        makeTable();
    KlvFieldEditors::load();
    clear();
    QFrame* container = getWidgetContainer();
    setBox(container, "frameLineWidth");
    m_globalLayout = new QGridLayout(container);
    setUpLayout(m_globalLayout, "m_globalLayout", "MFGlobalLayoutMarging", "MFGlobalLayoutSpacing");

    if (!m_label)
        m_label = new QLabel(container);
    setUpKindLabel(m_label);
    m_globalLayout->addWidget(m_label, 0, 0);
    m_globalLayout->addItem(new QSpacerItem(0, 4, QSizePolicy::Minimum, QSizePolicy::Minimum), 1, 0);
    m_globalLayout->addItem(new QSpacerItem(6, 0, QSizePolicy::Minimum, QSizePolicy::Minimum), 0, 1);
    buildButtonRow();
    m_globalLayout->addLayout(m_buttonsLayout, 0, 2);
    m_table->setMinimumHeight(klsettings_fieldEditor(QStringLiteral("MFTableMinHeightUnix")));
    m_globalLayout->addWidget(m_table, 2, 2);
    m_globalLayout->setRowStretch(2, 1);
    m_globalLayout->setColumnStretch(2, 1);
    QWidget::setTabOrder(m_accessBox, m_table);
    m_table->addActions(container->actions());
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);

    connect(m_upButton, SIGNAL(clicked()), m_table, SLOT(swapUpRow()));
    connect(m_downButton, SIGNAL(clicked()), m_table, SLOT(swapDownRow()));
    connect(m_deleteButton, SIGNAL(clicked()), m_table, SLOT(deleteRow()));
    connect(m_addButton, SIGNAL(clicked()), m_table, SLOT(addRow()));
    connect(m_accessBox, SIGNAL(valueChanged(int)), m_table, SLOT(showTableRow(int)));
    connect(m_ignoreButton, SIGNAL(released()), this, SLOT(ignoreButtonStateChanged()));
    connect(m_defaultButton, SIGNAL(clicked()), this, SLOT(setDefaultFieldValue()));
    languageChange();
}

void DvMFieldWidget::clear()
{
    delete m_globalLayout;
    delete m_accessBox;
    delete m_labelNumElement;
    for (QPushButton* button :
         {m_upButton, m_downButton, m_defaultButton, m_ignoreButton, m_deleteButton, m_addButton})
        delete button;
}

void DvMFieldWidget::buildButtonRow()
{
    QWidget* container = getWidgetContainer();
    m_buttonsLayout = new QHBoxLayout;
    setUpLayout(m_buttonsLayout, "m_buttonsLayout", "MFGlobalButtonsLayoutMargin",
                "MFGlobalButtonsLayoutSpacing");
    m_addButton = new DvIconButton("m_addButton", m_addIcon, Qt::ALT | Qt::Key_Insert, container);
    m_deleteButton = new DvIconButton("m_deleteButton", m_deleteIcon, Qt::ALT | Qt::Key_Delete, container);
    m_manageButtonsLayout = addButtonPair("m_manageButtonsLayout", m_addButton, m_deleteButton);

    m_buttonsLayout->addItem(makeSpacer("MFManageAccessSpacerWidth", "MFManageAccessSpacerHeight"));
    m_accessBox = new AccessButtonPrivate(0, 0, 1, container, "m_accessBox");
    m_accessBox->setMaximumSize(klsettings_fieldEditor(QStringLiteral("MFAccessWidth")),
                                klsettings_fieldEditor(QStringLiteral("buttonHeight")));
    DvWheelGuard::install(m_accessBox);
    m_buttonsLayout->addWidget(m_accessBox);
    m_buttonsLayout->addItem(makeSpacer("MFAccessMoveSpacerWidth", "MFAccessMoveSpacerHeight"));
    m_buttonsLayout->addItem(new QSpacerItem(0, 4, QSizePolicy::Minimum, QSizePolicy::Minimum));
    m_labelNumElement = new QLabel(container);
    m_labelNumElement->setObjectName(QStringLiteral("m_labelNumElement"));
    updateNumElementLabel();
    m_buttonsLayout->addWidget(m_labelNumElement);

    m_upButton = new DvIconButton("m_upButton", m_upIcon, Qt::CTRL | Qt::SHIFT | Qt::Key_Up, container);
    m_downButton =
        new DvIconButton("m_downButton", m_downIcon, Qt::CTRL | Qt::SHIFT | Qt::Key_Down, container);
    addButtonPair("movementButtonLayout", m_upButton, m_downButton);
    m_defaultButton =
        new DvIconButton("m_defaultButton", m_defaultIcon, Qt::CTRL | Qt::SHIFT | Qt::Key_D, container);
    auto* ignoreButton =
        new DvIconButton("m_ignoreButton", m_ignoreIcon, Qt::CTRL | Qt::SHIFT | Qt::Key_I, container);
    ignoreButton->setToggling();
    m_ignoreButton = ignoreButton;
    // The same name as the layout before; kept for tools that look layouts up by name.
    addButtonPair("movementButtonLayout", m_defaultButton, m_ignoreButton);
}

QHBoxLayout* DvMFieldWidget::addButtonPair(const char* name, QPushButton* left, QPushButton* right)
{
    auto* layout = new QHBoxLayout;
    setUpLayout(layout, name, "MFButtonLayoutMargin", "MFButtonLayoutSpacing");
    layout->addWidget(left);
    layout->addWidget(right);
    m_buttonsLayout->addLayout(layout);
    return layout;
}

void DvMFieldWidget::languageChange()
{
    const std::pair<QPushButton*, QString> buttons[] = {
        {m_deleteButton, tr("Delete current row")},   {m_upButton, tr("Bring up current row")},
        {m_downButton, tr("Bring down current row")}, {m_defaultButton, tr("Set to default")},
        {m_ignoreButton, tr("Ignore this field")},    {m_addButton, tr("Add a row")}};
    for (const auto& [button, toolTip] : buttons) {
        button->setText(QString());
        button->setToolTip(toolTip);
    }
    m_accessBox->setToolTip(tr("Quick access to rows"));
    m_accessBox->setAccessibleName(m_accessBox->toolTip());
    m_copyAction->setText(tr("Copy Rows"));
    m_pasteAction->setText(tr("Paste into Rows"));
}

void DvMFieldWidget::setFieldName(const QString& kind)
{
    if (renewContainer())
        makeTable();
    nameKind(m_label, getWidgetContainer(), kind);
}

void DvMFieldWidget::setField(SoField* field)
{
    if (!m_table)
        field = nullptr;
    if (!field || checkField(field))
        editField(static_cast<SoMField*>(field));
    else if (m_field)
        watchEditedField();
    KlvFieldEditors::setField(field);
}

void DvMFieldWidget::editField(SoMField* field)
{
    if (m_otherFieldSensor)
        m_otherFieldSensor->detach();
    m_field = field;
    if (!m_table)
        return;
    m_table->abandonEditor();
    // From no rows at all, so that no row is current and the first one is in sight.
    m_table->setNumRows(0);
    m_table->setNumRows(field ? field->getNum() : 0);
}

void DvMFieldWidget::watchEditedField()
{
    if (!m_otherFieldSensor)
        m_otherFieldSensor = std::make_unique<SoFieldSensor>();
    m_otherFieldSensor->setDeleteCallback(
        [](void* data, SoSensor*) { static_cast<DvMFieldWidget*>(data)->editField(nullptr); }, this);
    m_otherFieldSensor->attach(m_field);
}

void DvMFieldWidget::refresh()
{
    if (!m_table || !m_refreshOn || !m_field)
        return;
    m_table->setNumRows(m_field->getNum());
    m_table->viewport()->update();
    if (m_ignoreButton)
        m_ignoreButton->setChecked(m_field->isIgnored());
    updateNumElementLabel();
}

void DvMFieldWidget::setRefresh(bool on)
{
    m_refreshOn = on;
}

void DvMFieldWidget::updateNumElementLabel()
{
    if (m_field && m_labelNumElement)
        m_labelNumElement->setText(
            centered(QString::number(m_field->getNum()) + QStringLiteral(" elements")));
}

QString DvMFieldWidget::getFieldValue(int, int) const
{
    return QString();
}

QString DvMFieldWidget::getShownText(int row, int column) const
{
    return getFieldValue(row, column);
}

int DvMFieldWidget::getTextFlags()
{
    return Qt::AlignCenter;
}

bool DvMFieldWidget::checkField(SoField*)
{
    return false;
}

void DvMFieldWidget::ignoreButtonStateChanged()
{
    if (!m_field)
        return;
    const bool ignored = m_ignoreButton->isChecked();
    m_table->commitEditor();
    const KlvEditScope scope(m_field, 0, 0);
    m_field->setIgnored(ignored);
    KlvServices::getInstance()->pushCommand(new KlvFieldIgnoredCommand(m_field, ignored));
}

void DvMFieldWidget::setDefaultFieldValue()
{
    if (!m_field)
        return;
    m_table->commitEditor();
    const KlvEditScope scope(m_field);
    resetToDefault(m_field);
}
