#include "Models/SceneSearch.h"

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
