#include "FieldEditors/DefaultField.h"

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoFieldData.h>

namespace {

/// The field of `instance` that stands where `field` stands in `container`. A field of another name or kind
/// there means that each instance declares its own fields.
SoField* findCounterpart(const SoFieldContainer* container, const SoField* field,
                         const SoFieldContainer* instance)
{
    const SoFieldData* fields = container->getFieldData();
    const SoFieldData* freshFields = instance->getFieldData();
    const int index = fields ? fields->getIndex(container, field) : -1;
    if (index < 0 || !freshFields || index >= freshFields->getNumFields() ||
        freshFields->getFieldName(index) != fields->getFieldName(index))
        return nullptr;
    SoField* fresh = freshFields->getField(instance, index);
    return fresh->getTypeId() == field->getTypeId() && !fresh->isConnected() ? fresh : nullptr;
}

void warn(const SoField* field, const SoFieldContainer* container)
{
    SbName name;
    if (container)
        container->getFieldName(field, name);
    const char* owner = container ? container->getTypeId().getName().getString() : "no container";
    SoDebugError::postWarning("DefaultField", "The field \"%s\" of %s has no default value to go back to.",
                              name.getString(), owner);
}

} // namespace

DefaultField::DefaultField(SoField* field)
{
    if (!field)
        return;
    const SoFieldContainer* container = field->getContainer();
    if (container && container->getTypeId().canCreateInstance())
        m_instance = static_cast<SoFieldContainer*>(container->getTypeId().createInstance());
    if (m_instance) {
        m_instance->ref();
        m_field = findCounterpart(container, field, m_instance);
    }
    if (!m_field)
        warn(field, container);
}

DefaultField::~DefaultField()
{
    if (m_instance)
        m_instance->unref();
}
