#include "FieldEditors/MFWidgets/DvMFColumnWidget.h"

#include "FieldEditors/KlvMFSetValueCommand.h"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoMField.h>

DvMFColumnWidget::DvMFColumnWidget(SoType kind, const char* kindName, CellType cellType, const char* name)
    : DvMFieldWidget(name)
    , m_cellType(cellType)
{
    m_handledType = kind;
    m_handledTypeName = kindName;
}

DvMFColumnWidget::~DvMFColumnWidget() = default;

void DvMFColumnWidget::load()
{
    if (m_handledTypeName.getLength() > 0)
        setFieldName(toUtf16(m_handledTypeName));
    DvMFieldWidget::load();
    initClass();
}

void DvMFColumnWidget::initClass()
{
    m_table->setSingleColumn();
    m_table->setCellType(m_cellType);
}

bool DvMFColumnWidget::checkField(SoField* field)
{
    return field && field->isOfType(m_handledType);
}

QString DvMFColumnWidget::getFieldValue(int row, int column) const
{
    return hasElement(row, column) ? toUtf16(getSingleFieldValue(row, column)) : QString();
}

bool DvMFColumnWidget::hasElement(int row, int column) const
{
    return m_field && column == 0 && row >= 0 && row < m_field->getNum();
}

void DvMFColumnWidget::set1Value(int row, int column, QString text)
{
    if (!m_field || row < 0 || column != 0)
        return;
    const SbString string = fromUtf16(text);
    if (!hasElement(row, column) || string != getSingleFieldValue(row, column))
        setSingleFieldValue(string, row, column);
}

void DvMFColumnWidget::swapRows(int row1, int row2)
{
    if (m_field)
        swapElements(m_field, row1, row2);
}

SbString DvMFColumnWidget::getSingleFieldValue(int row, int) const
{
    return getElementText(m_field, row);
}

void DvMFColumnWidget::setSingleFieldValue(SbString text, int row, int)
{
    const KlvEditScope scope(m_field, row, 1);
    if (!writeElement(row, text))
        return;
    SbString previous = fromLatin1(QByteArray());
    KlvServices::getInstance()->pushCommand(new KlvMFSetValueCommand(m_field, row, previous));
}

bool DvMFColumnWidget::writeElement(int row, const SbString& text)
{
    return setElementFromText(m_field, row, text);
}
