#include "FieldEditors/SFWidgets/DvSFUShortWidget.h"

DvSFUShortWidget::DvSFUShortWidget(const char* name)
    : DvSFSliderEditor({UShortFrame, "SFUShort", "intField", false}, name ? name : "DvSFUShortWidget")
{
}

DvSFUShortWidget::~DvSFUShortWidget() = default;
