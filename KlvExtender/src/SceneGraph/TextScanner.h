#pragma once

#include <string_view>

/// Walks through the text form of a field: blanks and comments (from `#` to the end of the line) separate
/// words and the marks `[ ] ( ) , |`. The text must outlive the scanner.
class TextScanner
{
public:
    explicit TextScanner(std::string_view text)
        : m_rest(text)
    {
    }

    /// True when nothing but blanks and comments is left.
    bool atEnd();
    /// Passes over a mark if it comes next.
    bool take(char mark);
    /// The next word, up to a blank, a comment or a mark; empty when there is none.
    std::string_view takeWord();
    /// What was not passed over yet.
    std::string_view rest() const { return m_rest; }

    /// Reads `[ a, b, c ]` or one element without brackets to the end of the text; commas may be left out,
    /// one may stand before the closing bracket. `readElement` is called once for each element; false when it
    /// was or when the text is of another form.
    template <class Reader>
    bool readList(Reader readElement);

private:
    void skipBlanks();

    std::string_view m_rest;
};

template <class Reader>
bool TextScanner::readList(Reader readElement)
{
    if (!take('['))
        return readElement() && atEnd();
    while (!take(']')) {
        if (!readElement())
            return false;
        take(',');
    }
    return atEnd();
}
