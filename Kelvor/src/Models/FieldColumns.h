#pragma once

#include <QObject>

class FieldListView;

/// The widths of the columns of a list of fields, in the size of its font. Values have what the others leave,
/// and at least enough for a short one: where the list is narrow, the types are hidden, then names and states
/// give way. A width that a person gives the names stays as far as there is room for it.
class FieldColumns : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the view.
    explicit FieldColumns(FieldListView* view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void reset();
    void fit();

    FieldListView* m_view;
    int m_names = 0; ///< the width for names where there is room
    int m_types = 0;
    bool m_isFitting = false;
};
