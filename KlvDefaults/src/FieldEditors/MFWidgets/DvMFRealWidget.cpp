#include "FieldEditors/MFWidgets/DvMFRealWidget.h"

#include "FieldEditors/DvRangeSettings.h"

#include <Inventor/fields/SoField.h>

DvMFRealWidget::DvMFRealWidget(SoType kind, const char* kindName, CellType cellType, const char* rangeName,
                               const char* name)
    : DvMFLineWidget(kind, kindName, cellType, name)
    , m_rangeName(rangeName)
{
}

DvMFRealWidget::~DvMFRealWidget() = default;

bool DvMFRealWidget::checkField(SoField* field)
{
    if (!DvMFLineWidget::checkField(field))
        return false;
    m_rangeComponent = DvRangeSettings().getRealRange(field->getContainer(), m_rangeName);
    initClass();
    return true;
}

void DvMFRealWidget::initClass()
{
    DvMFLineWidget::initClass();
    m_table->setDoubleEditorRange(getMin(), getMax());
    m_table->setBoundedValue(m_rangeComponent.isBoundFixed());
}
