#include "FieldEditors/SFWidgets/DvSFVec2i32Widget.h"

DvSFVec2i32Widget::DvSFVec2i32Widget(const char* name)
    : DvSFVectorWidget("SFVec2i32", 2, name ? name : "DvSFVec2i32Widget")
{
}

DvSFVec2i32Widget::~DvSFVec2i32Widget() = default;
