#include "FieldEditors/KlvMFAddRowsCommand.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoMField.h>

KlvMFAddRowsCommand::KlvMFAddRowsCommand(SoMField* field, int start, int count)
    : KlvMFCommand(field, Kind::Action,
                   count == 1 ? tr("Add a row to %1") : tr("Add %n rows to %1", nullptr, count))
    , m_start(start)
    , m_count(count)
{
}

void KlvMFAddRowsCommand::execute()
{
    SoMField* field = getMField();
    if (!field)
        return;
    const int before = field->getNum();
    const SbBool notifying = field->enableNotify(FALSE);
    insertElements(field, m_start, m_count);
    const int end = field->getNum() > before ? m_start + m_count : m_start;
    // Kept: an empty text whatever the kind. A kind that refuses it refuses it for all rows.
    int row = m_start;
    while (row < end && setElementFromText(field, row, "\"\"", FALSE))
        ++row;
    field->enableNotify(notifying);
    if (end > m_start)
        valueChanged(field, 0, field->getNum(), TRUE);
}

void KlvMFAddRowsCommand::undo()
{
    deleteElements(getMField(), m_start, m_count);
}

void KlvMFAddRowsCommand::redo()
{
    execute();
}
