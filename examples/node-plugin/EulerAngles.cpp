#include "EulerAngles.h"

#include <Inventor/SbMatrix.h>

#include <QtMath>

#include <algorithm>
#include <cmath>

SbRotation rotationFromAngles(const SbVec3f& degrees)
{
    SbRotation rotation = SbRotation::identity();
    for (int axis = 0; axis < 3; ++axis) {
        SbVec3f direction(0, 0, 0);
        direction[axis] = 1;
        rotation *= SbRotation(direction, qDegreesToRadians(degrees[axis]));
    }
    return rotation;
}

SbVec3f anglesOf(const SbRotation& rotation)
{
    SbMatrix m;
    m.setRotate(rotation);
    const float sinY = std::clamp(-m[0][2], -1.0f, 1.0f);
    const bool isLocked = std::abs(sinY) > 0.999999f;
    const float x = isLocked ? std::atan2(-m[2][1], m[1][1]) : std::atan2(m[1][2], m[2][2]);
    const float z = isLocked ? 0.0f : std::atan2(m[0][1], m[0][0]);
    return {qRadiansToDegrees(x), qRadiansToDegrees(std::asin(sinY)), qRadiansToDegrees(z)};
}
