#pragma once

#include "Search/TreeSearch.h"

#include <optional>

/// A search and the way through its matches: which one to show, from where to go on, when to look again.
///
/// Matches that are no longer where they were found are passed over. Behind the last one the way begins anew
/// with the first, and before the first one with the last; so does the search if the graph may have changed
/// meanwhile.
class MatchSteps : public QObject
{
    Q_OBJECT

public:
    explicit MatchSteps(QObject* parent = nullptr);

    /// Looks for something below a node, which the caller keeps alive until another is searched; for an empty
    /// query there is nothing. With `choose` the first match is chosen once it is found.
    void start(SoNode* root, const SearchQuery& query, bool choose);
    /// To the next match (1) or to the one before (-1), which may be chosen later, when it is found. Starts
    /// anew when there is none.
    void step(int direction);

    /// The occurrence from which steps are counted, if there is one.
    void setPosition(const std::optional<QList<int>>& path) { m_position = path; }
    /// The place of that occurrence among the matches, from 0; no value when it is none of them.
    std::optional<std::size_t> current() const;
    /// The graph has changed: there may be other matches.
    void outdate() { m_outdated = true; }

    TreeSearch& search() { return m_search; }
    const TreeSearch& search() const { return m_search; }

Q_SIGNALS:
    /// The match at the end of these child indices is to be shown.
    void chosen(const QList<int>& path);
    /// As `TreeSearch::progressed()`, after `chosen()`.
    void progressed();

private:
    void followSearch();
    void choose(std::size_t match);

    TreeSearch m_search;
    SearchQuery m_query;
    SoNode* m_root = nullptr;
    std::optional<QList<int>> m_position;
    std::optional<std::size_t> m_awaited; // the match to choose once it is found
    bool m_lastAwaited = false;           // the last match is to be chosen once the search rests
    bool m_outdated = false;
};
