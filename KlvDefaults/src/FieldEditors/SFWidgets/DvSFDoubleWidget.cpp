#include "FieldEditors/SFWidgets/DvSFDoubleWidget.h"

DvSFDoubleWidget::DvSFDoubleWidget(const char* name)
    : DvSFSliderEditor({DoubleFrame, "SFDouble", "doubleField", true}, name ? name : "DvSFDoubleWidget")
{
}

DvSFDoubleWidget::~DvSFDoubleWidget() = default;
