#include "ClipRange.h"

#include <Inventor/SbBox3f.h>
#include <Inventor/SbMatrix.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr float depthRatio = 5000.0f; // far to near at most: what is left of 24 bits of depth is fine enough
constexpr float margin = 0.01f;       // of the range, so that faces in the planes are drawn

} // namespace

ClipRange ClipRange::around(const SbBox3f& box, const SbMatrix& viewing,
                            SbViewVolume::ProjectionType projection, float focalDistance)
{
    const bool perspective = projection == SbViewVolume::PERSPECTIVE;
    const float focus = std::isfinite(focalDistance) && focalDistance > 0.0f ? focalDistance : 1.0f;
    const float ratio = std::sqrt(depthRatio);
    ClipRange range{focus / ratio, focus * ratio};
    if (box.isEmpty())
        return range;

    SbBox3f seen = box;
    seen.transform(viewing); // the camera looks along -z
    const float nearest = -seen.getMax()[2];
    const float farthest = -seen.getMin()[2];
    if (!std::isfinite(nearest) || !std::isfinite(farthest) || (perspective && farthest <= 0.0f))
        return range;
    const float extra = std::max({margin * (farthest - nearest), margin * std::abs(farthest) * 0.1f, 1e-6f});
    range = {nearest - extra, farthest + extra};
    if (perspective)
        range.nearDistance = std::max(range.nearDistance, range.farDistance / depthRatio);
    return range;
}

bool ClipRange::isUsable(SbViewVolume::ProjectionType projection) const
{
    return std::isfinite(nearDistance) && std::isfinite(farDistance) && nearDistance < farDistance &&
           (projection == SbViewVolume::ORTHOGRAPHIC || nearDistance > 0.0f);
}

SbViewVolume ClipRange::volume(const SbViewVolume& shape, const SbMatrix& camera) const
{
    // The axes without their scale: Coin's own transformation of volumes gets lengths wrong with it.
    SbVec3f up(camera[1][0], camera[1][1], camera[1][2]);
    SbVec3f back(camera[2][0], camera[2][1], camera[2][2]);
    const float scale = back.normalize();
    up.normalize();
    const SbVec3f side = up.cross(back);
    const SbMatrix place(side[0], side[1], side[2], 0.0f, up[0], up[1], up[2], 0.0f, back[0], back[1],
                         back[2], 0.0f, camera[3][0], camera[3][1], camera[3][2], 1.0f);

    const bool perspective = shape.getProjectionType() == SbViewVolume::PERSPECTIVE;
    const float grow = 0.5f * scale * (perspective ? nearDistance / shape.getNearDist() : 1.0f);
    const float width = shape.getWidth() * grow;
    const float height = shape.getHeight() * grow;
    SbViewVolume result;
    if (perspective)
        result.frustum(-width, width, -height, height, nearDistance * scale, farDistance * scale);
    else
        result.ortho(-width, width, -height, height, nearDistance * scale, farDistance * scale);
    result.transform(place);
    return result;
}
