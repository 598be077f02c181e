#pragma once

#include <Inventor/actions/SoRayPickAction.h>

class CameraRule;

/// Picks in a scene with the cameras that the view's last frame was drawn with.
class ViewPickAction : public SoRayPickAction
{
    SO_ACTION_HEADER(ViewPickAction);

public:
    /// Registers the type with Coin, once; to be called before the first instance is made.
    static void initClass();

    /// The rule must outlive the action. The viewport is in device pixels.
    ViewPickAction(const SbViewportRegion& viewport, const CameraRule& rule);
    ~ViewPickAction() override;

private:
    static void passCamera(SoAction* action, SoNode* node);

    const CameraRule& m_rule;
};
