#include "FieldEditors/SFWidgets/DvSFVec2sWidget.h"

DvSFVec2sWidget::DvSFVec2sWidget(const char* name)
    : DvSFVectorWidget("SFVec2s", 0, name ? name : "DvSFVec2sWidget")
{
}

DvSFVec2sWidget::~DvSFVec2sWidget() = default;
