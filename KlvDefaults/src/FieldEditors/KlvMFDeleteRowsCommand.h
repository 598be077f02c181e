#pragma once

#include "FieldEditors/KlvMFCommand.h"

#include <KlvExtender/KlvContainerRef.h>

#include <QCoreApplication>

#include <memory>
#include <vector>

/// Deletes elements, and keeps them to the bit.
class KlvMFDeleteRowsCommand : public KlvMFCommand
{
    Q_DECLARE_TR_FUNCTIONS(KlvMFDeleteRowsCommand)

public:
    /// Keeps the values of those of the rows that exist now.
    KlvMFDeleteRowsCommand(SoMField* field, int start, int count);
    ~KlvMFDeleteRowsCommand() override;

    void execute() override;
    /// Inserts `count` rows at `start` with the values that were kept; rows that did not exist hold the
    /// kind's neutral value.
    void undo() override;
    void redo() override;

private:
    const std::unique_ptr<SoMField> m_rows;
    const std::vector<KlvContainerRef> m_counted; // what the rows refer to
    const int m_start;
    const int m_count;
};
