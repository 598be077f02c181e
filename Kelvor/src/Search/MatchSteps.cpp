#include "Search/MatchSteps.h"

#include <utility>

using State = TreeSearch::State;

MatchSteps::MatchSteps(QObject* parent)
    : QObject(parent)
{
    connect(&m_search, &TreeSearch::progressed, this, &MatchSteps::followSearch);
}

void MatchSteps::start(SoNode* root, const SearchQuery& query, bool choose)
{
    m_root = root;
    m_query = query;
    m_outdated = false;
    m_awaited.reset();
    m_lastAwaited = false;
    if (query.isEmpty()) {
        m_search.clear();
        return;
    }
    if (choose)
        m_awaited = 0;
    m_search.start(root, query);
}

void MatchSteps::followSearch()
{
    const std::size_t count = m_search.matches().size();
    const State state = m_search.state();
    const bool over = state == State::Finished || state == State::Cancelled;
    if (state != State::Running && std::exchange(m_lastAwaited, false) && count > 0)
        choose(count - 1);
    else if (m_awaited && count > *m_awaited)
        choose(*std::exchange(m_awaited, std::nullopt));
    else if (m_awaited && over && std::exchange(m_awaited, std::nullopt) && count > 0)
        step(1); // round to the first one
    Q_EMIT progressed();
}

void MatchSteps::step(int direction)
{
    m_awaited.reset();
    m_lastAwaited = false;
    const auto& matches = m_search.matches();
    const auto count = static_cast<std::ptrdiff_t>(matches.size());
    const bool more = m_search.state() == State::Running || m_search.state() == State::Paused;
    std::ptrdiff_t next = direction > 0 ? 0 : count - 1;
    if (m_position)
        next = std::ptrdiff_t(m_search.place(*m_position)) + (direction < 0 ? -1 : current().has_value());
    for (std::ptrdiff_t tried = 0; tried < count; ++tried, next += direction) {
        if (next >= count ? more || m_outdated : next < 0 && m_outdated)
            break;
        next = (next + count) % count;
        if (TreeSearch::isThere(matches[next], m_root)) {
            choose(static_cast<std::size_t>(next));
            return;
        }
    }
    const bool goesOn = more && (direction > 0 || !m_outdated);
    if (goesOn)
        m_search.resume();
    else
        start(m_root, m_query, false);
    if (direction > 0)
        m_awaited = matches.size();
    else
        m_lastAwaited = true;
    if (!goesOn)
        Q_EMIT progressed();
}

std::optional<std::size_t> MatchSteps::current() const
{
    const auto& matches = m_search.matches();
    const std::size_t place = m_position ? m_search.place(*m_position) : matches.size();
    return place < matches.size() && matches[place].path == *m_position ? std::optional(place) : std::nullopt;
}

void MatchSteps::choose(std::size_t match)
{
    // A copy: who hears of it may start another search.
    const QList<int> path = m_search.matches()[match].path;
    Q_EMIT chosen(path);
}
