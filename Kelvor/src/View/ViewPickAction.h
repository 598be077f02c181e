#pragma once

#include <Inventor/actions/SoRayPickAction.h>

#include <QPointF>

class CameraRule;

/// Picks in a scene with the cameras that the view's last frame was drawn with.
///
/// Hits whatever is drawn, also what the scene's pick styles leave out, and nothing that is drawn invisible.
class ViewPickAction : public SoRayPickAction
{
    SO_ACTION_HEADER(ViewPickAction);

public:
    /// Registers the type with Coin, once; to be called before the first instance is made.
    static void initClass();

    /// The rule must outlive the action. The viewport is in device pixels.
    ViewPickAction(const SbViewportRegion& viewport, const CameraRule& rule);
    ~ViewPickAction() override;

    /// What is in front within some pixels of a position, in device pixels from the upper left corner; null
    /// when there is nothing. Valid until the next pick and as long as the action.
    const SoPickedPoint* pick(SoNode* scene, const QPointF& position, float radius);

private:
    static void passCamera(SoAction* action, SoNode* node);
    static void passDrawStyle(SoAction* action, SoNode* node);
    static void passPickStyle(SoAction*, SoNode*) {}

    const CameraRule& m_rule;
};
