#include <KlvExtender/KlvCommand.h>

KlvCommand::KlvCommand() = default;

KlvCommand::KlvCommand(SoField* field, Kind kind, const QString& text)
    : m_field(field)
    , m_kind(kind)
    , m_text(text)
{
}

KlvCommand::~KlvCommand() = default;
