#include "FieldEditors/MFWidgets/DvTableClipboard.h"

#include "FieldEditors/MFWidgets/DvMFieldWidget.h"

#include <KlvExtender/KlvEditScope.h>

#include <Inventor/fields/SoMField.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QProgressDialog>
#include <QTableWidget>

#include <algorithm>

namespace {

constexpr QChar Quote = u'"';

bool isSeparator(QChar character)
{
    return character == u'\t' || character == u'\n';
}

bool hasSeparator(QStringView text)
{
    return std::any_of(text.begin(), text.end(), isSeparator);
}

/// The end of the quoted cell that begins at `start`: the separator behind it, or the end of the text. -1
/// when the quotes there are but a part of the cell.
qsizetype endOfQuoted(QStringView text, qsizetype start)
{
    if (start >= text.size() || text[start] != Quote)
        return -1;
    qsizetype i = start + 1;
    for (; i < text.size(); ++i) {
        if (text[i] != Quote)
            continue;
        if (i + 1 == text.size() || text[i + 1] != Quote)
            break;
        ++i;
    }
    const qsizetype end = i + 1;
    const bool closed = i < text.size() && (end == text.size() || isSeparator(text[end]));
    return closed && hasSeparator(text.sliced(start, end - start)) ? end : -1;
}

} // namespace

DvTableClipboard::DvTableClipboard(DvMFieldWidget* owner, QTableWidget* table)
    : m_owner(owner)
    , m_table(table)
{
}

template <typename Work>
bool DvTableClipboard::forEach(int count, const QString& label, Work work) const
{
    QProgressDialog progress(label, tr("Cancel"), 0, count, m_table->window());
    progress.setWindowModality(Qt::WindowModal);
    const QPointer<QTableWidget> table = m_table;
    const SoMField* field = m_owner->getField();
    for (int i = 0; i < count; ++i) {
        if (i % 256 == 255) {
            // The application lives on meanwhile, and may take the field away.
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
            if (hasSeparator(cell))
                cell = Quote + cell.replace(Quote, QStringLiteral("\"\"")) + Quote;
            text += cell + (column + 1 < m_table->columnCount() ? u'\t' : u'\n');
        }
    });
    if (!done)
        return;
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
    {
        const KlvEditScope scope(field, first, rows, tr("Paste into %1"));
        forEach(rows, tr("Pasting…"), [&](int i) {
            const QStringList& line = fills ? lines.first() : lines.at(i);
            for (int column = 0; column < std::min<int>(line.size(), m_table->columnCount()); ++column)
                m_owner->set1Value(first + i, column, line.at(column));
        });
    }
    m_owner->refresh();
}

QList<QStringList> DvTableClipboard::split(const QString& text)
{
    QString plain = text;
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    QList<QStringList> lines;
    QStringList line;
    for (qsizetype start = 0; start < plain.size();) {
        const qsizetype quoted = endOfQuoted(plain, start);
        const auto separator = std::find_if(plain.cbegin() + start, plain.cend(), isSeparator);
        const qsizetype end = quoted >= 0 ? quoted : separator - plain.cbegin();
        if (quoted >= 0)
            line += plain.sliced(start + 1, quoted - start - 2).replace(QLatin1String("\"\""), Quote);
        else
            line += plain.sliced(start, end - start);
        if (end < plain.size() && plain[end] == u'\t') {
            if (end + 1 == plain.size())
                line += QString();
        } else {
            lines += line;
            line.clear();
        }
        start = end + 1;
    }
    if (!line.isEmpty())
        lines += line;
    return lines;
}
