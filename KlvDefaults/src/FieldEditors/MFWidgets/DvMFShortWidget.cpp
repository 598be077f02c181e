#include "FieldEditors/MFWidgets/DvMFShortWidget.h"

#include <Inventor/fields/SoMFShort.h>

DvMFShortWidget::DvMFShortWidget(const char* name)
    : DvMFLineWidget(SoMFShort::getClassTypeId(), "MFShort", DvMFieldTable::ShortCell,
                     name ? name : "DvMFShortWidget")
{
}

DvMFShortWidget::~DvMFShortWidget() = default;
