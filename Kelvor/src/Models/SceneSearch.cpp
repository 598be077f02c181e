#include "Models/SceneSearch.h"

#include "Models/SceneChildren.h"

#include <unordered_set>
#include <vector>

std::optional<QList<int>> SceneSearch::find(SoNode* root, const std::function<bool(SoNode*)>& wanted)
{
    struct Level
    {
        SoNode* node;
        SceneChildren children;
        int next = 0;
    };
    m_exhausted = false;
    if (!root)
        return std::nullopt;
    if (wanted(root))
        return QList<int>();

    std::vector<Level> path;
    path.push_back({root, SceneChildren(root)});
    // The nodes not to enter (again): those on the path, or with one visit a node all that were entered.
    std::unordered_set<const SoNode*> closed{root};
    qsizetype visited = 1;
    while (!path.empty()) {
        Level& level = path.back();
        if (level.next == level.children.count()) {
            if (m_visits == Visits::EachOccurrence)
                closed.erase(level.node);
            path.pop_back();
            continue;
        }
        SoNode* child = level.children[level.next++];
        if (!child)
            continue;
        if (++visited > m_limit) {
            m_exhausted = true;
            break;
        }
        if (wanted(child)) {
            QList<int> indices;
            for (const Level& entered : path)
                indices.append(entered.next - 1);
            return indices;
        }
        SceneChildren children(child);
        if (children.count() > 0 && closed.insert(child).second)
            path.push_back({child, std::move(children)});
    }
    return std::nullopt;
}
