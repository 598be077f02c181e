#include "Search/TreeSearch.h"

#include "Models/SceneChildren.h"

#include <Inventor/nodes/SoNode.h>

#include <QElapsedTimer>

#include <algorithm>

TreeSearch::TreeSearch(QObject* parent)
    : QObject(parent)
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &TreeSearch::walkSlice);
}

TreeSearch::~TreeSearch() = default;

void TreeSearch::start(SoNode* root, const SearchQuery& query)
{
    clear();
    m_root = KlvContainerRef(root);
    m_query = query;
    m_counting = query.sharedNodes();
    m_walk.emplace(root, SceneWalk::Visits::EachNode);
    m_limit = MatchesAtOnce;
    m_state = State::Running;
    m_timer.start();
}

void TreeSearch::cancel()
{
    if (m_state != State::Running && m_state != State::Paused)
        return;
    end(State::Cancelled);
    Q_EMIT progressed();
}

void TreeSearch::resume()
{
    if (m_state != State::Paused)
        return;
    m_limit += MatchesAtOnce;
    m_state = State::Running;
    m_timer.start();
}

void TreeSearch::clear()
{
    end(State::Idle);
    m_matches.clear();
    m_nodes.clear();
    m_progress = 0;
}

void TreeSearch::end(State state)
{
    m_timer.stop();
    m_state = state;
    m_walk.reset();
    m_met.clear();
    m_root = KlvContainerRef();
}

std::size_t TreeSearch::place(const QList<int>& path) const
{
    const auto precedes = [](const Match& match, const QList<int>& other) { return match.path < other; };
    return std::lower_bound(m_matches.begin(), m_matches.end(), path, precedes) - m_matches.begin();
}

bool TreeSearch::isThere(const Match& match, const SoNode* root)
{
    const SoNode* node = root;
    for (qsizetype i = 0; node && i < match.path.size(); ++i)
        node = SceneChildren::at(node, match.path.at(i));
    return node && node == match.node;
}

void TreeSearch::walkSlice()
{
    QElapsedTimer time;
    time.start();
    m_walk->resume();
    bool more = true;
    while (more && m_matches.size() < m_limit && !time.hasExpired(SliceTime))
        more = walkOne();
    if (more) {
        m_walk->pause();
        const double share = m_query.sharedNodes() ? 0.5 : 1; // of each walk
        m_progress = std::max(m_progress, (m_counting ? 0 : 1 - share) + share * m_walk->progress());
        if (m_matches.size() >= m_limit) {
            m_timer.stop();
            m_state = State::Paused;
        }
    } else {
        m_progress = 1;
        end(State::Finished);
    }
    Q_EMIT progressed();
}

/// False when there is no more.
bool TreeSearch::walkOne()
{
    SoNode* node = m_walk->next();
    if (!node && m_counting) {
        m_counting = false;
        m_met.clear();
        m_walk.emplace(static_cast<SoNode*>(m_root.get()), SceneWalk::Visits::EachNode);
        return true;
    }
    if (!node)
        return false;
    if (m_counting) {
        // Somebody holds each place of a node, so most need not be remembered.
        if (node->getRefCount() > 1 && !m_met.insert(node).second)
            m_query.sharedNodes()->insert(node);
    } else if (m_query.matches(node)) {
        m_matches.push_back({m_walk->path(), node});
        m_nodes.insert(node);
    }
    return true;
}
