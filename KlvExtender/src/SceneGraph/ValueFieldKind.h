#pragma once

#include "FieldChange.h"
#include "FieldKind.h"
#include "FieldLimits.h"
#include "NumericFields.h"

#include <algorithm>
#include <vector>

/// A kind whose values are read completely before the field is touched, and set with the field's own typed
/// setter.
template <class Field>
class ValueFieldKind : public FieldKind
{
public:
    using Element = FieldElement<Field>;

    bool setValue(SoField& base, std::string_view text) const override
    {
        auto& field = static_cast<Field&>(base);
        std::vector<Element> values;
        if (!readValues(field, text, values))
            return false;
        if constexpr (isMultiField<Field>) {
            if (!canHold(field, static_cast<std::int64_t>(values.size())) ||
                (values.empty() && field.getNum() > 0 && !FieldLimits::canBeEmpty(field)))
                return false;
            const FieldChange change(field);
            field.setNum(static_cast<int>(values.size()));
            field.setValues(0, static_cast<int>(values.size()), values.data());
        } else {
            if constexpr (std::is_integral_v<Element>)
                if (values.front() == 0 && !FieldLimits::canBeZero(field))
                    return false;
            const FieldChange change(field);
            field.setValue(values.front());
        }
        return true;
    }

    bool setElement(SoMField& base, int index, std::string_view text) const override
    {
        if constexpr (isMultiField<Field>) {
            auto& field = static_cast<Field&>(base);
            Element value;
            if (!readElement(field, index, text, value) || !canHold(field, std::int64_t(index) + 1))
                return false;
            const int count = field.getNum();
            const FieldChange change(field, std::min(index, count), std::max(index - count, 0) + 1);
            growTo(field, index);
            field.set1Value(index, value);
            return true;
        } else {
            return FieldKind::setElement(base, index, text);
        }
    }

    void insertElements(SoMField& base, int first, int count) const override
    {
        if constexpr (isMultiField<Field>) {
            auto& field = static_cast<Field&>(base);
            field.insertSpace(first, count);
            std::fill_n(field.startEditing() + first, count, neutral(field));
        } else {
            FieldKind::insertElements(base, first, count);
        }
    }

protected:
    /// Reads a whole value; exactly one element for a single-value field.
    virtual bool readValues(Field& field, std::string_view text, std::vector<Element>& values) const = 0;
    /// Reads one element of a multi-value field; the index may be beyond its end.
    virtual bool readElement(Field& field, int index, std::string_view text, Element& value) const = 0;
    virtual Element neutral(const Field& field) const = 0;
};
