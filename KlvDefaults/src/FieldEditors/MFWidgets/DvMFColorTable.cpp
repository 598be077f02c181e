#include "FieldEditors/MFWidgets/DvMFColorTable.h"

DvMFColorTable::DvMFColorTable(DvMFieldWidget* owner, QWidget* parent, const char* name)
    : DvMFieldTable(owner, parent, name ? name : "DvMFColorTable")
{
    setCellType(FloatCell);
}

DvMFColorTable::~DvMFColorTable() = default;
