#include "Models/SceneTreePanel.h"

#include "Models/DockReveal.h"
#include "Models/SceneSearch.h"
#include "Models/SceneTreeModel.h"
#include "Models/SceneTreeView.h"
#include "Search/SearchBar.h"

#include <KlvExtender/KlvContainerRef.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/nodes/SoNode.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace {

constexpr qsizetype searchLimit = 2'000'000; // about a second

} // namespace

SceneTreePanel::SceneTreePanel(QWidget* parent)
    : QWidget(parent)
    , m_model(new SceneTreeModel(this))
    , m_search(new SearchBar(this))
    , m_findAction(new QAction(tr("&Find Nodes"), this))
{
    // Before the view's selection model hears of it: that would make a neighbour the current row.
    connect(m_model, &SceneTreeModel::rowsAboutToBeRemoved, this, &SceneTreePanel::rowsAboutToBeRemoved);
    connect(m_model, &SceneTreeModel::synchronized, this, &SceneTreePanel::findLostRow);
    connect(m_model, &SceneTreeModel::synchronized, this, &SceneTreePanel::announceOccurrence);

    m_view = new SceneTreeView(m_model, this);
    m_view->setAccessibleName(tr("Scene tree"));
    m_view->header()->setStretchLastSection(false);
    m_view->header()->setSectionResizeMode(SceneTreeModel::TypeColumn, QHeaderView::Fixed);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &SceneTreePanel::currentRowChanged);
    connect(KlvServices::getInstance(), &KlvServices::selectedNodeChanged, this,
            [this](SoFieldContainer* container) { follow(container, m_occurrence); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_search);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    connectSearch();
    addActions();
}

void SceneTreePanel::connectSearch()
{
    m_model->setEmphasis([this](const SoNode* node) { return m_search->isMatch(node); });
    connect(m_search, &SearchBar::matchesChanged, m_view->viewport(), QOverload<>::of(&QWidget::update));
    connect(m_search, &SearchBar::matchChosen, this, &SceneTreePanel::select);
    connect(m_search, &SearchBar::left, m_view, QOverload<>::of(&QWidget::setFocus));
    connect(m_model, &SceneTreeModel::synchronized, m_search, &SearchBar::outdate);
    connect(this, &SceneTreePanel::occurrenceChanged, m_search, &SearchBar::setPosition);

    m_findAction->setShortcut(QKeySequence::Find);
    connect(m_findAction, &QAction::triggered, this, &SceneTreePanel::find);
    m_view->addAction(m_findAction);
    QWidget::addActions(m_search->actions());
}

void SceneTreePanel::addActions()
{
    const auto add = [this](const QString& text, const QKeySequence& keys, auto triggered) {
        auto* action = new QAction(text, m_view);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, triggered);
        m_view->addAction(action);
    };
    add(tr("Expand All Below"), Qt::Key_Asterisk, [this] { m_view->expandBelow(m_view->currentIndex()); });
    add(tr("Collapse All"), Qt::CTRL | Qt::Key_Minus, [this] {
        m_view->collapseAll();
        m_view->expand(m_model->index(0, 0));
        m_view->scrollTo(m_view->currentIndex());
    });
    add(tr("Copy Name"), QKeySequence::Copy, [this] { copy(SceneTreeModel::NameColumn); });
    add(tr("Copy Type"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, [this] { copy(SceneTreeModel::TypeColumn); });
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void SceneTreePanel::addTreeActions(const QList<QAction*>& actions)
{
    m_view->QWidget::addActions(actions);
}

void SceneTreePanel::find()
{
    revealInDock(this);
    m_search->edit();
}

void SceneTreePanel::setRoot(SoNode* root)
{
    if (root == m_model->root())
        return;
    m_lost = m_occurrence;
    m_model->setRoot(root);
    announceOccurrence();
    m_search->setRoot(root);
    m_view->expand(m_model->index(0, 0));
    if (m_lost)
        findLostRow();
    else
        follow(KlvServices::getInstance()->getSelectedNode(), std::nullopt);
}

void SceneTreePanel::select(const QList<int>& childPath)
{
    const QModelIndex index = m_model->indexOf(childPath);
    if (!index.isValid())
        return;
    m_view->setCurrentIndex(index);
    m_view->scrollTo(index);
}

void SceneTreePanel::currentRowChanged(const QModelIndex& current)
{
    if (!m_following)
        KlvServices::getInstance()->setSelectedNode(m_model->node(current));
    announceOccurrence();
}

void SceneTreePanel::announceOccurrence()
{
    Occurrence path;
    const QModelIndex current = m_view->currentIndex();
    if (current.isValid())
        path.emplace();
    for (QModelIndex index = current; index.parent().isValid(); index = index.parent())
        path->prepend(index.row());
    if (path == m_occurrence)
        return;
    m_occurrence = path;
    Q_EMIT occurrenceChanged(path);
}

void SceneTreePanel::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
    QModelIndex ancestor = m_view->currentIndex();
    while (ancestor.isValid() && ancestor.parent() != parent)
        ancestor = ancestor.parent();
    if (!ancestor.isValid() || ancestor.row() < first || ancestor.row() > last)
        return;
    m_lost = m_occurrence;
    makeCurrent(QModelIndex());
}

void SceneTreePanel::findLostRow()
{
    const Occurrence lost = std::exchange(m_lost, std::nullopt);
    SoFieldContainer* selected = KlvServices::getInstance()->getSelectedNode();
    if (lost && selected && !follow(selected, lost))
        KlvServices::getInstance()->setSelectedNode(nullptr);
}

bool SceneTreePanel::follow(SoFieldContainer* container, const Occurrence& near)
{
    const QModelIndex current = m_view->currentIndex();
    if (container && current.isValid() && m_model->node(current) == container)
        return true;
    SceneSearch search(SceneSearch::Visits::EachNode, searchLimit);
    Occurrence path;
    // What nobody else holds is not below the root.
    if (container && container->isOfType(SoNode::getClassTypeId()) &&
        (container == m_model->root() || KlvContainerRef::isHeldElsewhere(container)))
        path = search.findNear(m_model->root(), static_cast<SoNode*>(container), near.value_or(QList<int>()));
    makeCurrent(path ? m_model->indexOf(*path) : QModelIndex());
    return path || search.isExhausted();
}

void SceneTreePanel::makeCurrent(const QModelIndex& index)
{
    const QScopedValueRollback following(m_following, true);
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                         QItemSelectionModel::Rows);
    if (index.isValid())
        m_view->scrollTo(index);
}

void SceneTreePanel::copy(int column) const
{
    const QModelIndex current = m_view->currentIndex();
    QString text = current.siblingAtColumn(column).data().toString();
    if (text.isEmpty())
        text = current.siblingAtColumn(SceneTreeModel::TypeColumn).data().toString();
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
}
