#pragma once

#include <QWidget>

class FieldListModel;
class FieldListView;
class QLabel;
class SoField;
class SoFieldContainer;

/// The fields of the container selected in `KlvServices`, with the selection of a field: the current row is
/// the selected field and the other way round.
class FieldListPanel : public QWidget
{
    Q_OBJECT

public:
    explicit FieldListPanel(QWidget* parent = nullptr);

Q_SIGNALS:
    /// A field was double-clicked, or Return pressed on it: its editor is wanted.
    void fieldActivated();

private:
    void addActions();
    void showContainer(SoFieldContainer* container);
    void follow(SoField* field);
    void currentRowChanged(const QModelIndex& current);
    void copy(int column) const;

    FieldListModel* m_model;
    FieldListView* m_view;
    QLabel* m_title;
    bool m_following = false; // the current row changes because of the selection, or goes
};
