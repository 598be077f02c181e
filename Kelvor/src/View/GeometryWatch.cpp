#include "GeometryWatch.h"

#include "GeometryCheck.h"
#include "GeometryRules.h"

#include <Inventor/VRMLnodes/SoVRMLMaterial.h>
#include <Inventor/VRMLnodes/SoVRMLTexture.h>
#include <Inventor/VRMLnodes/SoVRMLTextureTransform.h>
#include <Inventor/fields/SoMFFloat.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFRotation.h>
#include <Inventor/fields/SoSFVec3f.h>
#include <Inventor/misc/SoNotification.h>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoClipPlane.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoEnvironment.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoLight.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPackedColor.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoShape.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTexture.h>
#include <Inventor/nodes/SoTexture2Transform.h>
#include <Inventor/nodes/SoTransformation.h>

#include <algorithm>
#include <iterator>

namespace {

using Kind = SoType (*)();

template <class Object, std::size_t count>
bool isAny(const Object& object, const Kind (&kinds)[count])
{
    return std::any_of(std::begin(kinds), std::end(kinds),
                       [&object](Kind kind) { return object.isOfType(kind()); });
}

// They give the colors and textures that shapes take.
const Kind Appearances[] = {SoMaterial::getClassTypeId,    SoBaseColor::getClassTypeId,
                            SoPackedColor::getClassTypeId, SoTexture::getClassTypeId,
                            SoVRMLTexture::getClassTypeId, SoVRMLMaterial::getClassTypeId};
// No list of a shape depends on them.
const Kind Others[] = {SoTransformation::getClassTypeId,
                       SoCamera::getClassTypeId,
                       SoLight::getClassTypeId,
                       SoLightModel::getClassTypeId,
                       SoDrawStyle::getClassTypeId,
                       SoComplexity::getClassTypeId,
                       SoFont::getClassTypeId,
                       SoPickStyle::getClassTypeId,
                       SoClipPlane::getClassTypeId,
                       SoShapeHints::getClassTypeId,
                       SoEnvironment::getClassTypeId,
                       SoTexture2Transform::getClassTypeId,
                       SoVRMLTextureTransform::getClassTypeId};
// Of a group such fields place what is below it, or say how far it is seen.
const Kind Measures[] = {SoSFVec3f::getClassTypeId, SoSFRotation::getClassTypeId, SoSFFloat::getClassTypeId,
                         SoMFFloat::getClassTypeId};

} // namespace

GeometryWatch::GeometryWatch(SoNode* scene)
    : m_scene(scene)
{
    GeometryCheck::initClass();
    attach(scene);
}

QString GeometryWatch::fault()
{
    if (m_isDue) {
        GeometryCheck check;
        m_fault = check.fault(m_scene);
        m_dependsOnAppearance = check.dependsOnAppearance();
        m_isDue = false;
    }
    return m_fault;
}

void GeometryWatch::notify(SoNotList* list)
{
    m_isDue = m_isDue || matters(*list);
}

bool GeometryWatch::matters(const SoNotList& list) const
{
    SoNotRec* const origin = list.getFirstRecAtNode();
    if (!origin)
        return true;
    const auto& node = *static_cast<const SoNode*>(origin->getBase());
    if (isAny(node, Appearances))
        return m_dependsOnAppearance;
    if (node.isOfType(SoShape::getClassTypeId()))
        return GeometryRules::find(node);
    const SoField* const field = list.getLastField();
    return !isAny(node, Others) && !(node.getChildren() && field && isAny(*field, Measures));
}
