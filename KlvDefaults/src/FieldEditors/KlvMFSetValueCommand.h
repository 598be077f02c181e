#pragma once

#include "FieldEditors/KlvMFCommand.h"

#include <Inventor/SbString.h>

/// A new value of one element, kept as text. The editor has written it before the command is made; the
/// command reads it when the history takes it.
class KlvMFSetValueCommand : public KlvMFCommand
{
public:
    /// `previous` is the text of the element before the change and is emptied: handed over again, it is used
    /// no second time. An empty one stands for the value that the element has now.
    KlvMFSetValueCommand(SoMField* field, int index, SbString& previous);

    void execute() override;
    void undo() override;
    void redo() override;

private:
    const int m_index;
    SbString m_previousValue;
    SbString m_newValue;
};
