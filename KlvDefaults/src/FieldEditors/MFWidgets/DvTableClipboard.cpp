#include "FieldEditors/MFWidgets/DvTableClipboard.h"

#include "FieldEditors/KlvMFSetFieldValueCommand.h"
#include "FieldEditors/MFWidgets/DvMFieldTable.h"
#include "FieldEditors/MFWidgets/DvMFieldWidget.h"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoMField.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QProgressDialog>

#include <algorithm>

namespace {

constexpr QChar Quote = u'"';

bool isSeparator(QChar character)
{
    return character == u'\t' || character == u'\n' || character == u'\r';
}

bool hasSeparator(QStringView text)
{
    return std::any_of(text.begin(), text.end(), isSeparator);
}

QString quoted(QString text)
{
    return Quote + text.replace(Quote, QStringLiteral("\"\"")) + Quote;
}

/// The end of the quoted cell that begins at `start`: the separator behind it, or the end of the text. -1
/// when the quotes there are part of the text.
qsizetype endOfQuoted(QStringView text, qsizetype start)
{
    if (text[start] != Quote)
        return -1;
    bool needed = false;
    qsizetype i = start + 1;
    for (; i < text.size(); ++i) {
        const bool isQuote = text[i] == Quote;
        if (isQuote && (i + 1 == text.size() || text[i + 1] != Quote))
            break;
        needed = needed || isQuote || isSeparator(text[i]);
        i += isQuote;
    }
    const qsizetype end = i + 1;
    return needed && i < text.size() && (end == text.size() || isSeparator(text[end])) ? end : -1;
}

} // namespace

DvTableClipboard::DvTableClipboard(DvMFieldWidget* owner, DvMFieldTable* table)
    : m_owner(owner)
    , m_table(table)
{
}

template <typename Work>
bool DvTableClipboard::forEach(int count, const QString& label, Work work) const
{
    // The application lives on meanwhile: it may take the field away or close the window. The dialog must
    // outlive all of that and therefore has no parent.
    QProgressDialog progress(label, tr("Cancel"), 0, count);
    progress.setWindowModality(Qt::ApplicationModal);
    const QPointer<DvMFieldTable> table = m_table;
    const SoMField* field = m_owner->getField();
    for (int i = 0; i < count; ++i) {
        if (i % 256 == 255) {
            progress.setValue(i);
            if (progress.wasCanceled() || !table || m_owner->getField() != field)
                return false;
        }
        work(i);
    }
    return true;
}

void DvTableClipboard::copy(int first, int count) const
{
    if (count < 1)
        return;
    QString text;
    const bool done = forEach(count, tr("Copying…"), [&](int i) {
        for (int column = 0; column < m_table->columnCount(); ++column) {
            QString cell = m_owner->getFieldValue(first + i, column);
            if (hasSeparator(cell) || cell.startsWith(Quote))
                cell = quoted(cell);
            text += cell + (column + 1 < m_table->columnCount() ? u'\t' : u'\n');
        }
    });
    if (!done)
        return;
    // The last line needs no end, unless there is nothing else of it.
    if (text.size() > 1 && !text.endsWith(QLatin1String("\n\n")))
        text.chop(1);
    QGuiApplication::clipboard()->setText(text);
}

void DvTableClipboard::paste(int first, int count) const
{
    SoMField* field = m_owner->getField();
    QList<QStringList> lines = split(QGuiApplication::clipboard()->text());
    if (!field || lines.isEmpty() || (first < 0 && m_table->rowCount() > 0))
        return;
    first = std::max(first, 0);
    if (m_table->columnCount() == 1) {
        QList<QStringList> cells;
        for (const QStringList& line : std::as_const(lines)) {
            for (const QString& cell : line)
                cells += {cell};
        }
        lines.swap(cells);
    }
    const bool fills = lines.size() == 1 && lines.first().size() == 1 && count > 1;
    const int rows = fills ? count : static_cast<int>(lines.size());
    const QPointer<QObject> table = m_table;
    {
        const KlvEditScope scope(field, first, rows, tr("Paste into %1"));
        forEach(rows, tr("Pasting…"), [&](int i) {
            const QStringList& line = fills ? lines.first() : lines.at(i);
            for (int column = 0; column < std::min<int>(line.size(), m_table->columnCount()); ++column)
                m_owner->set1Value(first + i, column, m_table->withinBounds(line.at(column)));
        });
        // Some editors record no edits of cells.
        KlvServices::getInstance()->pushCommand(new KlvMFSetFieldValueCommand(field, first));
    }
    if (table)
        m_owner->refresh();
}

QList<QStringList> DvTableClipboard::split(const QString& text)
{
    QList<QStringList> lines;
    QStringList line;
    bool lineGoesOn = false;
    for (qsizetype start = 0; start < text.size() || lineGoesOn;) {
        const qsizetype endOfQuotes = start < text.size() ? endOfQuoted(text, start) : -1;
        const auto separator = std::find_if(text.cbegin() + start, text.cend(), isSeparator);
        const qsizetype end = endOfQuotes >= 0 ? endOfQuotes : separator - text.cbegin();
        if (endOfQuotes >= 0)
            line += text.sliced(start + 1, end - start - 2).replace(QLatin1String("\"\""), Quote);
        else
            line += text.sliced(start, end - start);
        lineGoesOn = end < text.size() && text[end] == u'\t';
        if (!lineGoesOn) {
            lines += line;
            line.clear();
        }
        start = end + (QStringView(text).sliced(end).startsWith(QLatin1String("\r\n")) ? 2 : 1);
    }
    return lines;
}
