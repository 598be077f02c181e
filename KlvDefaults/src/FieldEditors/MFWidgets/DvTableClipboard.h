#pragma once

#include <QCoreApplication>
#include <QList>
#include <QStringList>

class DvMFieldTable;
class DvMFieldWidget;

/// Carries the texts of an element table to the clipboard and back, as spreadsheets do: a line for each row,
/// tabs between columns.
///
/// A cell whose text has line breaks or tabs itself, or begins with a double quote, stands in double quotes,
/// with those inside doubled. Quotes that have neither of these inside are taken for part of the text. Long
/// work shows its progress and can be cancelled, which leaves what is done.
class DvTableClipboard
{
    Q_DECLARE_TR_FUNCTIONS(DvTableClipboard)

public:
    /// Works for one operation on the table of `owner`.
    DvTableClipboard(DvMFieldWidget* owner, DvMFieldTable* table);

    /// Copies `count` rows from `first` on; without any the clipboard stays as it is.
    void copy(int first, int count) const;
    /// Hands the owner the clipboard's cells one by one, from row `first` on, in a single step of the
    /// history. A table of one column takes the cells of a line one below the other; else what is right of
    /// the last column stays out. A single cell goes into all `count` rows.
    void paste(int first, int count) const;

    /// The cells of a text, line by line.
    static QList<QStringList> split(const QString& text);

private:
    template <typename Work>
    bool forEach(int count, const QString& label, Work work) const;

    DvMFieldWidget* m_owner;
    DvMFieldTable* m_table;
};
