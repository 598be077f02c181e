#pragma once

#include "FieldEditors/MFWidgets/DvMFieldTable.h"

/// The element table of the editors of color fields, whose components are single-precision numbers.
class DvMFColorTable : public DvMFieldTable
{
    Q_OBJECT

public:
    /// As its base; a null `name` gives "DvMFColorTable".
    DvMFColorTable(DvMFieldWidget* owner, QWidget* parent, const char* name);
    ~DvMFColorTable() override;
};
