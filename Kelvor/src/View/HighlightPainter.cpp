#include "HighlightPainter.h"

#include "CameraRule.h"
#include "GlAttributes.h"

#include <QColor>
#include <QOpenGLFunctions>

#include <algorithm>
#include <cmath>

namespace {

constexpr float gap = 2.5f;       // pixels between the scene and the lines around it
constexpr float lineWidth = 2.0f; // pixels
constexpr GLushort dashes = 0x0F0F;

struct Pass
{
    GLenum depthTest;
    float opacity;
};

constexpr Pass passes[] = {{GL_GREATER, 0.3f}, {GL_LEQUAL, 1.0f}};

/// The length in world space that covers one of the viewport's `width` pixels at a point.
float pixelSize(const CameraPlacement& placement, const SbVec3f& point, int width)
{
    SbVec3f seen;
    placement.viewing.multVecMatrix(point, seen);
    const float depth = std::abs(seen[2] * placement.projection[2][3] + placement.projection[3][3]);
    const float scale = std::cbrt(std::abs(placement.viewing.det3()));
    return 2.0f * depth / (placement.projection[0][0] * float(width) * scale);
}

void drawEdges(const OrientedBox& box)
{
    const std::array<SbVec3f, 8> corners = box.corners();
    glBegin(GL_LINES);
    for (size_t corner = 0; corner < 8; ++corner)
        for (size_t bit = 1; bit < 8; bit <<= 1)
            if (!(corner & bit)) {
                glVertex3fv(corners[corner].getValue());
                glVertex3fv(corners[corner | bit].getValue());
            }
    glEnd();
}

void setUp(const CameraRule& rule, bool isDashed, float pixelRatio)
{
    const SbVec2s origin = rule.viewport().getViewportOriginPixels();
    const SbVec2s size = rule.viewport().getViewportSizePixels();
    glViewport(origin[0], origin[1], size[0], size[1]);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadMatrixf(rule.placement().projection[0]);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadMatrixf(rule.placement().viewing[0]);
    for (const GLenum mode : {GL_LIGHTING, GL_TEXTURE_2D, GL_FOG, GL_ALPHA_TEST, GL_STENCIL_TEST})
        glDisable(mode);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glLineWidth(lineWidth * pixelRatio);
    if (isDashed) {
        glEnable(GL_LINE_STIPPLE);
        glLineStipple(std::max(1, int(std::lround(pixelRatio))), dashes);
    }
}

} // namespace

void HighlightPainter::paint(const SceneHighlight::Mark& mark, const CameraRule& rule, const QColor& color,
                             float pixelRatio)
{
    const float pixel =
        pixelSize(rule.placement(), mark.box.center, rule.viewport().getViewportSizePixels()[0]);
    const OrientedBox box = std::isfinite(pixel) ? mark.box.grownBy(gap * pixelRatio * pixel) : mark.box;
    const GlAttributes attributes;
    setUp(rule, !mark.isOwn, pixelRatio);
    for (const Pass& pass : passes) {
        glDepthFunc(pass.depthTest);
        glColor4f(color.redF(), color.greenF(), color.blueF(), pass.opacity);
        drawEdges(box);
    }
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
}
