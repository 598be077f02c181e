#include "FieldEditors/KlvMFSetValueCommand.h"

#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

KlvMFSetValueCommand::KlvMFSetValueCommand(SoMField* field, int index, SbString& previous)
    : KlvMFCommand(field)
    , m_index(index)
    , m_previousValue(previous)
{
    if (previous.getLength() > 0)
        makeNull(previous);
    else
        m_previousValue = getElementText(field, index);
}

void KlvMFSetValueCommand::execute()
{
    m_newValue = getElementText(getMField(), m_index);
}

void KlvMFSetValueCommand::undo()
{
    setElementFromText(getMField(), m_index, m_previousValue);
}

void KlvMFSetValueCommand::redo()
{
    setElementFromText(getMField(), m_index, m_newValue);
}
