#include "FieldEditors/SFWidgets/DvSFSliderWidget.h"

#include "FieldEditors/DvRangeSettings.h"
#include "FieldEditors/DvSlider.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoField.h>

DvSFSliderWidget::DvSFSliderWidget(SoType type, const Kind& kind, const char* name)
    : DvSFieldWidget(kind.frameType, name)
    , m_kind(kind)
{
    m_handledType = type;
    m_handledTypeName = kind.name;
}

DvSFSliderWidget::~DvSFSliderWidget() = default;

void DvSFSliderWidget::load()
{
    setFieldName(toUtf16(m_handledTypeName));
    DvSFieldWidget::load();
    takeRange(nullptr);
}

void DvSFSliderWidget::setField(SoField* field)
{
    if (field && getWidget())
        takeRange(field->getContainer());
    DvSFieldWidget::setField(field);
}

void DvSFSliderWidget::refresh()
{
    const bool typing = takeEcho() && edited();
    if (m_field && !typing)
        showValue();
    DvSFieldWidget::refresh();
}

bool DvSFSliderWidget::edited()
{
    return static_cast<DvSlider*>(m_editionFrame)->isEdited();
}

void DvSFSliderWidget::applyChanges()
{
    if (!m_field)
        return;
    writeValue();
    recordValue();
    expectEcho();
    // Another spelling of the value that the field has already.
    if (!isRefreshPending())
        refresh();
}

void DvSFSliderWidget::takeRange(SoFieldContainer* container)
{
    const DvRangeSettings settings;
    m_rangeComponent = m_kind.nodesHaveRanges ? settings.getRealRange(container, m_kind.rangeName)
                                              : settings.getFieldRange("DefaultNode", m_kind.rangeName);
    showRange();
}
