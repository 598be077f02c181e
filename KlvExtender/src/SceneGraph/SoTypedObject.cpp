#include <KlvExtender/SceneGraph/SoTypedObject.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>

SoType SoTypedObject::getTypeId() const
{
    if (m_field)
        return m_field->getTypeId();
    return m_container ? m_container->getTypeId() : SoType::badType();
}
