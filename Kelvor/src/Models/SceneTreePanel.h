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
/// When the current row goes, its node stays selected if it still occurs in the tree, or the tree is too
/// large to tell; otherwise nothing is selected.
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

    /// Adds actions to the tree's menu; those whose shortcuts are for one widget work while it has the focus.
    void addTreeActions(const QList<QAction*>& actions);

    /// Brings the panel to the front and gives the focus to the search line; for menus. Owned by the panel,
    /// its shortcut works in the whole window.
    QAction* findAction() const { return m_findAction; }

Q_SIGNALS:
    /// The current row stands for another occurrence, or the way to it has changed: the child indices that
    /// lead to it from the root; no value when there is no current row.
    void occurrenceChanged(const std::optional<QList<int>>& childPath);

private:
    /// The child indices that lead from the root to an occurrence, if there is one.
    using Occurrence = std::optional<QList<int>>;

    void connectSearch();
    void addActions();
    void find();
    void currentRowChanged(const QModelIndex& current);
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last);
    void findLostRow();
    /// Makes an occurrence of the container the current row, one near `near` if there is one. False when the
    /// container is certainly not in the tree.
    bool follow(SoFieldContainer* container, const Occurrence& near);
    void makeCurrent(const QModelIndex& index);
    void announceOccurrence();
    void copy(int column) const;

    SceneTreeModel* m_model;
    SearchBar* m_search;
    QAction* m_findAction;
    SceneTreeView* m_view;
    Occurrence m_occurrence;  // as it was announced
    Occurrence m_lost;        // of the current row that was removed; its node may be elsewhere
    bool m_following = false; // the current row changes because of the selection, or goes
};
