#pragma once

#include "Models/SceneSensor.h"
#include "Models/SceneTreeGroup.h"

#include <KlvExtender/KlvContainerRef.h>

#include <QAbstractItemModel>
#include <QList>

#include <functional>

class SceneChildren;
class SoNode;

/// The occurrences of nodes below a root, read lazily from the live scene graph.
///
/// The root is the only top-level row. A node that is shared has a row at each of its places. Children are
/// fetched when a view asks for them, those of large groups in slices. The model follows the graph: changes
/// are gathered and compared once the event loop comes round, by what `synchronize()` does. Between a change
/// and that moment, rows whose nodes are no longer among the children of their parent give no data.
///
/// User-interface thread only. Do not call `setRoot()` from within the model's own signals.
class SceneTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        TypeColumn,
        NameColumn,
        ColumnCount
    };

    /// Rows of a group that are fetched at first.
    static constexpr int SliceSize = 1000;

    explicit SceneTreeModel(QObject* parent = nullptr);
    ~SceneTreeModel() override;

    /// Shows another graph, or none. The root is referenced while it is shown.
    void setRoot(SoNode* root);
    SoNode* root() const { return m_root; }

    /// Which nodes stand out from the others: asked for every visible row that is painted, none at first. The
    /// caller has the views painted again when the answers change.
    using Emphasis = std::function<bool(const SoNode*)>;
    void setEmphasis(Emphasis isEmphasized);

    /// The live node of a row; null when it is no longer in the graph there, or the index is not valid.
    SoNode* node(const QModelIndex& index) const;

    /// The row of an occurrence, given by the child indices that lead to it from the root; fetches what is
    /// needed to reach it. Not valid when there is no such occurrence.
    QModelIndex indexOf(const QList<int>& childPath);

    /// True when a row has children that are not fetched, beyond those that are.
    bool hasMoreSlices(const QModelIndex& parent) const;
    /// Fetches as many more children of a row as there are already. Tree views call `fetchMore()` each time
    /// they lay their rows out, whether people need the rows or not, so that gives the first slice only.
    void fetchSlice(const QModelIndex& parent);

    /// Brings the fetched rows in line with the graph now, not when the event loop comes round.
    void synchronize();

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /// The rows were brought in line with the graph, by as many row signals as that took, or none.
    void synchronized();

private:
    SceneTreeGroup* groupOf(const QModelIndex& parent) const;
    QModelIndex indexOf(const SceneTreeGroup* group) const;
    SoNode* liveNode(const SceneTreeGroup* group, int row) const;
    void fetchUpTo(const QModelIndex& parent, int count);
    void scheduleSynchronize();
    void compareRows(SceneTreeGroup* group, const SoNode* node);
    bool refreshExpandable(SceneTreeGroup* group) const;
    bool isEmphasized(const SoNode* node) const;
    QString toolTip(const SoNode* node) const;

    SoNode* m_root = nullptr;
    KlvContainerRef m_reference; // to the root
    Emphasis m_isEmphasized;
    std::unique_ptr<SceneTreeGroup> m_top; // the group above the root, with one row
    SceneSensor m_sensor;
    bool m_scheduled = false;
    bool m_synchronizing = false;
};
