#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>
#include <QTimer>

class FieldListModel;
class SoField;

/// Those rows of a field list that contain words, are set, or have been changed since the scene was opened.
///
/// Rows come and go at once when the filter changes, and at most four times a second while values change.
class FieldFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// Filters `fields`, which outlives it.
    explicit FieldFilter(FieldListModel* fields, QObject* parent = nullptr);

    /// Name, type, value and state have to contain all words of the text, in any letter case.
    void setText(const QString& text);
    /// Leaves out fields that are at their default and not connected.
    void setOnlySet(bool only);
    /// Leaves out fields that are as they were when the scene was opened.
    void setOnlyChanged(bool only);

    /// Keeps the row of one field whatever the filter; null keeps none. A row that was kept before goes with
    /// the next change of the filter or of a value, so that no row moves under the mouse.
    void keep(const SoField* field);

    int hiddenCount() const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    bool filters() const;

    FieldListModel* m_fields;
    QStringList m_words;
    bool m_onlySet = false;
    bool m_onlyChanged = false;
    const SoField* m_kept = nullptr; // compared, never followed
    QTimer m_filterAgain;
};
