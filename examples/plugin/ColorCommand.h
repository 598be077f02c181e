#pragma once

#include <KlvExtender/KlvCommand.h>

#include <Inventor/SbColor.h>

class SoSFColor;

/// Gives a colour field a new colour.
class ColorCommand : public KlvCommand
{
public:
    ColorCommand(SoSFColor* field, const SbColor& color);

    void execute() override;
    void undo() override;
    void redo() override;

private:
    SoSFColor* m_color;
    SbColor m_before;
    SbColor m_after;
};
