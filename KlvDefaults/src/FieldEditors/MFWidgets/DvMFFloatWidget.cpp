#include "FieldEditors/MFWidgets/DvMFFloatWidget.h"

#include <Inventor/fields/SoMFFloat.h>

DvMFFloatWidget::DvMFFloatWidget(const char* name)
    : DvMFRealWidget(SoMFFloat::getClassTypeId(), "MFFloat", DvMFieldTable::FloatCell, "floatField",
                     name ? name : "DvMFFloatWidget")
{
}

DvMFFloatWidget::~DvMFFloatWidget() = default;
