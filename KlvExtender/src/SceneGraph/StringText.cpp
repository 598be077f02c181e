#include "StringText.h"

#include "TextScanner.h"

namespace {

using StringText::Backslash;

constexpr std::size_t Nowhere = std::string_view::npos;
constexpr std::string_view Blanks = " \t\n\v\f\r";

/// True when the quote has a mark before it, in a string whose content starts at `start`.
bool isMarked(std::string_view text, std::size_t start, std::size_t quote, Backslash backslash)
{
    std::size_t first = quote;
    while (first > start && text[first - 1] == '\\')
        --first;
    const std::size_t backslashes = quote - first;
    return backslash == Backslash::Marked ? backslashes % 2 == 1 : backslashes > 0;
}

/// What stands between the quotes, without the marks.
std::string unmarked(std::string_view content, Backslash backslash)
{
    std::string string;
    string.reserve(content.size());
    for (std::size_t i = 0; i < content.size(); ++i) {
        const char next = i + 1 < content.size() ? content[i + 1] : '\0';
        if (content[i] == '\\' && (next == '"' || (next == '\\' && backslash == Backslash::Marked)))
            ++i;
        string += content[i];
    }
    return string;
}

/// Reads the strings of a list, after its opening bracket.
///
/// A quote with a mark before it is at first taken for the end of a string wherever the text goes on as it
/// does between strings. Where that leads nowhere, it is part of the string after all.
class ListReader
{
public:
    ListReader(std::string_view text, Backslash backslash, std::vector<std::string>& strings)
        : m_text(text)
        , m_backslash(backslash)
        , m_strings(strings)
        , m_ended(text.size())
    {
    }

    bool read()
    {
        bool understood = readOn(0, Nowhere);
        while (!understood && !m_doubtful.empty()) {
            const Ending ending = m_doubtful.back();
            m_doubtful.pop_back();
            m_strings.resize(ending.count);
            understood = readOn(ending.quote + 1, ending.start);
        }
        return understood;
    }

private:
    struct Ending
    {
        std::size_t quote; ///< the quote that was taken for the end
        std::size_t start; ///< where the content of the string starts
        std::size_t count; ///< strings before it
    };

    /// Reads to the end of the text from `pos`, inside the string that starts at `start` or between two
    /// strings.
    bool readOn(std::size_t pos, std::size_t start)
    {
        for (;;) {
            if (start == Nowhere) {
                TextScanner scanner(m_text.substr(pos));
                if (scanner.take(']'))
                    return scanner.atEnd();
                const std::string_view word = scanner.takeWord();
                pos = static_cast<std::size_t>(word.data() - m_text.data());
                if (word.starts_with('"')) {
                    start = ++pos;
                    continue;
                }
                if (word.empty() || word.find('"') != Nowhere)
                    return false;
                m_strings.emplace_back(word);
                pos = afterComma(pos + word.size());
            } else {
                const std::size_t quote = m_text.find('"', pos);
                if (quote == Nowhere)
                    return false;
                pos = quote + 1;
                const bool marked = isMarked(m_text, start, quote, m_backslash);
                if (marked && (m_backslash == Backslash::Marked || m_ended[quote] || !isBetween(pos)))
                    continue;
                if (m_ended[quote] || !isSeparated(pos))
                    return false;
                m_ended[quote] = true;
                if (marked)
                    m_doubtful.push_back({quote, start, m_strings.size()});
                m_strings.push_back(unmarked(m_text.substr(start, quote - start), m_backslash));
                start = Nowhere;
                pos = afterComma(pos);
            }
        }
    }

    bool isSeparated(std::size_t pos) const { return m_text.find_first_of(" \t\n\v\f\r,]#", pos) == pos; }

    std::size_t afterComma(std::size_t pos) const
    {
        TextScanner scanner(m_text.substr(pos));
        scanner.take(',');
        return m_text.size() - scanner.rest().size();
    }

    /// True when another string or the end of the list follows.
    bool isBetween(std::size_t pos) const
    {
        // No field prints comments, but a string may hold what looks like one.
        const std::size_t next = m_text.find_first_not_of(" \t\n\v\f\r,", pos);
        if (next != Nowhere && m_text[next] == '#')
            return false;
        TextScanner scanner(m_text.substr(pos));
        if (scanner.take(']'))
            return scanner.atEnd();
        return scanner.take(',') && (scanner.take(']') || scanner.rest().starts_with('"'));
    }

    std::string_view m_text;
    Backslash m_backslash;
    std::vector<std::string>& m_strings;
    std::vector<bool> m_ended; ///< quotes that were taken for an end before: doing it again changes nothing
    std::vector<Ending> m_doubtful; ///< ends of the reading in hand that can also be read as content
};

} // namespace

bool StringText::readString(std::string_view text, Backslash backslash, std::string& string)
{
    TextScanner scanner(text);
    if (scanner.atEnd())
        return false;
    text = scanner.rest();
    if (!text.starts_with('"')) {
        const std::string_view word = text.substr(0, text.find_first_of(Blanks));
        string = word;
        return TextScanner(text.substr(word.size())).atEnd();
    }
    const std::size_t last = text.rfind('"');
    for (std::size_t quote = text.find('"', 1); quote < last; quote = text.find('"', quote + 1))
        if (!isMarked(text, 1, quote, backslash))
            return false;
    if (last == 0 || !TextScanner(text.substr(last + 1)).atEnd())
        return false;
    string = unmarked(text.substr(1, last - 1), backslash);
    return true;
}

bool StringText::readStrings(std::string_view text, Backslash backslash, std::vector<std::string>& strings)
{
    TextScanner scanner(text);
    if (scanner.take('['))
        return ListReader(scanner.rest(), backslash, strings).read();
    return readString(text, backslash, strings.emplace_back());
}
