#include "FieldEditors/MFWidgets/DvMFStringWidget.h"

#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include <Inventor/fields/SoMFString.h>

DvMFStringWidget::DvMFStringWidget(const char* name)
    : DvMFColumnWidget(SoMFString::getClassTypeId(), "MFString", DvMFieldTable::TextCell,
                       name ? name : "DvMFStringWidget")
{
}

DvMFStringWidget::~DvMFStringWidget() = default;

QString DvMFStringWidget::getShownText(int row, int column) const
{
    constexpr int shownBytes = 4000;
    if (!hasElement(row, column))
        return QString();
    const SbString& string = (*static_cast<SoMFString*>(m_field))[row];
    return toUtf16(string.getLength() > shownBytes ? string.getSubString(0, shownBytes - 1) : string);
}

void DvMFStringWidget::swapRows(int row1, int row2)
{
    if (m_table)
        m_table->swapRows(row1, row2);
}

SbString DvMFStringWidget::getSingleFieldValue(int row, int) const
{
    return (*static_cast<SoMFString*>(m_field))[row];
}

bool DvMFStringWidget::writeElement(int row, const SbString& text)
{
    // Beyond the end the new elements are empty first, whatever was left in their memory.
    if (row >= m_field->getNum())
        insertElements(m_field, row, 1);
    if (row >= m_field->getNum())
        return false;
    static_cast<SoMFString*>(m_field)->set1Value(row, text);
    return true;
}
