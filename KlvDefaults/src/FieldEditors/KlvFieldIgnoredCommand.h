#pragma once

#include <KlvExtender/KlvCommand.h>

#include <QCoreApplication>

/// Sets or clears a field's ignored flag. Undo applies the opposite, whatever the flag was before.
class KlvFieldIgnoredCommand : public KlvCommand
{
    Q_DECLARE_TR_FUNCTIONS(KlvFieldIgnoredCommand)

public:
    /// The field must outlive the command; with a null one the command does nothing.
    KlvFieldIgnoredCommand(SoField* field, bool ignored);

    void execute() override;
    void undo() override;
    void redo() override;

private:
    void setIgnored(bool ignored);

    bool m_ignored;
};
