#pragma once

#include "FieldEditors/MFWidgets/DvMFColumnWidget.h"

/// Base of the editors of number fields, whose cell edits are no steps of the history, though noted as
/// changes. By itself it edits any multi-value field that way.
class DvMFLineWidget : public DvMFColumnWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFLineWidget".
    explicit DvMFLineWidget(const char* name);
    ~DvMFLineWidget() override;

protected:
    DvMFLineWidget(SoType kind, const char* kindName, CellType cellType, const char* name);

    void setSingleFieldValue(SbString text, int row, int column) override;
};
