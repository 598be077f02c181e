#include "FieldEditors/SFWidgets/DvSFShortWidget.h"

DvSFShortWidget::DvSFShortWidget(const char* name)
    : DvSFSliderEditor({ShortFrame, "SFShort", "intField", false}, name ? name : "DvSFShortWidget")
{
}

DvSFShortWidget::~DvSFShortWidget() = default;
