#include "Models/SceneTreeGroup.h"

#include <algorithm>

void SceneTreeGroup::setExpandable(int row, bool expandable)
{
    m_flags[row] = static_cast<std::uint8_t>((m_flags[row] & ~Expandable) | (expandable ? Expandable : 0));
}

std::vector<std::unique_ptr<SceneTreeGroup>>::const_iterator SceneTreeGroup::groupFrom(int row) const
{
    return std::lower_bound(m_groups.begin(), m_groups.end(), row,
                            [](const auto& group, int wanted) { return group->m_row < wanted; });
}

SceneTreeGroup* SceneTreeGroup::groupAt(int row) const
{
    const auto found = groupFrom(row);
    return found != m_groups.end() && (*found)->m_row == row ? found->get() : nullptr;
}

SceneTreeGroup* SceneTreeGroup::addGroup(int row)
{
    return m_groups.insert(groupFrom(row), std::make_unique<SceneTreeGroup>(this, row))->get();
}

void SceneTreeGroup::insertRows(int first, const Row* begin, const Row* end)
{
    const auto count = end - begin;
    m_nodes.insert(m_nodes.begin() + first, count, nullptr);
    m_flags.insert(m_flags.begin() + first, count, 0);
    for (auto row = first; begin != end; ++begin, ++row) {
        m_nodes[row] = begin->node;
        m_flags[row] = begin->flags;
    }
    for (auto group = groupFrom(first); group != m_groups.end(); ++group)
        (*group)->m_row += static_cast<int>(count);
}

void SceneTreeGroup::removeRows(int first, int count)
{
    m_nodes.erase(m_nodes.begin() + first, m_nodes.begin() + first + count);
    m_flags.erase(m_flags.begin() + first, m_flags.begin() + first + count);
    const auto after = m_groups.erase(groupFrom(first), groupFrom(first + count));
    for (auto group = after; group != m_groups.end(); ++group)
        (*group)->m_row -= count;
}
