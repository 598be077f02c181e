#pragma once

#include "FieldEditors/DvIntSlider.h"
#include "FieldEditors/DvRealSlider.h"
#include "FieldEditors/DvUIntSlider.h"
#include "FieldEditors/SFWidgets/DvSFSliderWidget.h"

#include <Inventor/fields/SoSFDouble.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFInt32.h>
#include <Inventor/fields/SoSFShort.h>
#include <Inventor/fields/SoSFUInt32.h>
#include <Inventor/fields/SoSFUShort.h>

#include <cstring>
#include <type_traits>

/// The editor of the number fields of one kind; a leaf class for each kind gives it its meta-object.
template <typename Field>
class DvSFSliderEditor : public DvSFSliderWidget
{
protected:
    DvSFSliderEditor(const Kind& kind, const char* name)
        : DvSFSliderWidget(Field::getClassTypeId(), kind, name)
    {
    }

    void showRange() override
    {
        const DvRangeComponent& range = m_rangeComponent;
        if constexpr (std::is_same_v<Field, SoSFFloat>)
            slider()->setValidLimits(range.getfMin(), range.getfMax(), range.isBoundFixed());
        else if constexpr (std::is_same_v<Field, SoSFDouble>)
            slider()->setValidLimits(range.getdMin(), range.getdMax(), range.isBoundFixed());
        else
            slider()->setValidLimits(range.getiMin(), range.getiMax(), range.isBoundFixed());
    }

    void showValue() override
    {
        if constexpr (isReal)
            slider()->setRealValue(field()->getValue());
        else
            slider()->setValue(QString::number(field()->getValue()));
    }

    void writeValue() override
    {
        Value value;
        if constexpr (isReal)
            value = static_cast<Value>(slider()->getRealValue());
        else
            value = static_cast<Value>(slider()->getIntValue());
        const Value present = field()->getValue();
        // Bits, for the sake of NaN and of negative zero.
        if (std::memcmp(&value, &present, sizeof(Value)) != 0)
            field()->setValue(value);
    }

private:
    using Value = std::remove_cvref_t<decltype(std::declval<const Field&>().getValue())>;
    static constexpr bool isReal = std::is_floating_point_v<Value>;
    using Slider = std::conditional_t<isReal, DvRealSlider,
                                      std::conditional_t<std::is_signed_v<Value>, DvIntSlider, DvUIntSlider>>;

    Field* field() const { return static_cast<Field*>(m_field); }
    Slider* slider() const { return static_cast<Slider*>(m_editionFrame); }
};
