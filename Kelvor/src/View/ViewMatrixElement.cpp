#include "ViewMatrixElement.h"

#include "CameraRule.h"
#include "ViewRenderAction.h"

#include <Inventor/SoFullPath.h>
#include <Inventor/VRMLnodes/SoVRMLBackground.h>
#include <Inventor/elements/SoCacheElement.h>
#include <Inventor/elements/SoCullElement.h>
#include <Inventor/elements/SoModelMatrixElement.h>
#include <Inventor/elements/SoViewportRegionElement.h>
#include <Inventor/nodes/SoCamera.h>

namespace {

/// The camera that the traversal stands at, if it is one that a view may replace; a background draws its sky
/// with a camera of its own.
const SoCamera* viewCamera(SoAction& action)
{
    const auto* const path = static_cast<const SoFullPath*>(action.getCurPath());
    if (path->getLength() == 0 || !path->getTail()->isOfType(SoCamera::getClassTypeId()))
        return nullptr;
    for (int i = 0; i < path->getLength(); ++i)
        if (path->getNode(i)->isOfType(SoVRMLBackground::getClassTypeId()))
            return nullptr;
    return static_cast<const SoCamera*>(path->getTail());
}

} // namespace

SO_ELEMENT_SOURCE(ViewMatrixElement);

void ViewMatrixElement::initClass()
{
    SO_ELEMENT_INIT_CLASS(ViewMatrixElement, inherited);
}

ViewMatrixElement::~ViewMatrixElement() = default;

void ViewMatrixElement::init(SoState* state)
{
    inherited::init(state);
    m_state = state;
}

void ViewMatrixElement::push(SoState* state)
{
    inherited::push(state);
    m_state = state;
}

void ViewMatrixElement::setElt(const SbMatrix& viewing)
{
    auto* const action = static_cast<ViewRenderAction*>(m_state->getAction());
    const SoCamera* const camera = viewCamera(*action);
    if (!camera) {
        inherited::setElt(viewing);
        return;
    }
    // A display list would keep the camera that was in use when it was made.
    SoCacheElement::invalidate(m_state);
    // Below transformations Coin keeps the viewing matrix in a form of its own, such that it gives the
    // drawing matrix when the model matrix is multiplied to its right.
    const SbMatrix model = SoModelMatrixElement::get(m_state);
    const SbMatrix toModel = model.inverse();
    const CameraPlacement* const placement =
        action->rule().meet(*camera, toModel * viewing * model, model, action->getViewportRegion());
    if (!placement) {
        inherited::setElt(viewing);
        return;
    }
    if (!action->rule().looksThroughScene())
        SoViewportRegionElement::set(m_state, action->getViewportRegion());
    SoCullElement::setViewVolume(m_state, placement->volume);
    placement->apply(m_state, action->getCurPathTail());
    inherited::setElt(model * placement->viewing * toModel);
}
