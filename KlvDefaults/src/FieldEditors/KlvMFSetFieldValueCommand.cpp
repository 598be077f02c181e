#include "FieldEditors/KlvMFSetFieldValueCommand.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

KlvMFSetFieldValueCommand::KlvMFSetFieldValueCommand(SoMField* field, int index)
    : KlvMFCommand(field)
    , m_index(index)
    , m_value(getElementText(field, index))
{
}

void KlvMFSetFieldValueCommand::undo()
{
    setElementFromText(getMField(), m_index, m_value);
}

void KlvMFSetFieldValueCommand::redo()
{
    setElementFromText(getMField(), m_index, m_value);
}
