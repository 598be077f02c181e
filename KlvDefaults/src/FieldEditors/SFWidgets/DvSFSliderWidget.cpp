#include "FieldEditors/SFWidgets/DvSFSliderWidget.h"

#include "FieldEditors/DvRangeSettings.h"
#include "FieldEditors/DvSlider.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoMaterial.h>

namespace {

bool hasFixedRange(const SoFieldContainer* container)
{
    return container && (container->isOfType(SoComplexity::getClassTypeId()) ||
                         container->isOfType(SoMaterial::getClassTypeId()) ||
                         container->isOfType(SoDirectionalLight::getClassTypeId()));
}

} // namespace

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
    if (field)
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
    // The field's own name does not count: all numbers of such a node share one range, which has no bounds
    // for doubles.
    const DvRangeSettings settings;
    m_rangeComponent = m_kind.nodesHaveRanges && hasFixedRange(container)
                           ? settings.getFieldRange("Complexity", "value")
                           : settings.getFieldRange("DefaultNode", m_kind.rangeName);
    showRange();
}
