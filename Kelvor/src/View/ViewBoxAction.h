#pragma once

#include "OrientedBox.h"

#include <Inventor/actions/SoGetBoundingBoxAction.h>

#include <optional>

class CameraRule;

/// Measures a scene with the cameras that the view's last frame was drawn with; the size of some shapes
/// depends on them.
class ViewBoxAction : public SoGetBoundingBoxAction
{
    SO_ACTION_HEADER(ViewBoxAction);

public:
    /// Registers the type with Coin, once; to be called before the first instance is made.
    static void initClass();

    /// The rule must outlive the action. The viewport is in device pixels.
    ViewBoxAction(const SbViewportRegion& viewport, const CameraRule& rule);
    ~ViewBoxAction() override;

    /// The bounding box of a graph in world space. Empty when there is nothing to see, and also when some
    /// coordinate is not a number or too large to calculate with.
    SbBox3f measure(SoNode* root);
    /// The box around what is seen at the end of a path that begins where the graph does: in the coordinates
    /// of the shape, or of that shape below with which it is smallest. Nothing where `measure` gives an empty
    /// box.
    std::optional<OrientedBox> measure(SoPath& path);

private:
    static void passCamera(SoAction* action, SoNode* node);

    const CameraRule& m_rule;
};
