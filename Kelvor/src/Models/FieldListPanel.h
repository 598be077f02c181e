#pragma once

#include <QWidget>

class FieldFilter;
class FieldFilterBar;
class FieldListModel;
class FieldListView;
class FieldTrail;
class PinnedFields;
class QLabel;
class SoField;
class SoFieldContainer;
class SoNode;

/// The fields of the container selected in `KlvServices`, with a filter, and above them those that were
/// pinned. The current row is the selected field and the other way round. The selected field is listed
/// whatever the filter says.
class FieldListPanel : public QWidget
{
    Q_OBJECT

public:
    explicit FieldListPanel(QWidget* parent = nullptr);

    /// Another scene is shown, or none: unpins all fields and forgets which were visited. The root is
    /// referenced, pinned fields tell their places below it.
    void setRoot(SoNode* root);

Q_SIGNALS:
    /// A field was double-clicked, or Return pressed on it: its editor is wanted.
    void fieldActivated();
    /// Something could not be done: a sentence.
    void problem(const QString& sentence);

private:
    void addKeys(FieldListView* view, const QList<QKeySequence>& pinKeys);
    void enterList();
    void showContainer(SoFieldContainer* container);
    void follow(SoField* field);
    void updateHint();

    FieldListModel* m_model;
    FieldFilter* m_filter;
    FieldTrail* m_trail;
    // From top to bottom, which is also the order of Tab.
    PinnedFields* m_pins;
    QLabel* m_title;
    FieldFilterBar* m_bar;
    FieldListView* m_view;
    QWidget* m_hint;
    QLabel* m_hintText;
};
