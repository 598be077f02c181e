#include "Models/SceneTreeModel.h"

#include "Models/NodeIcon.h"
#include "Models/RowDiff.h"
#include "Models/SceneChildren.h"
#include "Models/SwitchedChildren.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SbName.h>
#include <Inventor/nodes/SoNode.h>

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace {

SceneTreeGroup::Row rowFor(const SoNode* node)
{
    if (!node || !SceneChildren::arePossible(node))
        return {node, 0};
    const bool expandable = SceneChildren(node).count() > 0;
    return {node, static_cast<std::uint8_t>(SceneTreeGroup::Container |
                                            (expandable ? SceneTreeGroup::Expandable : 0))};
}

/// How many rows of a group are to be fetched after a change, so that rows which did not change keep their
/// place.
int rowsToFetch(const SceneTreeGroup& group, const SceneChildren& children)
{
    const int fetched = group.fetched();
    const int total = children.count();
    if (fetched == group.total())
        return std::min(total, fetched + SceneTreeModel::SliceSize);
    // A change among the fetched rows shifts the last of them; one beyond them does not.
    const int shifted = fetched + total - group.total();
    const bool changedInside = shifted > 0 && children[shifted - 1] == group.node(fetched - 1);
    return changedInside ? shifted : std::min(fetched, total);
}

} // namespace

SceneTreeModel::SceneTreeModel(QObject* parent)
    : QAbstractItemModel(parent)
    , m_top(std::make_unique<SceneTreeGroup>(nullptr, 0))
    , m_sensor([this] { scheduleSynchronize(); })
{
}

SceneTreeModel::~SceneTreeModel()
{
    m_sensor.detach();
}

void SceneTreeModel::setRoot(SoNode* root)
{
    if (root == m_root)
        return;
    beginResetModel();
    m_sensor.detach();
    m_sensor.take();
    const KlvContainerRef former = std::exchange(m_reference, KlvContainerRef(root));
    m_root = root;
    m_top = std::make_unique<SceneTreeGroup>(nullptr, 0);
    if (root) {
        const SceneTreeGroup::Row row = rowFor(root);
        m_top->insertRows(0, &row, &row + 1);
        m_top->setTotal(1);
        m_sensor.attach(root);
    }
    endResetModel();
}

void SceneTreeModel::setEmphasis(Emphasis isEmphasized)
{
    m_isEmphasized = std::move(isEmphasized);
}

SceneTreeGroup* SceneTreeModel::groupOf(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_top.get();
    return static_cast<SceneTreeGroup*>(parent.internalPointer())->groupAt(parent.row());
}

QModelIndex SceneTreeModel::indexOf(const SceneTreeGroup* group) const
{
    return group->parent() ? createIndex(group->row(), 0, group->parent()) : QModelIndex();
}

SoNode* SceneTreeModel::liveNode(const SceneTreeGroup* group, int row) const
{
    if (!group->parent())
        return m_root;
    const SoNode* parent = liveNode(group->parent(), group->row());
    if (!parent)
        return nullptr;
    // Until the next comparison the child may be at another place, or gone.
    SoNode* child = SceneChildren::at(parent, row);
    return child == group->node(row) ? child : SceneChildren::find(parent, group->node(row));
}

SoNode* SceneTreeModel::node(const QModelIndex& index) const
{
    if (!index.isValid())
        return nullptr;
    return liveNode(static_cast<SceneTreeGroup*>(index.internalPointer()), index.row());
}

QModelIndex SceneTreeModel::indexOf(const QList<int>& childPath)
{
    synchronize();
    QModelIndex found = index(0, 0);
    for (const int child : childPath) {
        if (!found.isValid())
            break;
        fetchUpTo(found, child + 1);
        found = index(child, 0, found);
    }
    return found;
}

QModelIndex SceneTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    SceneTreeGroup* group = groupOf(parent);
    if (!group || parent.column() > 0 || row < 0 || row >= group->fetched() || column < 0 ||
        column >= ColumnCount)
        return {};
    return createIndex(row, column, group);
}

QModelIndex SceneTreeModel::parent(const QModelIndex& index) const
{
    return index.isValid() ? indexOf(static_cast<SceneTreeGroup*>(index.internalPointer())) : QModelIndex();
}

