#pragma once

#include <QTimer>
#include <QTreeView>

class SceneTreeModel;

/// Shows the scene tree whatever its size: it fetches the next slice of every group whose end comes into
/// view, also where rows of other groups follow, and opens branches up to a bounded number of rows only. The
/// column of the types fills the view, and is wider where what is in sight needs it.
class SceneTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit SceneTreeView(SceneTreeModel* model, QWidget* parent = nullptr);

    /// Opens everything below a row, the nearest levels first, until some thousand rows are added.
    void expandBelow(const QModelIndex& index);

    /// Sideways, too: to the label of a row that is deep in the scene.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    void fetchVisible();
    void fitColumns();

    SceneTreeModel* m_model;
    QTimer m_visibleTimer; ///< until what is in sight is looked at
};
