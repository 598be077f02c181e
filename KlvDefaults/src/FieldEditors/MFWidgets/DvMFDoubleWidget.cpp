#include "FieldEditors/MFWidgets/DvMFDoubleWidget.h"

#include <Inventor/fields/SoMFDouble.h>

DvMFDoubleWidget::DvMFDoubleWidget(const char* name)
    : DvMFRealWidget(SoMFDouble::getClassTypeId(), "MFDouble", DvMFieldTable::DoubleCell, "doubleField",
                     name ? name : "DvMFDoubleWidget")
{
}

DvMFDoubleWidget::~DvMFDoubleWidget() = default;
