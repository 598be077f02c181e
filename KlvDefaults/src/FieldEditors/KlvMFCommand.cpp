#include "FieldEditors/KlvMFCommand.h"

#include <Inventor/fields/SoMField.h>

KlvMFCommand::KlvMFCommand(SoMField* field, Kind kind, const QString& text)
    : KlvCommand(field, kind, text)
    , m_field(field)
{
}
