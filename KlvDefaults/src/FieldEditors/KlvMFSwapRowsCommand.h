#pragma once

#include "FieldEditors/KlvMFCommand.h"

#include <QCoreApplication>

/// Exchanges two elements. Undo and redo do so again.
class KlvMFSwapRowsCommand : public KlvMFCommand
{
    Q_DECLARE_TR_FUNCTIONS(KlvMFSwapRowsCommand)

public:
    KlvMFSwapRowsCommand(SoMField* field, int first, int second);

    /// To the bit if both rows exist, else as text: a row that does not exist has an empty one, and comes
    /// into being when it is given the other's.
    void execute() override;
    void undo() override;
    void redo() override;

private:
    const int m_first;
    const int m_second;
};
