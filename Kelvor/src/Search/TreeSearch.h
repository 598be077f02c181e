#pragma once

#include "Models/SceneWalk.h"
#include "Search/SearchQuery.h"

#include <QObject>
#include <QTimer>

#include <optional>
#include <unordered_set>
#include <vector>

/// Looks for the nodes of a graph that a query asks for, some milliseconds at a time in turns of the event
/// loop, so that the window stays fluid however large the graph is.
///
/// Occurrences are found in depth-first order; what is below a shared node is looked at once only. The graph
/// may change between two turns. User-interface thread only.
class TreeSearch : public QObject
{
    Q_OBJECT

public:
    /// One occurrence as it was when it was found.
    struct Match
    {
        QList<int> path;    ///< the child indices that lead to it from the root
        const SoNode* node; ///< compared, never followed: it may be gone
    };
    enum class State
    {
        Idle,     ///< nothing was looked for yet
        Running,  ///< `progressed()` will come
        Paused,   ///< there are enough matches for now, see `resume()`
        Finished, ///< the whole graph was looked at
        Cancelled
    };

    /// The search pauses when it has found so many more matches.
    static constexpr std::size_t MatchesAtOnce = 10000;
    /// Milliseconds that it takes of a turn of the event loop.
    static constexpr int SliceTime = 5;

    explicit TreeSearch(QObject* parent = nullptr);
    ~TreeSearch() override;

    /// Starts anew below a node, which is referenced until the search has ended; forgets all matches. A null
    /// root has none.
    void start(SoNode* root, const SearchQuery& query);
    /// Ends a search; what was found stays.
    void cancel();
    /// Goes on with a search that has paused; otherwise does nothing.
    void resume();
    /// Ends a search and forgets all matches.
    void clear();

    State state() const { return m_state; }
    /// From 0 to 1; never goes back during a search.
    double progress() const { return m_progress; }
    const std::vector<Match>& matches() const { return m_matches; }
    /// The place among the matches of the first one that is not before an occurrence.
    std::size_t place(const QList<int>& path) const;
    /// True when a match is where it was found below `root`.
    static bool isThere(const Match& match, const SoNode* root);
    bool isMatch(const SoNode* node) const { return m_nodes.contains(node); }

Q_SIGNALS:
    /// There are more matches, or the progress or the state has changed. At most once a turn.
    void progressed();

private:
    void walkSlice();
    bool walkOne();
    void end(State state);

    QTimer m_timer;
    KlvContainerRef m_root;
    SearchQuery m_query;
    std::optional<SceneWalk> m_walk; // until the search has ended
    bool m_counting = false;         // the first of two walks, which finds the shared nodes
    std::unordered_set<const SoNode*> m_met;
    std::vector<Match> m_matches;
    std::unordered_set<const SoNode*> m_nodes; // of the matches
    std::size_t m_limit = 0;
    double m_progress = 0;
    State m_state = State::Idle;
};
