#pragma once

#include <KlvExtender/KlvCommand.h>

#include <Inventor/SbString.h>

class SoSField;

/// A new value of a single-value field, kept as text. The editor has written it before the command is made;
/// the command reads it when the history takes it.
class KlvSFSetValueCommand : public KlvCommand
{
public:
    /// `previous` is the text of the value before the change and is emptied: handed over again, it is used no
    /// second time. An empty one stands for the value that the field has now. The field must outlive the
    /// command.
    KlvSFSetValueCommand(SoSField* field, SbString& previous);

    void execute() override;
    void undo() override;
    void redo() override;

private:
    SbString m_previousValue;
    SbString m_newValue;
};
