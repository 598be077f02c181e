#include "FieldEditors/KlvFieldIgnoredCommand.h"

#include <Inventor/fields/SoField.h>

KlvFieldIgnoredCommand::KlvFieldIgnoredCommand(SoField* field, bool ignored)
    : KlvCommand(field, Kind::Action, ignored ? tr("Ignore %1") : tr("Stop ignoring %1"))
    , m_ignored(ignored)
{
}

void KlvFieldIgnoredCommand::execute()
{
    setIgnored(m_ignored);
}

void KlvFieldIgnoredCommand::undo()
{
    setIgnored(!m_ignored);
}

void KlvFieldIgnoredCommand::redo()
{
    execute();
}

void KlvFieldIgnoredCommand::setIgnored(bool ignored)
{
    if (getField())
        getField()->setIgnored(ignored);
}
