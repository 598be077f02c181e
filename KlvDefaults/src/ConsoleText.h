#pragma once

#include <QColor>
#include <QObject>
#include <QTextCharFormat>
#include <QTextCursor>

class QTextEdit;

/// Writes coloured lines at the end of a text view and keeps the newest of them.
///
/// What is appended is in the document at once, but the view lays it out later: all that comes in one pass of
/// the event loop is one edit, which ends with the pass or when the view is next painted or used. Laying out
/// each line as it comes would cost twenty times as much.
///
/// The view follows the end as long as it is there; when the user looks at other lines, these stay in place.
class ConsoleText : public QObject
{
    Q_OBJECT

public:
    /// Longer lines are broken: the cost of a line grows with its length, and a stream need not ever end one.
    static constexpr int maximumLineLength = 16'384;

    /// Works on the view, which becomes its parent. The view is made not to wrap its lines: every change of
    /// its width would lay out the whole text.
    explicit ConsoleText(QTextEdit* view);

    /// How many lines are kept, at least 1. Up to a quarter more are there before the oldest are cut.
    int maximumLines() const { return m_maximumLines; }
    void setMaximumLines(int lines);

    /// Appends a paragraph, or several where the text has newlines.
    void appendParagraph(const QString& text, const QColor& color);
    /// Appends text of a stream, a number from 0. Newlines end lines; the text goes on with the stream's last
    /// line if this is not ended and nothing else came after it.
    void appendStreamText(QStringView text, const QColor& color, int stream);
    /// What comes next of the stream begins a line of its own.
    void endLine(int stream);
    /// Removes everything.
    void clear();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr int noStream = -1;

    void beginEdit(const QColor& color);
    void endEdit();
    void beginLine();
    void insert(QStringView text);
    void cut();

    QTextEdit* m_view;
    QTextCursor m_end;
    QTextCharFormat m_format;
    QTextCursor m_shown; ///< the first line in sight, kept in place; null when the view follows the end
    int m_shownTop = 0;
    int m_maximumLines = 1;
    int m_openStream = noStream; ///< whose last line goes on
    int m_lineLength = 0;
    bool m_blank = true; ///< not even an empty line
    bool m_editing = false;
    bool m_following = true;
};
