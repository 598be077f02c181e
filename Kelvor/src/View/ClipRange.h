#pragma once

#include <Inventor/SbViewVolume.h>

class SbBox3f;
class SbMatrix;

/// The distances of a camera's near and far clipping planes.
struct ClipRange
{
    float nearDistance = 0.1f;
    float farDistance = 10.0f;

    /// The narrowest range that holds `box`, and leaves the depth buffer enough precision, for a camera with
    /// the viewing matrix `viewing` (world to camera). With an empty box, or one that lies behind a
    /// perspective camera, the range is made around `focalDistance`.
    static ClipRange around(const SbBox3f& box, const SbMatrix& viewing,
                            SbViewVolume::ProjectionType projection, float focalDistance);

    /// Whether a camera of that kind can draw with these planes.
    bool isUsable(SbViewVolume::ProjectionType projection) const;
    /// A symmetric view volume with these planes and otherwise the shape of `shape`, for a camera that stands
    /// at `camera` (camera to world). The volume is right below scaling transformations, too.
    SbViewVolume volume(const SbViewVolume& shape, const SbMatrix& camera) const;
};
