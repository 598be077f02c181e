#pragma once

#include <QWidget>

class ChangesModel;
class KlvChanges;
class QAction;
class QStackedLayout;
class QTreeView;
class SoField;
class SoNode;

/// What has been changed since the scene was opened, to look at, to take back, and to carry to where the
/// scene is made: as Inventor text or as C++ statements.
class ChangesPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ChangesPanel(QWidget* parent = nullptr);

    /// The scene in which the nodes are. It is not referenced; null for none.
    void setRoot(SoNode* root);
    /// The number of changed fields in the list.
    int count() const;

Q_SIGNALS:
    void countChanged(int count);
    /// One sentence on what could not be done.
    void problem(const QString& sentence);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void addActions();
    QAction* addAction(const QString& text, const QString& toolTip, const QKeySequence& keys,
                       void (ChangesPanel::*triggered)());
    void updateActions();
    void showRows();
    void select(const QModelIndex& index);
    /// The fields of the selected rows, from the top down.
    QList<SoField*> selectedFields() const;
    /// Those of all rows where none is selected.
    QList<SoField*> fieldsToCopy() const;

    void revertSelected();
    void revertAll();
    void revert(const QList<SoField*>& fields);
    void copyInventor();
    void copyCpp();
    void copyPaths();

    KlvChanges* m_changes;
    ChangesModel* m_model;
    QTreeView* m_view;
    QStackedLayout* m_pages;
    QAction* m_revert = nullptr;
    QAction* m_revertAll = nullptr;
    QAction* m_copyInventor = nullptr;
    QAction* m_copyCpp = nullptr;
    QAction* m_copyPath = nullptr;
};
