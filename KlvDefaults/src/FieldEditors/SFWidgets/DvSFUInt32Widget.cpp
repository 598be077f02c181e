#include "FieldEditors/SFWidgets/DvSFUInt32Widget.h"

DvSFUInt32Widget::DvSFUInt32Widget(const char* name)
    : DvSFSliderEditor({UInt32Frame, "SFUInt32", "intField", false}, name ? name : "DvSFUInt32Widget")
{
}

DvSFUInt32Widget::~DvSFUInt32Widget() = default;
