#include "ViewPickAction.h"

#include "CameraRule.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/SoFullPath.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoSubAction.h>
#include <Inventor/elements/SoOverrideElement.h>
#include <Inventor/elements/SoPickStyleElement.h>
#include <Inventor/elements/SoViewingMatrixElement.h>
#include <Inventor/lists/SoPickedPointList.h>
#include <Inventor/nodes/SoAnnotation.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoPickStyle.h>

#include <cmath>

namespace {

bool isInAnnotation(const SoFullPath& path)
{
    for (int i = 0; i < path.getLength(); ++i)
        if (path.getNode(i)->isOfType(SoAnnotation::getClassTypeId()))
            return true;
    return false;
}

} // namespace

SO_ACTION_SOURCE(ViewPickAction);

void ViewPickAction::initClass()
{
    if (getClassTypeId() != SoType::badType())
        return;
    SO_ACTION_INIT_CLASS(ViewPickAction, SoRayPickAction);
    SO_ACTION_ADD_METHOD(SoCamera, passCamera);
    SO_ACTION_ADD_METHOD(SoDrawStyle, passDrawStyle);
    SO_ACTION_ADD_METHOD(SoPickStyle, passPickStyle);
}

ViewPickAction::ViewPickAction(const SbViewportRegion& viewport, const CameraRule& rule)
    : SoRayPickAction(viewport)
    , m_rule(rule)
{
    SO_ACTION_CONSTRUCTOR(ViewPickAction);
}

ViewPickAction::~ViewPickAction() = default;

const SoPickedPoint* ViewPickAction::pick(SoNode* scene, const QPointF& position, float radius)
{
    const int height = getViewportRegion().getWindowSize()[1];
    setPoint(SbVec2s(static_cast<short>(std::floor(position.x())),
                     static_cast<short>(height - 1 - std::floor(position.y()))));
    setRadius(radius);
    setPickAll(TRUE);
    apply(scene);
    // From the nearest on; but what stands in an annotation is drawn over everything else.
    const SoPickedPointList& points = getPickedPointList();
    for (int i = 0; i < points.getLength(); ++i)
        if (isInAnnotation(*static_cast<const SoFullPath*>(points[i]->getPath())))
            return points[i];
    return getPickedPoint();
}

void ViewPickAction::passCamera(SoAction* action, SoNode* node)
{
    auto* const self = static_cast<ViewPickAction*>(action);
    auto* const camera = static_cast<SoCamera*>(node);
    const CameraPlacement* const placement = self->m_rule.placementOf(*camera);
    if (!placement || self->m_rule.looksThroughScene())
        camera->rayPick(self); // a camera may have cropped the viewport
    if (placement) {
        placement->apply(self->getState(), camera);
        SoViewingMatrixElement::set(self->getState(), camera, placement->viewing);
        self->computeWorldSpaceRay();
    }
}

void ViewPickAction::passDrawStyle(SoAction* action, SoNode* node)
{
    const auto& style = *static_cast<const SoDrawStyle*>(node);
    SoState* const state = action->getState();
    if (style.style.isIgnored() || SoOverrideElement::getPickStyleOverride(state))
        return;
    const bool isSeen = style.style.getValue() != SoDrawStyle::INVISIBLE;
    SoPickStyleElement::set(state, node, isSeen ? SoPickStyleElement::SHAPE : SoPickStyleElement::UNPICKABLE);
    if (style.isOverride())
        SoOverrideElement::setPickStyleOverride(state, node, TRUE);
}
