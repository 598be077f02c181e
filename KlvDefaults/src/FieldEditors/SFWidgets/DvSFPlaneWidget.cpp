#include "FieldEditors/SFWidgets/DvSFPlaneWidget.h"

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/fields/SoSFPlane.h>

#include <cmath>

namespace {

/// The plane at another distance with the same normal, which making a plane anew would round again.
SbPlane atDistance(SbPlane plane, float distance)
{
    // The first offset may be rounded; the second makes up for that.
    for (int i = 0; i < 2; ++i)
        plane.offset(distance - plane.getDistanceFromOrigin());
    return plane;
}

} // namespace

DvSFPlaneWidget::DvSFPlaneWidget(const char* name)
    : DvSF4fBox(SoSFPlane::getClassTypeId(), "SFPlane",
                {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"), tr("distance")},
                name ? name : "DvSFPlaneWidget")
{
}

DvSFPlaneWidget::~DvSFPlaneWidget() = default;

void DvSFPlaneWidget::getComponents(float* components) const
{
    const SbPlane& plane = static_cast<SoSFPlane*>(m_field)->getValue();
    plane.getNormal().getValue(components[0], components[1], components[2]);
    components[3] = plane.getDistanceFromOrigin();
}

bool DvSFPlaneWidget::setComponents(const float* components)
{
    auto* field = static_cast<SoSFPlane*>(m_field);
    const SbVec3f normal(components);
    const float distance = components[3];
    SbPlane plane(normal, distance);
    if (plane.getNormal() != normal) {
        const SbPlane moved = atDistance(field->getValue(), distance);
        if (moved.getNormal() == normal && moved.getDistanceFromOrigin() == distance)
            plane = moved;
    }
    if (!(std::abs(plane.getNormal().sqrLength() - 1) < 0.001f)) {
        SoDebugError::postWarning("DvSFPlaneWidget", "A normal without a length makes no plane.");
        return false;
    }
    field->setValue(plane);
    return true;
}
