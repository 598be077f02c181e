#include "FieldEditors/MFWidgets/DvMFDefaultFieldWidget.h"

#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include <Inventor/fields/SoMField.h>

DvMFDefaultFieldWidget::DvMFDefaultFieldWidget(const char* name)
    : DvMFColumnWidget(SoMField::getClassTypeId(), "MField", DvMFieldTable::TextCell,
                       name ? name : "DvMFDefaultFieldWidget")
{
}

DvMFDefaultFieldWidget::~DvMFDefaultFieldWidget() = default;

QString DvMFDefaultFieldWidget::getShownText(int row, int column) const
{
    return hasElement(row, column) ? toUtf16(getElementSummary(m_field, row)) : QString();
}
