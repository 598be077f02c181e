#include "FieldEditors/MFWidgets/DvMFUShortWidget.h"

#include <Inventor/fields/SoMFUShort.h>

DvMFUShortWidget::DvMFUShortWidget(const char* name)
    : DvMFLineWidget(SoMFUShort::getClassTypeId(), "MFUShort", DvMFieldTable::UShortCell,
                     name ? name : "DvMFUShortWidget")
{
}

DvMFUShortWidget::~DvMFUShortWidget() = default;
