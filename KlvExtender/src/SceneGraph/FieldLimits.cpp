#include "FieldLimits.h"

#include <Inventor/engines/SoComposeMatrix.h>
#include <Inventor/engines/SoComposeRotation.h>
#include <Inventor/engines/SoComposeRotationFromTo.h>
#include <Inventor/engines/SoComposeVec2f.h>
#include <Inventor/engines/SoComposeVec3f.h>
#include <Inventor/engines/SoComposeVec4f.h>
#include <Inventor/engines/SoCounter.h>
#include <Inventor/engines/SoInterpolate.h>
#include <Inventor/engines/SoTimeCounter.h>
#include <Inventor/engines/SoTransformVec3f.h>
#include <Inventor/fields/SoMField.h>

#include <algorithm>

bool FieldLimits::canBeEmpty(const SoMField& field)
{
    static const SoType engines[] = {
        SoComposeMatrix::getClassTypeId(),         SoComposeRotation::getClassTypeId(),
        SoComposeRotationFromTo::getClassTypeId(), SoComposeVec2f::getClassTypeId(),
        SoComposeVec3f::getClassTypeId(),          SoComposeVec4f::getClassTypeId(),
        SoInterpolate::getClassTypeId(),           SoTransformVec3f::getClassTypeId(),
    };
    const SoFieldContainer* container = field.getContainer();
    return !container ||
           std::ranges::none_of(engines, [container](SoType engine) { return container->isOfType(engine); });
}

bool FieldLimits::canBeZero(const SoField& field)
{
    const SoFieldContainer* container = field.getContainer();
    if (!container)
        return true;
    if (container->isOfType(SoCounter::getClassTypeId()))
        return &static_cast<const SoCounter*>(container)->step != &field;
    if (container->isOfType(SoTimeCounter::getClassTypeId()))
        return &static_cast<const SoTimeCounter*>(container)->step != &field;
    return true;
}
