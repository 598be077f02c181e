#pragma once

#include <QWidget>

class FieldListModel;
class FieldListView;
class QToolButton;
class SoField;

/// Fields that are kept at hand whichever node is selected, in a list that can be folded. As high as its
/// rows, up to some; hidden while nothing is pinned. Pinned fields are not kept alive.
class PinnedFields : public QWidget
{
    Q_OBJECT

public:
    explicit PinnedFields(QWidget* parent = nullptr);

    FieldListView* view() const { return m_view; }

    bool isPinned(const SoField* field) const;
    /// Pins a field, which must be in a container, or takes it away again.
    void toggle(SoField* field);
    void clear();

protected:
    void changeEvent(QEvent* event) override;

private:
    void fit();

    FieldListModel* m_model;
    QToolButton* m_header;
    FieldListView* m_view;
    bool m_folded = false;
};
