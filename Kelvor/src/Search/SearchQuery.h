#pragma once

#include "Search/NodeCondition.h"

#include <QCoreApplication>

#include <memory>
#include <vector>

class SoNode;

/// What a search line asks for: terms, all of which must hold for a node.
///
/// | term | holds for nodes |
/// |---|---|
/// | `gold` | whose name or type contains it, or that have a field called so |
/// | `name:x`, `type:x`, `field:x`, `value:x` | see `NodeConditions` |
/// | `transparency>0.5` | whose field compares so (`>`, `>=`, `<`, `<=`, `=`, `!=`), see `FieldComparison` |
/// | `is:x` | in a state of `NodeConditions::states()` |
///
/// `-` before a term turns it round; quotes keep blanks and signs together.
class SearchQuery
{
    Q_DECLARE_TR_FUNCTIONS(SearchQuery)

public:
    /// Asks for nothing.
    SearchQuery() = default;
    explicit SearchQuery(const QString& line);

    /// One sentence when something in the line is not understood, else empty.
    QString error() const { return m_error; }
    /// True when there is nothing to look for: no term, or an error.
    bool isEmpty() const { return m_terms.empty() || !m_error.isEmpty(); }
    bool matches(SoNode* node) const;

    /// The set to fill with the nodes that have several places before `matches()` is asked; null when that
    /// makes no difference.
    SharedNodes* sharedNodes() const { return m_shared.get(); }

    /// The syntax for people, as rich text.
    static QString help();

private:
    struct Word;
    struct Term
    {
        NodeCondition condition;
        bool negated;
    };

    static std::vector<Word> split(const QString& line);
    NodeCondition condition(const Word& word);
    NodeCondition prefixed(const Word& word);

    std::vector<Term> m_terms;
    std::shared_ptr<SharedNodes> m_shared;
    QString m_error;
};
