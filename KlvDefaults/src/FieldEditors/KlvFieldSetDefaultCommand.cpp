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
    m_defaultCopy.reset(static_cast<SoField*>(defaultField->getTypeId().createInstance()));
    if (m_defaultCopy)
        m_defaultCopy->copyFrom(*defaultField);
}

KlvFieldSetDefaultCommand::~KlvFieldSetDefaultCommand() = default;

void KlvFieldSetDefaultCommand::execute()
{
    if (setFieldFromText(getField(), m_defaultValue) && m_defaultCopy && getField()->isSame(*m_defaultCopy))
        getField()->setDefault(TRUE);
}

void KlvFieldSetDefaultCommand::undo()
{
    setFieldFromText(getField(), m_previousValue);
}

void KlvFieldSetDefaultCommand::redo()
{
    execute();
}
