#include "Models/SceneSearch.h"

#include "Models/SceneChildren.h"

std::optional<QList<int>> SceneSearch::find(SoNode* root, const std::function<bool(SoNode*)>& wanted)
{
    SceneWalk walk(root, m_visits);
    m_exhausted = false;
    qsizetype visited = 0;
    while (SoNode* node = walk.next()) {
        m_exhausted = visited++ == m_limit;
        if (m_exhausted)
            break;
        if (wanted(node))
            return walk.path();
    }
    return std::nullopt;
}

std::optional<QList<int>> SceneSearch::findNear(SoNode* root, const SoNode* wanted, const QList<int>& way)
{
    std::vector<const SoNode*> nodes{root};
    for (qsizetype i = 0; i < way.size() && nodes.back(); ++i)
        nodes.push_back(SceneChildren::at(nodes.back(), way.at(i)));
    if (!nodes.back())
        nodes.pop_back();
    m_exhausted = false;
    for (qsizetype level = std::ssize(nodes); level-- > 0;) {
        const SceneChildren children(nodes[level]);
        for (int child = 0; child < children.count(); ++child) {
            if (children[child] == wanted)
                return way.first(level) << child;
        }
    }
    return find(root, [wanted](const SoNode* node) { return node == wanted; });
}
