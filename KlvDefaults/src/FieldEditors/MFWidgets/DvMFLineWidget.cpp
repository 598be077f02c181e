#include "FieldEditors/MFWidgets/DvMFLineWidget.h"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>

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
    SoMField* field = m_field;
    const KlvEditScope scope(field, row, 1);
    const bool wasDefault = field->isDefault();
    const auto before = copyElements(field, row, 1);
    // Another spelling of the same value is no change.
    if (writeElement(row, text) && wasDefault && before && before->isSame(*copyElements(field, row, 1)))
        field->setDefault(TRUE);
}
