#include "Search/SearchQuery.h"

#include "Search/FieldComparison.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

/// `-key>=value`; a bare word is a key alone.
struct SearchQuery::Word
{
    QString text; ///< as it was typed
    QString key;
    QString sign;
    QString value;
    bool negated = false;
    bool isEmpty = false; ///< quotes with nothing between them, or a single dash
};

namespace {

const struct
{
    const char* sign;
    int relations;
} comparisons[] = {
    {">", FieldComparison::Greater},   {">=", FieldComparison::Greater | FieldComparison::Equal},
    {"<", FieldComparison::Less},      {"<=", FieldComparison::Less | FieldComparison::Equal},
    {"=", FieldComparison::Equal},     {"==", FieldComparison::Equal},
    {"!=", FieldComparison::NotEqual},
};

const struct
{
    const char* key;
    NodeCondition (*condition)(const QString&);
} prefixes[] = {
    {"name", NodeConditions::name},
    {"type", NodeConditions::type},
    {"field", NodeConditions::field},
    {"value", NodeConditions::value},
};

bool isSame(const QString& one, const char* other)
{
    return one.compare(QLatin1String(other), Qt::CaseInsensitive) == 0;
}

/// The sign that begins at a place of the line, the longest one; empty when there is none.
QString signAt(const QString& line, qsizetype place)
{
    static const QRegularExpression sign(QStringLiteral("[<>=!]=|[<>=:]"));
    return sign
        .match(line, place, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption)
        .captured();
}

} // namespace

std::vector<SearchQuery::Word> SearchQuery::split(const QString& line)
{
    std::vector<Word> words;
    for (qsizetype i = 0; i < line.size();) {
        if (line.at(i).isSpace()) {
            ++i;
            continue;
        }
        const qsizetype begin = i;
        Word word;
        word.negated = line.at(i) == QLatin1Char('-');
        i += word.negated;
        // A quote that is still open holds the rest of the line: most likely it is being typed.
        for (bool quoted = false; i < line.size() && (quoted || !line.at(i).isSpace()); ++i) {
            if (line.at(i) == QLatin1Char('"')) {
                quoted = !quoted;
                continue;
            }
            const QString sign = quoted || !word.sign.isEmpty() ? QString() : signAt(line, i);
            if (!sign.isEmpty()) {
                word.sign = sign;
                i += sign.size() - 1;
            } else {
                (word.sign.isEmpty() ? word.key : word.value) += line.at(i);
            }
        }
        word.text = line.mid(begin, i - begin);
        word.isEmpty = word.key.isEmpty() && word.sign.isEmpty();
        words.push_back(std::move(word));
    }
    return words;
}

SearchQuery::SearchQuery(const QString& line)
{
    for (const Word& word : split(line)) {
        m_terms.push_back({condition(word), word.negated});
        if (!m_error.isEmpty())
            return;
    }
}

NodeCondition SearchQuery::condition(const Word& word)
{
    if (word.isEmpty)
        m_error = tr("“%1” needs a word.").arg(word.text);
    else if (word.sign.isEmpty())
        return NodeConditions::word(word.key);
    else if (word.key.isEmpty())
        m_error = tr("“%1” needs a name before it, as in transparency>0.5 or type:Material.").arg(word.text);
    else if (word.sign == QLatin1String(":"))
        return prefixed(word);
    else if (word.value.isEmpty() && !word.text.endsWith(QLatin1Char('"')))
        m_error = tr("“%1” needs a value after it.").arg(word.text);
    else if (static const QRegularExpression name(QStringLiteral("^\\w+$")); !name.match(word.key).hasMatch())
        m_error = tr("“%1” cannot be the name of a field; an example is transparency>0.5.").arg(word.key);
    else {
        const auto* sign =
            std::find_if(std::begin(comparisons), std::end(comparisons),
                         [&](const auto& each) { return word.sign == QLatin1String(each.sign); });
        const FieldComparison comparison(sign->relations, word.value);
        if (comparison.isPossible())
            return NodeConditions::comparison(word.key, comparison);
        m_error = tr("“%1” is not a number; texts can be compared with = and != only.").arg(word.value);
    }
    return {};
}

NodeCondition SearchQuery::prefixed(const Word& word)
{
    const bool isState = isSame(word.key, "is");
    const auto* prefix = std::find_if(std::begin(prefixes), std::end(prefixes),
                                      [&](const auto& each) { return isSame(word.key, each.key); });
    if (!isState && prefix == std::end(prefixes)) {
        m_error = tr("“%1:” is not known; there are name:, type:, field:, value: and is:.").arg(word.key);
        return {};
    }
    if (!isState && word.value.isEmpty()) {
        m_error = tr("“%1” needs a word after it.").arg(word.text);
        return {};
    }
    if (!isState)
        return prefix->condition(word.value);
    if (isSame(word.value, "shared") && !m_shared)
        m_shared = std::make_shared<SharedNodes>();
    NodeCondition state = NodeConditions::state(word.value, m_shared.get());
    if (!state)
        m_error = tr("“%1” is not known; there are is:%2.")
                      .arg(word.text, NodeConditions::states().join(QLatin1String(", is:")));
    return state;
}

bool SearchQuery::matches(SoNode* node) const
{
    return !isEmpty() && std::all_of(m_terms.begin(), m_terms.end(), [node](const Term& term) {
        return term.condition(node) != term.negated;
    });
}

QString SearchQuery::help()
{
    const std::pair<const char*, QString> rows[] = {
        {"gold", tr("name or type contains it, or a field is called so")},
        {"name:gold", tr("the name contains it")},
        {"type:Shape", tr("of this type or one derived from it")},
        {"field:diffuseColor", tr("has such a field")},
        {"value:wood", tr("a value that is set contains it")},
        {"transparency&gt;0.5", tr("compares a field: &gt; &gt;= &lt; &lt;= = <nobr>!=</nobr>")},
        {"rotation=\"0 0 1 0.5\"", tr("quotes keep blanks together")},
        {"is:changed", tr("changed since the scene was opened")},
        {"is:set", tr("a field is not at its default")},
        {"is:ignored is:connected", tr("a field is ignored, is connected")},
        {"is:named is:shared", tr("has a name, has several places")},
        {"-type:Group", tr("all but these")},
    };
    QString text = tr("Finds the nodes for which all of the words hold:") + QLatin1String("<table>");
    for (const auto& [example, meaning] : rows)
        text += QStringLiteral("<tr><td><code>%1</code>&nbsp;&nbsp;</td><td>%2</td></tr>")
                    .arg(QLatin1String(example), meaning);
    return text + QLatin1String("</table>");
}
