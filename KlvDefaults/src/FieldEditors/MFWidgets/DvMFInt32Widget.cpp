#include "FieldEditors/MFWidgets/DvMFInt32Widget.h"

#include <Inventor/fields/SoMFInt32.h>

DvMFInt32Widget::DvMFInt32Widget(const char* name)
    : DvMFLineWidget(SoMFInt32::getClassTypeId(), "MFInt32", DvMFieldTable::Int32Cell,
                     name ? name : "DvMFInt32Widget")
{
}

DvMFInt32Widget::~DvMFInt32Widget() = default;
