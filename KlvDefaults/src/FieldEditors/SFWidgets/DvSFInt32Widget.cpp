#include "FieldEditors/SFWidgets/DvSFInt32Widget.h"

DvSFInt32Widget::DvSFInt32Widget(const char* name)
    : DvSFSliderEditor({Int32Frame, "SFInt32", "intField", false}, name ? name : "DvSFInt32Widget")
{
}

DvSFInt32Widget::~DvSFInt32Widget() = default;
