#include "FieldEditors/KlvSFSetValueCommand.h"

#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoSField.h>

KlvSFSetValueCommand::KlvSFSetValueCommand(SoSField* field, SbString& previous)
    : KlvCommand(field)
    , m_previousValue(previous)
{
    if (previous.getLength() > 0)
        makeNull(previous);
    else if (field)
        field->get(m_previousValue);
}

void KlvSFSetValueCommand::execute()
{
    if (getField())
        getField()->get(m_newValue);
}

void KlvSFSetValueCommand::undo()
{
    setFieldFromText(getField(), m_previousValue);
}

void KlvSFSetValueCommand::redo()
{
    setFieldFromText(getField(), m_newValue);
}
