#include "FieldEditors/MFWidgets/DvMFLineWidget.h"

#include <Inventor/fields/SoMField.h>

DvMFLineWidget::DvMFLineWidget(const char* name)
    : DvMFLineWidget(SoMField::getClassTypeId(), "", DvMFieldTable::TextCell, name ? name : "DvMFLineWidget")
{
}

DvMFLineWidget::DvMFLineWidget(SoType kind, const char* kindName, CellType cellType, const char* name)
    : DvMFColumnWidget(kind, kindName, cellType, name)
{
}

DvMFLineWidget::~DvMFLineWidget() = default;

void DvMFLineWidget::setSingleFieldValue(SbString text, int row, int)
{
    writeElement(row, text);
}
