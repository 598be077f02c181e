#include "ViewPickAction.h"

#include "CameraRule.h"

#include <Inventor/actions/SoSubAction.h>
#include <Inventor/elements/SoViewingMatrixElement.h>
#include <Inventor/nodes/SoCamera.h>

SO_ACTION_SOURCE(ViewPickAction);

void ViewPickAction::initClass()
{
    if (getClassTypeId() != SoType::badType())
        return;
    SO_ACTION_INIT_CLASS(ViewPickAction, SoRayPickAction);
    SO_ACTION_ADD_METHOD(SoCamera, passCamera);
}

ViewPickAction::ViewPickAction(const SbViewportRegion& viewport, const CameraRule& rule)
    : SoRayPickAction(viewport)
    , m_rule(rule)
{
    SO_ACTION_CONSTRUCTOR(ViewPickAction);
}

ViewPickAction::~ViewPickAction() = default;

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
