#pragma once

#include <QList>
#include <QWidget>

#include <optional>

class QAction;
class SceneTreeModel;
class SceneTreeView;
class SearchBar;
class SoFieldContainer;
class SoNode;

/// The scene tree with its search line and its selection: the current row is the selected node of
/// `KlvServices`, and a node that is selected elsewhere becomes the current row at one of its occurrences.
///
/// When the current row goes, its node stays selected if it still occurs in the tree; otherwise nothing is
/// selected.
class SceneTreePanel : public QWidget
{
    Q_OBJECT

public:
    explicit SceneTreePanel(QWidget* parent = nullptr);

    /// Shows another graph, or none; it is referenced while it is shown. A selected row that the new graph
    /// does not have is deselected.
    void setRoot(SoNode* root);
    /// Selects an occurrence by the child indices that lead to it from the root, and scrolls to it. A path
    /// that leads nowhere changes nothing.
    void select(const QList<int>& childPath);

    /// Brings the panel to the front and gives the focus to the search line; for menus. Owned by the panel,
    /// its shortcut works in the panel.
    QAction* findAction() const { return m_findAction; }

Q_SIGNALS:
    /// The current row stands for another occurrence, or the way to it has changed: the child indices that
    /// lead to it from the root; no value when there is no current row.
    void occurrenceChanged(const std::optional<QList<int>>& childPath);

private:
    void connectSearch();
    void addActions();
    void find();
    void currentRowChanged(const QModelIndex& current);
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last);
    void findLostRow();
    void follow(SoFieldContainer* container);
    void makeCurrent(const QModelIndex& index);
    void announceOccurrence();
    void copy(int column) const;

    SceneTreeModel* m_model;
    SearchBar* m_search;
    QAction* m_findAction;
    SceneTreeView* m_view;
    std::optional<QList<int>> m_occurrence; // as it was announced
    bool m_following = false;               // the current row changes because of the selection, or goes
    bool m_rowLost = false;                 // the current row was removed; its node may be elsewhere
};
