#include "Models/SceneWalk.h"

#include <Inventor/nodes/SoNode.h>

#include <algorithm>
#include <utility>

SceneWalk::SceneWalk(SoNode* root, Visits visits)
    : m_visits(visits)
    , m_root(root)
{
}

SoNode* SceneWalk::next()
{
    if (m_root)
        return m_entrance = std::exchange(m_root, nullptr);
    enter();
    while (!m_levels.empty()) {
        Level& level = m_levels.back();
        if (level.next >= level.children.count()) {
            if (m_visits == Visits::EachOccurrence)
                m_closed.erase(level.node);
            m_levels.pop_back();
        } else if (SoNode* child = level.children[level.next++]) {
            level.met = child;
            return m_entrance = child;
        }
    }
    return nullptr;
}

void SceneWalk::enter()
{
    SoNode* node = std::exchange(m_entrance, nullptr);
    if (!node)
        return;
    SceneChildren children(node);
    if (children.count() > 0 && m_closed.insert(node).second)
        m_levels.push_back({.node = node, .children = std::move(children), .reference = {}});
}

QList<int> SceneWalk::path() const
{
    QList<int> indices;
    indices.reserve(static_cast<qsizetype>(m_levels.size()));
    for (const Level& level : m_levels)
        indices.append(level.next - 1);
    return indices;
}

double SceneWalk::progress() const
{
    constexpr double negligible = 1e-6;
    if (m_levels.empty())
        return m_root || m_entrance ? 0 : 1;
    double behind = 0;
    double share = 1;
    for (const Level& level : m_levels) {
        share /= std::max(1, level.children.count());
        behind += share * std::max(0, level.next - 1);
        if (share < negligible)
            break;
    }
    return behind;
}

void SceneWalk::pause()
{
    enter();
    for (auto level = m_levels.rbegin(); level != m_levels.rend() && !level->reference.get(); ++level)
        level->reference = KlvContainerRef(level->node);
}

void SceneWalk::resume()
{
    for (std::size_t i = 0; i < m_levels.size(); ++i) {
        Level& level = m_levels[i];
        level.children = SceneChildren(level.node);
        const int count = level.children.count();
        if (level.next == 0 || (level.next <= count && level.children[level.next - 1] == level.met))
            continue;
        int place = 0;
        while (place < count && level.children[place] != level.met)
            ++place;
        if (place < count) {
            level.next = place + 1;
            continue;
        }
        // The child is gone, and its place has another one, or none.
        level.next = std::min(level.next - 1, count);
        level.met = level.next > 0 ? level.children[level.next - 1] : nullptr;
        while (m_levels.size() > i + 1) {
            if (m_visits == Visits::EachOccurrence)
                m_closed.erase(m_levels.back().node);
            m_levels.pop_back();
        }
    }
}
