#include "OrientedBox.h"

#include <Inventor/SbBox3f.h>
#include <Inventor/SbMatrix.h>
#include <Inventor/SbXfBox3f.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr float largest = 1e15f;  // its square is still far from the largest float
constexpr float flatness = 1e-3f; // of the distance that a box is grown by

bool isUsable(const SbVec3f& point)
{
    return std::abs(point[0]) < largest && std::abs(point[1]) < largest && std::abs(point[2]) < largest;
}

/// A direction across two others, of which either may be null.
SbVec3f across(SbVec3f a, SbVec3f b)
{
    a.normalize();
    b.normalize();
    SbVec3f result = a.cross(b);
    if (result.normalize() > flatness)
        return result;
    const SbVec3f along = a.sqrLength() > 0.0f ? a : b;
    int least = 0;
    for (int i = 1; i < 3; ++i)
        if (std::abs(along[i]) < std::abs(along[least]))
            least = i;
    result.setValue(0.0f, 0.0f, 0.0f);
    result[least] = 1.0f;
    result -= along * along[least];
    result.normalize();
    return result;
}

} // namespace

OrientedBox::OrientedBox(const SbBox3f& box)
    : center(box.getCenter())
{
    const SbVec3f half = (box.getMax() - box.getMin()) / 2.0f;
    for (int i = 0; i < 3; ++i) {
        halfAxes[size_t(i)].setValue(0.0f, 0.0f, 0.0f);
        halfAxes[size_t(i)][i] = half[i];
    }
}

std::optional<OrientedBox> OrientedBox::of(const SbXfBox3f& box)
{
    if (box.isEmpty())
        return std::nullopt;
    OrientedBox result(static_cast<const SbBox3f&>(box)); // as it was before it was transformed
    const SbMatrix& transform = box.getTransform();
    transform.multVecMatrix(result.center, result.center);
    for (SbVec3f& axis : result.halfAxes)
        transform.multDirMatrix(axis, axis);
    const std::array<SbVec3f, 8> corners = result.corners();
    return std::all_of(corners.begin(), corners.end(), isUsable) ? std::optional(result) : std::nullopt;
}

std::array<SbVec3f, 8> OrientedBox::corners() const
{
    std::array<SbVec3f, 8> result;
    for (size_t corner = 0; corner < 8; ++corner) {
        result[corner] = center;
        for (size_t axis = 0; axis < 3; ++axis)
            result[corner] += corner >> axis & 1 ? halfAxes[axis] : -halfAxes[axis];
    }
    return result;
}

OrientedBox OrientedBox::grownBy(float distance) const
{
    OrientedBox result = *this;
    for (SbVec3f& axis : result.halfAxes)
        if (!(axis.length() > flatness * distance))
            axis.setValue(0.0f, 0.0f, 0.0f);
    for (size_t i = 0; i < 3; ++i) {
        SbVec3f& axis = result.halfAxes[i];
        const float length = axis.length();
        axis = length > 0.0f ? axis * (1.0f + distance / length)
                             : across(result.halfAxes[(i + 1) % 3], result.halfAxes[(i + 2) % 3]) * distance;
    }
    return result;
}
