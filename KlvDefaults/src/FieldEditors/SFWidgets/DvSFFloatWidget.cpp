#include "FieldEditors/SFWidgets/DvSFFloatWidget.h"

DvSFFloatWidget::DvSFFloatWidget(const char* name)
    : DvSFSliderEditor({FloatFrame, "SFFloat", "floatField", true}, name ? name : "DvSFFloatWidget")
{
}

DvSFFloatWidget::~DvSFFloatWidget() = default;
