#pragma once

#include <cstdint>
#include <memory>
#include <vector>

class SoNode;

/// The rows below one occurrence of a node in the scene tree, as far as they were fetched. Only occurrences
/// whose children were asked for have one; a leaf costs its entry in the mirror of its parent.
///
/// The mirror says which nodes the rows stood for when they were last compared with the scene graph. Its
/// pointers are keys and never followed: the nodes may be gone.
class SceneTreeGroup
{
public:
    /// One fetched row.
    struct Row
    {
        const void* node;
        std::uint8_t flags;
    };
    enum Flag : std::uint8_t
    {
        Container = 1, ///< the node is of a kind that can have children
        Expandable = 2 ///< it has some
    };

    SceneTreeGroup(SceneTreeGroup* parent, int row)
        : m_parent(parent)
        , m_row(row)
    {
    }

    /// The group whose row this is, null for the one above the root.
    SceneTreeGroup* parent() const { return m_parent; }
    int row() const { return m_row; }

    int fetched() const { return static_cast<int>(m_nodes.size()); }
    const void* node(int row) const { return m_nodes[row]; }
    bool hasFlag(int row, Flag flag) const { return m_flags[row] & flag; }
    void setExpandable(int row, bool expandable);

    /// How many children the node had when it was last looked at, fetched or not.
    int total() const { return m_total; }
    void setTotal(int total) { m_total = total; }

    /// The group of a row; null when its children were not asked for.
    SceneTreeGroup* groupAt(int row) const;
    SceneTreeGroup* addGroup(int row);
    const std::vector<std::unique_ptr<SceneTreeGroup>>& groups() const { return m_groups; }

    void insertRows(int first, const Row* begin, const Row* end);
    /// Removes rows together with their groups.
    void removeRows(int first, int count);

private:
    std::vector<std::unique_ptr<SceneTreeGroup>>::const_iterator groupFrom(int row) const;

    SceneTreeGroup* m_parent;
    int m_row;
    int m_total = 0;
    std::vector<const void*> m_nodes;
    std::vector<std::uint8_t> m_flags;
    std::vector<std::unique_ptr<SceneTreeGroup>> m_groups; // in the order of their rows
};
