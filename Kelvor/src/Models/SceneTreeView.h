#pragma once

#include <QTimer>
#include <QTreeView>

class SceneTreeModel;

/// Shows the scene tree whatever its size: it fetches the next slice of every group whose end comes into
/// view, also where rows of other groups follow, and opens branches up to a bounded number of rows only.
class SceneTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit SceneTreeView(SceneTreeModel* model, QWidget* parent = nullptr);

    /// Opens everything below a row, the nearest levels first, until some thousand rows are added.
    void expandBelow(const QModelIndex& index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    void fetchVisible();

    SceneTreeModel* m_model;
    QTimer m_fetchTimer;
};
