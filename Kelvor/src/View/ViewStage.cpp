#include "ViewStage.h"

#include <Inventor/SoFullPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoSeparator.h>

ViewStage::ViewStage(SoNode* camera)
    : m_node(new SoSeparator)
    , m_headlight(new SoDirectionalLight)
{
    m_node->ref();
    m_node->renderCaching = SoSeparator::OFF;
    m_node->boundingBoxCaching = SoSeparator::OFF;
    m_node->renderCulling = SoSeparator::OFF;
    // A light above all cameras stands where the eye is, whichever camera is in use.
    m_headlight->direction = SbVec3f(0.0f, 0.0f, -1.0f);
    m_node->addChild(m_headlight);
    m_node->addChild(camera);
}

ViewStage::~ViewStage()
{
    m_counted = KlvContainerRef();
    m_node->unref();
}

SoNode* ViewStage::node() const
{
    return m_node;
}

void ViewStage::setRoot(SoNode* root)
{
    if (root)
        m_node->addChild(root); // first, should it be a part of the old one
    m_counted = KlvContainerRef::countingOther(root);
    if (m_root)
        m_node->removeChild(m_root);
    m_root = root;
}

void ViewStage::setHeadlight(bool on)
{
    m_headlight->on = on;
}

bool ViewStage::hasOwnLight() const
{
    if (!m_root)
        return false;
    const SbBool searchedKits = SoBaseKit::isSearchingChildren();
    SoBaseKit::setSearchingChildren(TRUE);
    SoSearchAction search;
    search.setType(SoLight::getClassTypeId());
    search.setInterest(SoSearchAction::ALL);
    search.apply(m_root);
    SoBaseKit::setSearchingChildren(searchedKits);
    const SoPathList& lights = search.getPaths();
    for (int i = 0; i < lights.getLength(); ++i) {
        const auto* const path = static_cast<const SoFullPath*>(lights[i]);
        if (static_cast<const SoLight*>(path->getTail())->on.getValue())
            return true;
    }
    return false;
}

SoPath* ViewStage::newPathToRoot() const
{
    auto* const path = new SoPath(m_node);
    path->append(m_node->getNumChildren() - 1);
    return path;
}

QList<int> ViewStage::childPath(const SoPath& path)
{
    const auto& full = static_cast<const SoFullPath&>(path);
    QList<int> indices;
    for (int i = 2; i < full.getLength(); ++i) // after the stage and the root
        indices << full.getIndex(i);
    return indices;
}
