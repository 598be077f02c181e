#pragma once

#include <Inventor/actions/SoGLRenderAction.h>

class CameraRule;

/// Draws a scene with the cameras that a view's rule lets count.
class ViewRenderAction : public SoGLRenderAction
{
    SO_ACTION_HEADER(ViewRenderAction);

public:
    /// Registers the type with Coin, once; to be called before the first instance is made.
    static void initClass();

    /// The rule must outlive the action.
    explicit ViewRenderAction(CameraRule& rule);
    ~ViewRenderAction() override;

    CameraRule& rule() const { return m_rule; }

private:
    CameraRule& m_rule;
};
