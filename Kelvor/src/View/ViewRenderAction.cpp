#include "ViewRenderAction.h"

#include "ViewMatrixElement.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoSubAction.h>
#include <Inventor/nodes/SoSubNode.h>

SO_ACTION_SOURCE(ViewRenderAction);

void ViewRenderAction::initClass()
{
    if (getClassTypeId() != SoType::badType())
        return;
    SO_ACTION_INIT_CLASS(ViewRenderAction, SoGLRenderAction);
    ViewMatrixElement::initClass();
    SO_ENABLE(ViewRenderAction, ViewMatrixElement);
}

ViewRenderAction::ViewRenderAction(CameraRule& rule)
    : SoGLRenderAction(SbViewportRegion())
    , m_rule(rule)
{
    SO_ACTION_CONSTRUCTOR(ViewRenderAction);
    setTransparencyType(SORTED_OBJECT_BLEND);
}

ViewRenderAction::~ViewRenderAction() = default;
