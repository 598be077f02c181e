#include "FieldEditors/KlvMFDeleteRowsCommand.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include <Inventor/fields/SoMField.h>

KlvMFDeleteRowsCommand::KlvMFDeleteRowsCommand(SoMField* field, int start, int count)
    : KlvMFCommand(field, Kind::Action,
                   count == 1 ? tr("Delete a row of %1") : tr("Delete %n rows of %1", nullptr, count))
    , m_rows(copyElements(field, start, count))
    , m_counted(m_rows ? KlvContainerRef::countingAllOf(*m_rows) : std::vector<KlvContainerRef>())
    , m_start(start)
    , m_count(count)
{
}

KlvMFDeleteRowsCommand::~KlvMFDeleteRowsCommand() = default;

void KlvMFDeleteRowsCommand::execute()
{
    deleteElements(getMField(), m_start, m_count);
}

void KlvMFDeleteRowsCommand::undo()
{
    insertElements(getMField(), m_start, m_count);
    setElements(getMField(), m_start, m_rows.get());
}

void KlvMFDeleteRowsCommand::redo()
{
    execute();
}
