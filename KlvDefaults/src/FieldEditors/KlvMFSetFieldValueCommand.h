#pragma once

#include "FieldEditors/KlvMFCommand.h"

#include <Inventor/SbString.h>

/// Records that one element was given the value that it has when the command is made. Kept: undo sets that
/// value as redo does; the value before comes from the history's copy.
class KlvMFSetFieldValueCommand : public KlvMFCommand
{
public:
    KlvMFSetFieldValueCommand(SoMField* field, int index);

    /// Nothing: the element is set already.
    void execute() override {}
    void undo() override;
    void redo() override;

private:
    const int m_index;
    const SbString m_value;
};
