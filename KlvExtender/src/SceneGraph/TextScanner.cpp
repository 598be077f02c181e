#include "TextScanner.h"

#include <algorithm>

namespace {

constexpr std::string_view Blanks = " \t\n\v\f\r";
constexpr std::string_view WordEnds = " \t\n\v\f\r#[](),|";

} // namespace

bool TextScanner::atEnd()
{
    skipBlanks();
    return m_rest.empty();
}

bool TextScanner::take(char mark)
{
    skipBlanks();
    if (!m_rest.starts_with(mark))
        return false;
    m_rest.remove_prefix(1);
    return true;
}

std::string_view TextScanner::takeWord()
{
    skipBlanks();
    const std::string_view word = m_rest.substr(0, m_rest.find_first_of(WordEnds));
    m_rest.remove_prefix(word.size());
    return word;
}

void TextScanner::skipBlanks()
{
    for (;;) {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(Blanks), m_rest.size()));
        if (!m_rest.starts_with('#'))
            return;
        m_rest.remove_prefix(std::min(m_rest.find_first_of("\r\n"), m_rest.size()));
    }
}
