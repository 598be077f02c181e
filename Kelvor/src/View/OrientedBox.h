#pragma once

#include <Inventor/SbVec3f.h>

#include <array>
#include <optional>

class SbBox3f;
class SbXfBox3f;

/// A box of any orientation in world space; below transformations that shear, its axes are not perpendicular.
struct OrientedBox
{
    SbVec3f center;
    /// From the centre to the middles of three faces; null vectors where the box is flat.
    std::array<SbVec3f, 3> halfAxes;

    /// `box` must not be empty.
    explicit OrientedBox(const SbBox3f& box);
    /// Nothing when the box is empty, or when some coordinate is not a number or too large to calculate with.
    static std::optional<OrientedBox> of(const SbXfBox3f& box);

    /// Corners whose numbers differ in bit k are joined by an edge along axis k.
    std::array<SbVec3f, 8> corners() const;
    /// The box with its faces farther out. It is flat nowhere when the distance is greater than 0.
    OrientedBox grownBy(float distance) const;
};
