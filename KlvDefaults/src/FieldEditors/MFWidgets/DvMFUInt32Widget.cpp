#include "FieldEditors/MFWidgets/DvMFUInt32Widget.h"

#include <Inventor/fields/SoMFUInt32.h>

DvMFUInt32Widget::DvMFUInt32Widget(const char* name)
    : DvMFLineWidget(SoMFUInt32::getClassTypeId(), "MFUInt32", DvMFieldTable::UInt32Cell,
                     name ? name : "DvMFUInt32Widget")
{
}

DvMFUInt32Widget::~DvMFUInt32Widget() = default;