int SceneTreeModel::rowCount(const QModelIndex& parent) const
{
    const SceneTreeGroup* group = parent.column() > 0 ? nullptr : groupOf(parent);
    return group ? group->fetched() : 0;
}

int SceneTreeModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

bool SceneTreeModel::hasChildren(const QModelIndex& parent) const
{
    if (parent.column() > 0)
        return false;
    if (const SceneTreeGroup* group = groupOf(parent))
        return group->fetched() > 0 || group->total() > 0;
    const auto* holder = static_cast<const SceneTreeGroup*>(parent.internalPointer());
    return holder->hasFlag(parent.row(), SceneTreeGroup::Expandable);
}

bool SceneTreeModel::canFetchMore(const QModelIndex& parent) const
{
    return rowCount(parent) == 0 && hasChildren(parent);
}

void SceneTreeModel::fetchMore(const QModelIndex& parent)
{
    fetchUpTo(parent, SliceSize);
}

bool SceneTreeModel::hasMoreSlices(const QModelIndex& parent) const
{
    const SceneTreeGroup* group = groupOf(parent);
    return group && group->fetched() < group->total();
}

void SceneTreeModel::fetchSlice(const QModelIndex& parent)
{
    fetchUpTo(parent, rowCount(parent) + std::max(SliceSize, rowCount(parent)));
}

void SceneTreeModel::fetchUpTo(const QModelIndex& parent, int count)
{
    const SoNode* live = node(parent);
    SceneTreeGroup* group = groupOf(parent);
    const int first = group ? group->fetched() : 0;
    if (!live || count <= first || m_synchronizing)
        return;
    const SceneChildren children(live);
    const int end = std::min(children.count(), std::max(count, first + SliceSize));
    if (end <= first)
        return;
    std::vector<SceneTreeGroup::Row> rows;
    rows.reserve(end - first);
    for (int row = first; row < end; ++row)
        rows.push_back(rowFor(children[row]));

    beginInsertRows(parent, first, end - 1);
    if (!group)
        group = static_cast<SceneTreeGroup*>(parent.internalPointer())->addGroup(parent.row());
    group->setTotal(children.count());
    group->insertRows(first, rows.data(), rows.data() + rows.size());
    endInsertRows();
}

void SceneTreeModel::scheduleSynchronize()
{
    if (!std::exchange(m_scheduled, true))
        QMetaObject::invokeMethod(this, &SceneTreeModel::synchronize, Qt::QueuedConnection);
}

void SceneTreeModel::synchronize()
{
    if (m_synchronizing || !std::exchange(m_scheduled, false))
        return;
    m_synchronizing = true;
    const SceneChanges changes = m_sensor.take();
    bool expandableChanged = false;
    // From the root down, so that each group is compared with the children of a node that is known to be
    // there.
    std::vector<SceneTreeGroup*> pending{m_top.get()};
    while (!pending.empty()) {
        SceneTreeGroup* group = pending.back();
        pending.pop_back();
        if (const SoNode* live = group->parent() ? liveNode(group->parent(), group->row()) : nullptr) {
            if (changes.anywhere || changes.groups.contains(live))
                compareRows(group, live);
            if (changes.switches.contains(live) && group->fetched() > 0) {
                const QModelIndex parent = indexOf(group);
                Q_EMIT dataChanged(index(0, 0, parent), index(group->fetched() - 1, ColumnCount - 1, parent),
                                   {Qt::ForegroundRole, Qt::FontRole});
            }
        }
        if (changes.anywhere || changes.expandability)
            expandableChanged |= refreshExpandable(group);
        for (const auto& child : group->groups())
            pending.push_back(child.get());
    }
    // There is no signal for a row that was never opened and can be opened now; this makes views ask.
    if (expandableChanged) {
        Q_EMIT layoutAboutToBeChanged();
        Q_EMIT layoutChanged();
    }
    m_synchronizing = false;
    Q_EMIT synchronized();
}

