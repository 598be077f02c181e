#include "ViewBoxAction.h"

#include "CameraRule.h"

#include <Inventor/actions/SoSubAction.h>
#include <Inventor/elements/SoCacheElement.h>
#include <Inventor/elements/SoViewingMatrixElement.h>
#include <Inventor/nodes/SoCamera.h>

SO_ACTION_SOURCE(ViewBoxAction);

void ViewBoxAction::initClass()
{
    if (getClassTypeId() != SoType::badType())
        return;
    SO_ACTION_INIT_CLASS(ViewBoxAction, SoGetBoundingBoxAction);
    SO_ACTION_ADD_METHOD(SoCamera, passCamera);
}

ViewBoxAction::ViewBoxAction(const SbViewportRegion& viewport, const CameraRule& rule)
    : SoGetBoundingBoxAction(viewport)
    , m_rule(rule)
{
    SO_ACTION_CONSTRUCTOR(ViewBoxAction);
}

ViewBoxAction::~ViewBoxAction() = default;

SbBox3f ViewBoxAction::measure(SoNode* root)
{
    apply(root);
    const SbBox3f box = getBoundingBox();
    return OrientedBox::of(SbXfBox3f(box)) ? box : SbBox3f();
}

std::optional<OrientedBox> ViewBoxAction::measure(SoPath& path)
{
    apply(&path);
    return OrientedBox::of(getXfBoundingBox());
}

void ViewBoxAction::passCamera(SoAction* action, SoNode* node)
{
    auto* const self = static_cast<ViewBoxAction*>(action);
    auto* const camera = static_cast<SoCamera*>(node);
    const CameraPlacement* const placement = self->m_rule.placementOf(*camera);
    if (placement) {
        SoCacheElement::invalidate(self->getState()); // the box of a screen-sized shape is the view's own
        placement->apply(self->getState(), camera);
        SoViewingMatrixElement::set(self->getState(), camera, placement->viewing);
    } else {
        camera->getBoundingBox(self);
    }
}
