#include "FieldEditors/KlvFieldSetDefaultCommand.h"

#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoMField.h>

KlvFieldSetDefaultCommand::KlvFieldSetDefaultCommand(SoField* field, SoField* defaultField)
    : KlvCommand(defaultField ? field : nullptr, Kind::Action, tr("Reset %1"))
{
    if (!field || !defaultField)
        return;
    m_multiValue = field->isOfType(SoMField::getClassTypeId());
    field->get(m_previousValue);
    defaultField->get(m_defaultValue);
    if (m_multiValue)
        return;
    m_defaultCopy.reset(static_cast<SoField*>(defaultField->getTypeId().createInstance()));
    if (m_defaultCopy)
        m_defaultCopy->copyFrom(*defaultField);
    // The copy of a bit mask lacks the names of the bits and is equal to none that has them.
    if (m_defaultCopy && !m_defaultCopy->isSame(*defaultField))
        m_defaultCopy.reset();
}

KlvFieldSetDefaultCommand::~KlvFieldSetDefaultCommand() = default;

void KlvFieldSetDefaultCommand::execute()
{
    if (setFieldFromText(getField(), m_defaultValue) && hasDefaultValue())
        getField()->setDefault(TRUE);
}

bool KlvFieldSetDefaultCommand::hasDefaultValue() const
{
    if (m_defaultCopy)
        return getField()->isSame(*m_defaultCopy);
    SbString value;
    getField()->get(value);
    return value == m_defaultValue;
}

void KlvFieldSetDefaultCommand::undo()
{
    setFieldFromText(getField(), m_previousValue);
}

void KlvFieldSetDefaultCommand::redo()
{
    execute();
}
