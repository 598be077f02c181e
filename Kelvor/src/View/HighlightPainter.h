#pragma once

#include "SceneHighlight.h"

class CameraRule;
class QColor;

/// Draws the mark of a highlighted occurrence over a scene: the edges of its box, faint where the scene hides
/// them, dashed where the box is that of what the node may affect.
class HighlightPainter
{
public:
    /// To be called with the OpenGL context and the depth buffer that the scene was drawn with; leaves the
    /// context's state as it was. `pixelRatio`: device pixels in one of the window's.
    static void paint(const SceneHighlight::Mark& mark, const CameraRule& rule, const QColor& color,
                      float pixelRatio);
};