void SceneTreeModel::compareRows(SceneTreeGroup* group, const SoNode* node)
{
    const SceneChildren children(node);
    const int fetched = group->fetched();
    const int wanted = rowsToFetch(*group, children);
    group->setTotal(children.count());

    int first = 0;
    while (first < fetched && first < wanted && group->node(first) == children[first])
        ++first;
    int same = 0;
    while (same < std::min(fetched, wanted) - first &&
           group->node(fetched - 1 - same) == children[wanted - 1 - same])
        ++same;

    // What is between is taken down before any signal is sent: a receiver may change the graph.
    std::vector<const void*> before;
    for (int row = first; row < fetched - same; ++row)
        before.push_back(group->node(row));
    std::vector<const void*> after;
    for (int row = first; row < wanted - same; ++row)
        after.push_back(children[row]);
    const std::vector<int> kept = keptRows(before, after);
    std::vector<SceneTreeGroup::Row> added(after.size());
    std::vector<bool> stays(before.size(), false);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (kept[i] >= 0)
            stays[kept[i]] = true;
        else
            added[i] = rowFor(static_cast<const SoNode*>(after[i]));
    }

    const QModelIndex parent = indexOf(group);
    for (int end = static_cast<int>(before.size()); end > 0;) {
        int begin = end;
        while (begin > 0 && !stays[begin - 1])
            --begin;
        if (begin < end) {
            beginRemoveRows(parent, first + begin, first + end - 1);
            group->removeRows(first + begin, end - begin);
            endRemoveRows();
        }
        end = begin - 1;
    }
    for (int begin = 0; begin < static_cast<int>(after.size());) {
        int end = begin;
        while (end < static_cast<int>(after.size()) && kept[end] < 0)
            ++end;
        if (begin < end) {
            beginInsertRows(parent, first + begin, first + end - 1);
            group->insertRows(first + begin, added.data() + begin, added.data() + end);
            endInsertRows();
        }
        begin = end + 1;
    }
}

bool SceneTreeModel::refreshExpandable(SceneTreeGroup* group) const
{
    bool changed = false;
    for (int row = 0; row < group->fetched(); ++row) {
        if (!group->hasFlag(row, SceneTreeGroup::Container) || group->groupAt(row))
            continue;
        const SoNode* live = liveNode(group, row);
        const bool expandable = live && SceneChildren(live).count() > 0;
        if (expandable != group->hasFlag(row, SceneTreeGroup::Expandable)) {
            group->setExpandable(row, expandable);
            changed = true;
        }
    }
    return changed;
}

QVariant SceneTreeModel::data(const QModelIndex& index, int role) const
{
    const SoNode* live = node(index);
    if (!live)
        return {};
    const bool leftOut = (role == Qt::ForegroundRole || role == Qt::FontRole) && index.parent().isValid() &&
                         SwitchedChildren::isLeftOut(node(index.parent()), index.row());
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromUtf8(
            (index.column() == TypeColumn ? objectType(live) : live->getName()).getString());
    case Qt::DecorationRole:
        return index.column() == TypeColumn ? QVariant(NodeIcon::forNode(live)) : QVariant();
    case Qt::ToolTipRole:
        return toolTip(live);
    case Qt::ForegroundRole:
        return leftOut ? QVariant(QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                       : QVariant();
    case Qt::BackgroundRole: {
        QColor tint = QGuiApplication::palette().color(QPalette::Highlight);
        tint.setAlphaF(0.25F);
        return isEmphasized(live) ? QVariant(tint) : QVariant();
    }
    case Qt::FontRole: {
        QFont font;
        font.setItalic(leftOut);
        font.setBold(isEmphasized(live));
        return font.italic() || font.bold() ? QVariant(font) : QVariant();
    }
    default:
        return {};
    }
}

bool SceneTreeModel::isEmphasized(const SoNode* node) const
{
    return m_isEmphasized && m_isEmphasized(node);
}

QString SceneTreeModel::toolTip(const SoNode* node) const
{
    QString text = objectLabel(node);
    if (const int count = SceneChildren(node).count())
        text += QLatin1Char('\n') + tr("Children: %1").arg(count);
    return text + QLatin1Char('\n') + tr("References: %1").arg(node->getRefCount());
}

QVariant SceneTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == TypeColumn ? tr("Node") : tr("Name");
}
