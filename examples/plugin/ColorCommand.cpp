#include "ColorCommand.h"

#include <Inventor/fields/SoSFColor.h>

ColorCommand::ColorCommand(SoSFColor* field, const SbColor& color)
    : KlvCommand(field, Kind::ValueEdit, QStringLiteral("Color %1"))
    , m_color(field)
    , m_before(field->getValue())
    , m_after(color)
{
}

void ColorCommand::execute()
{
    m_color->setValue(m_after);
}

void ColorCommand::undo()
{
    m_color->setValue(m_before);
}

void ColorCommand::redo()
{
    execute();
}
