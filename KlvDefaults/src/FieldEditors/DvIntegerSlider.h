#pragma once

#include "FieldEditors/DvSlider.h"

/// What the slider frames for signed and unsigned integers share. The range of the slider is the range of
/// values, one step per integer; ranges that reach beyond a slider's positions have two integers per step.
///
/// A range that is not fixed grows to take the values that are shown or typed, up to the limits of the kind.
template <typename Value, typename Validator>
class DvIntegerSlider : public DvSlider
{
public:
    /// Sets the range, fixed or to begin with; it is cut to the limits of the kind. Bounds in the wrong order
    /// are exchanged.
    void setValidLimits(Value min, Value max, bool boundFixed);
    /// Set one bound of a range that is not fixed. The other moves along where it has to.
    void setBottom(Value min);
    void setTop(Value max);

    /// Shows a value. The first text decides on the number base for good: hexadecimal for "0x" and something
    /// behind it, octal for a zero and one more character, else decimal, with only decimal text validated. A
    /// text that is no number gives 0.
    void setValue(QString text) override;
    /// The value: shown, typed or chosen with the slider.
    Value getIntValue() const { return m_value; }

    void updateEdit() override;
    void setValueFromEdit() override;
    void setValueFromSlider(int position) override;

protected:
    /// A frame for integers from `lowest` to `highest`.
    DvIntegerSlider(Value lowest, Value highest, SliderParentType parentType, KlvFieldEditors* owner,
                    QWidget* parent, int row, int column);
    ~DvIntegerSlider() override;

private:
    void applyRange();
    int toPosition(Value value) const;

    const Value m_lowest;
    const Value m_highest;
    Value m_minimum = 0;
    Value m_maximum = 0;
    Value m_value = 0;
    /// 1 when there are two integers per step.
    int m_shift = 0;
    Validator* m_validator;
    bool m_boundFixed = false;
    bool m_firstValue = true;
};
