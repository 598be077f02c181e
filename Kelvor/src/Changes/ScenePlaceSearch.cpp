#include "Changes/ScenePlaceSearch.h"

#include <Inventor/nodes/SoNode.h>

#include <QElapsedTimer>

ScenePlaceSearch::ScenePlaceSearch(SoNode* root, const QSet<SoFieldContainer*>& wanted)
    : m_root(root)
    , m_walk(root, SceneWalk::Visits::EachNode)
{
    for (SoFieldContainer* container : wanted) {
        m_places.insert(container, ScenePlace(container));
        if (container->isOfType(SoNode::getClassTypeId()))
            m_missing.insert(container);
    }
}

bool ScenePlaceSearch::run(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    m_walk.resume();
    while (!m_missing.isEmpty()) {
        SoNode* node = m_walk.next();
        if (!node)
            break;
        if (m_missing.remove(node))
            m_places.find(node)->setFound(static_cast<SoNode*>(m_root.get()), m_walk.path());
        if (!m_missing.isEmpty() && time.hasExpired(milliseconds)) {
            m_walk.pause();
            return false;
        }
    }
    for (SoFieldContainer* container : std::exchange(m_missing, {}))
        m_places.find(container)->setGone();
    return true;
}

ScenePlaceSearch::Places ScenePlaceSearch::findAll(SoNode* root, const QSet<SoFieldContainer*>& wanted)
{
    ScenePlaceSearch search(root, wanted);
    search.run(-1);
    return search.m_places;
}
