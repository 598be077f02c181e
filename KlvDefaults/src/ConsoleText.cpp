#include "ConsoleText.h"

#include <QEvent>
#include <QScrollBar>
#include <QStringTokenizer>
#include <QTextDocument>
#include <QTextEdit>

#include <algorithm>

namespace {

/// A colour that was chosen for a light background, light enough for the view's own.
QColor legible(const QColor& color, const QPalette& palette)
{
    constexpr int middle = 128;
    constexpr int lightOnDark = 180;
    if (palette.color(QPalette::Base).lightness() >= middle)
        return color;
    return QColor::fromHsl(color.hslHue(), color.hslSaturation(), lightOnDark);
}

/// A line whose newline was the second half of a line end.
QStringView withoutReturn(QStringView line)
{
    return line.endsWith(u'\r') ? line.chopped(1) : line;
}

} // namespace

ConsoleText::ConsoleText(QTextEdit* view)
    : QObject(view)
    , m_view(view)
{
    view->setLineWrapMode(QTextEdit::NoWrap);
    view->setUndoRedoEnabled(false);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    // The document is laid out piecemeal, so the end may move on when no text comes any more.
    QScrollBar* const bar = view->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_following = value == bar->maximum(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar] {
        if (m_following)
            bar->setValue(bar->maximum());
    });
}

void ConsoleText::setMaximumLines(int lines)
{
    m_maximumLines = std::max(lines, 1);
    endEdit();
    cut();
}

void ConsoleText::appendParagraph(const QString& text, const QColor& color)
{
    beginEdit(color);
    for (const QStringView line : QStringView(text).tokenize(u'\n')) {
        beginLine();
        insert(withoutReturn(line));
        cut();
    }
    m_openStream = noStream;
}

void ConsoleText::appendStreamText(QStringView text, const QColor& color, int stream)
{
    beginEdit(color);
    while (!text.isEmpty()) {
        const qsizetype newline = text.indexOf(u'\n');
        if (m_openStream != stream)
            beginLine();
        insert(newline < 0 ? text : withoutReturn(text.first(newline)));
        m_openStream = newline < 0 ? stream : noStream;
        text = text.sliced(newline < 0 ? text.size() : newline + 1);
        cut();
    }
}

void ConsoleText::endLine(int stream)
{
    if (m_openStream == stream)
        m_openStream = noStream;
}

void ConsoleText::clear()
{
    endEdit();
    m_view->clear();
    m_blank = true;
    m_openStream = noStream;
}

bool ConsoleText::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint || event->type() == QEvent::Resize || event->isInputEvent())
        endEdit();
    return QObject::eventFilter(watched, event);
}

void ConsoleText::beginEdit(const QColor& color)
{
    m_format.setForeground(legible(color, m_view->palette()));
    if (m_editing)
        return;
    m_editing = true;
    m_shown = m_following ? QTextCursor() : m_view->cursorForPosition(QPoint());
    if (!m_shown.isNull())
        m_shownTop = m_view->cursorRect(m_shown).top();
    m_end = QTextCursor(m_view->document());
    m_end.movePosition(QTextCursor::End);
    m_end.beginEditBlock();
    QMetaObject::invokeMethod(this, &ConsoleText::endEdit, Qt::QueuedConnection);
}

void ConsoleText::endEdit()
{
    if (!m_editing)
        return;
    m_editing = false;
    m_end.endEditBlock();
    QScrollBar* const bar = m_view->verticalScrollBar();
    if (m_shown.isNull())
        bar->setValue(bar->maximum());
    else
        bar->setValue(bar->value() + m_view->cursorRect(m_shown).top() - m_shownTop);
    m_shown = QTextCursor();
}

void ConsoleText::beginLine()
{
    if (!m_blank)
        m_end.insertBlock(QTextBlockFormat(), m_format);
    m_blank = false;
    m_lineLength = 0;
}

void ConsoleText::insert(QStringView text)
{
    while (m_lineLength + text.size() > maximumLineLength) {
        QStringView first = text.first(maximumLineLength - m_lineLength);
        if (!first.isEmpty() && first.back().isHighSurrogate()) // it and its other half are one character
            first.chop(1);
        m_end.insertText(first.toString(), m_format);
        text = text.sliced(first.size());
        beginLine();
    }
    m_end.insertText(text.toString(), m_format);
    m_lineLength += static_cast<int>(text.size());
}

void ConsoleText::cut()
{
    QTextDocument* const document = m_view->document();
    if (document->blockCount() <= m_maximumLines + m_maximumLines / 4)
        return;
    // Only the document's own limit frees the memory of what it cuts, but as long as it is set, each further
    // line lays out the whole text.
    document->setMaximumBlockCount(m_maximumLines);
    document->setMaximumBlockCount(0);
}
