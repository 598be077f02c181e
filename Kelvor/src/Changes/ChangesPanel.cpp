#include "Changes/ChangesPanel.h"

#include "Changes/ChangesModel.h"
#include "Changes/SceneCode.h"
#include "Changes/ScenePlaceSearch.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoField.h>

#include <QAction>
#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QStackedLayout>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

ChangesPanel::ChangesPanel(QWidget* parent)
    : QWidget(parent)
    , m_changes(KlvServices::getInstance()->getChanges())
    , m_model(new ChangesModel(m_changes, this))
    , m_view(new QTreeView)
    , m_pages(new QStackedLayout)
{
    m_view->setAccessibleName(tr("Changes"));
    m_view->setModel(m_model);
    m_view->setRootIsDecorated(false);
    m_view->setItemsExpandable(false);
    m_view->setUniformRowHeights(true);
    m_view->setSelectionMode(QTreeView::ExtendedSelection);
    m_view->setAllColumnsShowFocus(true);
    m_view->setAlternatingRowColors(true);
    QHeaderView* header = m_view->header();
    // All columns are seen in a narrow dock, too.
    const int unit = fontMetrics().averageCharWidth();
    header->setMinimumSectionSize(5 * unit);
    header->resizeSection(ChangesModel::NodeColumn, 16 * unit);
    header->resizeSection(ChangesModel::FieldColumn, 13 * unit);
    header->resizeSection(ChangesModel::OriginalColumn, 9 * unit);

    auto* empty = new QLabel(tr("No field differs from the scene as it was opened."));
    empty->setAlignment(Qt::AlignCenter);
    empty->setWordWrap(true);
    empty->setForegroundRole(QPalette::PlaceholderText);
    empty->setMargin(12);
    m_pages->addWidget(empty);
    m_pages->addWidget(m_view);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(m_pages);
    addActions();

    connect(m_view, &QTreeView::clicked, this, &ChangesPanel::select);
    connect(m_view, &QTreeView::activated, this, &ChangesPanel::select);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ChangesPanel::updateActions);
    connect(m_model, &ChangesModel::rowsInserted, this, &ChangesPanel::showRows);
    connect(m_model, &ChangesModel::rowsRemoved, this, &ChangesPanel::showRows);
    showRows();
}

void ChangesPanel::addActions()
{
    m_revert = addAction(tr("Revert"), tr("Make the selected fields what they were"), Qt::Key_Delete,
                         &ChangesPanel::revertSelected);
    m_revertAll = addAction(tr("Revert All"), tr("Make all fields what they were"), QKeySequence(),
                            &ChangesPanel::revertAll);
    m_copyInventor =
        addAction(tr("Copy as Inventor"), tr("Copy the selected changes, or all, as Inventor text"),
                  QKeySequence::Copy, &ChangesPanel::copyInventor);
    m_copyCpp = addAction(tr("Copy as C++"), tr("Copy the selected changes, or all, as C++ statements"),
                          Qt::CTRL | Qt::ALT | Qt::Key_C, &ChangesPanel::copyCpp);
    m_copyPath =
        addAction(tr("Copy Path"), tr("Copy the way to the node"), QKeySequence(), &ChangesPanel::copyPaths);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);

    // In two columns, so that the dock can be narrow.
    auto* buttons = new QGridLayout;
    buttons->setContentsMargins(4, 4, 4, 4);
    buttons->setSpacing(2);
    int place = 0;
    for (QAction* action : {m_revert, m_revertAll, m_copyInventor, m_copyCpp}) {
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        buttons->addWidget(button, place % 2, place / 2);
        ++place;
    }
    static_cast<QBoxLayout*>(layout())->addLayout(buttons);
}

QAction* ChangesPanel::addAction(const QString& text, const QString& toolTip, const QKeySequence& keys,
                                 void (ChangesPanel::*triggered)())
{
    auto* action = new QAction(text, m_view);
    action->setToolTip(keys.isEmpty() ? toolTip
                                      : tr("%1 (%2)").arg(toolTip, keys.toString(QKeySequence::NativeText)));
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, triggered);
    m_view->addAction(action);
    return action;
}

void ChangesPanel::setRoot(SoNode* root)
{
    m_model->setRoot(root);
}

void ChangesPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_model->setWatched(true);
}

void ChangesPanel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_model->setWatched(false);
}

int ChangesPanel::count() const
{
    return m_model->rowCount();
}

void ChangesPanel::showRows()
{
    m_pages->setCurrentIndex(count() > 0 ? 1 : 0);
    // A proxy that is hidden would end the way of Tab through the window.
    setFocusProxy(count() > 0 ? m_view : nullptr);
    updateActions();
    Q_EMIT countChanged(count());
}

void ChangesPanel::updateActions()
{
    const bool isSelected = m_view->selectionModel()->hasSelection();
    m_revert->setEnabled(isSelected);
    m_copyPath->setEnabled(isSelected);
    for (QAction* action : {m_revertAll, m_copyInventor, m_copyCpp})
        action->setEnabled(count() > 0);
}

void ChangesPanel::select(const QModelIndex& index)
{
    m_model->checkPlaces();
    KlvServices::getInstance()->setSelectedField(m_model->field(index));
}

QList<SoField*> ChangesPanel::selectedFields() const
{
    QModelIndexList rows = m_view->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QList<SoField*> fields;
    for (const QModelIndex& row : rows)
        fields.append(m_model->field(row));
    return fields;
}

QList<SoField*> ChangesPanel::fieldsToCopy() const
{
    const QList<SoField*> selected = selectedFields();
    return selected.isEmpty() ? m_model->fields() : selected;
}

void ChangesPanel::revertSelected()
{
    revert(selectedFields());
}

void ChangesPanel::revertAll()
{
    revert(m_model->fields());
}

void ChangesPanel::revert(const QList<SoField*>& fields)
{
    m_changes->revert(fields);
    const auto unknown = std::count_if(fields.begin(), fields.end(), [this](const SoField* field) {
        return m_changes->isChanged(field) && !m_changes->getOriginal(field);
    });
    if (unknown > 0)
        Q_EMIT problem(tr("%1 of the fields cannot be reverted, because their original values are not known.")
                           .arg(unknown));
}

void ChangesPanel::copyInventor()
{
    QGuiApplication::clipboard()->setText(SceneCode::inventorText(fieldsToCopy(), m_model->root()));
}

void ChangesPanel::copyCpp()
{
    QGuiApplication::clipboard()->setText(SceneCode::cppStatements(fieldsToCopy(), m_model->root()));
}

void ChangesPanel::copyPaths()
{
    const QList<SoField*> fields = selectedFields();
    QSet<SoFieldContainer*> containers;
    for (const SoField* field : fields)
        containers.insert(field->getContainer());
    const auto places = ScenePlaceSearch::findAll(m_model->root(), containers);
    QStringList paths;
    for (const SoField* field : fields)
        paths += places.find(field->getContainer())->label();
    paths.removeDuplicates();
    QGuiApplication::clipboard()->setText(paths.join(QLatin1Char('\n')));
}
