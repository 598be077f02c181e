#pragma once

#include <QTreeView>

class FieldListModel;
class SoField;

/// A list of fields. Its current row is the field selected in `KlvServices` and the other way round; where
/// the selected field is not listed, no row is current. A row that goes makes no neighbour current.
///
/// The keys of its actions work before those of the window, while it has the focus. Typing finds a row by
/// its first column. While the list is not visible its model is not live.
class FieldListView : public QTreeView
{
    Q_OBJECT

public:
    /// Shows `shown`, which is `fields` itself or a proxy of it. Both outlive the view.
    FieldListView(FieldListModel* fields, QAbstractItemModel* shown, QWidget* parent = nullptr);

    SoField* currentField() const;
    /// Makes the row of a field current, without selecting the field; none for null and what is not listed.
    void follow(const SoField* field);
    /// Adds an action with keys that work while the list has the focus.
    QAction* addListAction(const QString& text, const QList<QKeySequence>& keys);

    void keyboardSearch(const QString& search) override;

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QAction* actionOf(const QKeyEvent& event) const;
    void currentRowChanged();

    FieldListModel* m_fields;
    bool m_following = false; // the current row changes because of the selection, or goes
};
