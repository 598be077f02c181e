#pragma once

#include "FieldEditors/KlvMFCommand.h"

#include <QCoreApplication>

/// Inserts elements: empty ones where the kind has them, else ones with the kind's neutral value.
class KlvMFAddRowsCommand : public KlvMFCommand
{
    Q_DECLARE_TR_FUNCTIONS(KlvMFAddRowsCommand)

public:
    /// `start` will be the first new row.
    KlvMFAddRowsCommand(SoMField* field, int start, int count);

    /// Notifies the field's auditors once, however many rows there are.
    void execute() override;
    /// Deletes the rows again.
    void undo() override;
    void redo() override;

private:
    const int m_start;
    const int m_count;
};
