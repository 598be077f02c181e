#pragma once

#include <Inventor/SbRotation.h>
#include <Inventor/SbVec3f.h>

/// The rotation that turns by three angles, in degrees: about x first, then about the fixed axes y and z.
SbRotation rotationFromAngles(const SbVec3f& degrees);

/// Angles that make a rotation. Of the many that do, those with x and z from -180 to 180 and y from -90 to
/// 90; z is 0 where x and z turn about the same axis.
SbVec3f anglesOf(const SbRotation& rotation);
