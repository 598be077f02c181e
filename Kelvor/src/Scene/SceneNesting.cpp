#include "Scene/SceneNesting.h"

#include "Models/SceneChildren.h"

#include <Inventor/nodes/SoNode.h>

#include <unordered_set>
#include <vector>

namespace {

constexpr int deepest = 5000;

} // namespace

SoNode* SceneNesting::endless(SoNode* root)
{
    struct Level
    {
        SoNode* node;
        SceneChildren children;
        int next = 0;
    };
    std::vector<Level> path;
    std::unordered_set<const SoNode*> open;
    std::unordered_set<const SoNode*> done;
    const auto enter = [&](SoNode* node) {
        path.push_back({node, SceneChildren(node)});
        open.insert(node);
    };
    enter(root);
    while (!path.empty()) {
        Level& level = path.back();
        if (level.next == level.children.count()) {
            done.insert(level.node);
            open.erase(level.node);
            path.pop_back();
            continue;
        }
        SoNode* child = level.children[level.next++];
        // Leaves are most of a scene, and cannot hold anything.
        if (!child || !SceneChildren::arePossible(child) || done.count(child))
            continue;
        if (open.count(child) || int(path.size()) >= deepest)
            return level.node;
        enter(child);
    }
    return nullptr;
}
