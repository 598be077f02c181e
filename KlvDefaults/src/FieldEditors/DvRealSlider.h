#pragma once

#include "FieldEditors/DvSlider.h"

class DvRealValidator;

/// The slider frame for real numbers. The slider has the positions 0 to 100 whatever the range.
///
/// A range that is not fixed grows to take the finite values that are shown or typed. A fixed one brings what
/// is typed into its bounds; a value from elsewhere is shown as it is and stays until something is entered. A
/// fixed range of no width, which could hold but one value, restricts nothing. Without a width there is
/// nothing to choose with the slider, which is then disabled.
class DvRealSlider : public DvSlider
{
    Q_OBJECT

public:
    DvRealSlider(SliderParentType parentType, KlvFieldEditors* owner, QWidget* parent, bool isFloat, int row,
                 int column);
    ~DvRealSlider() override;

    /// Sets the range of the slider and, if fixed, of the values too. Bounds that are not finite change
    /// nothing, bounds in the wrong order are exchanged.
    void setValidLimits(double min, double max, bool boundFixed);
    /// Set one bound of a range that is not fixed. The other moves along where it has to.
    void setBottom(double min);
    void setTop(double max);

    /// Shows a value and moves the slider. Nothing is committed, and the value is kept to the bit.
    void setRealValue(double value);
    /// The value: shown, typed or chosen with the slider.
    double getRealValue() const { return m_value; }

    /// The position for a value, 0 in a range of no width and for NaN. Values outside the range give
    /// positions outside of 0 to 100.
    int sliderToInt(double value) const;
    /// The value at a position.
    double sliderToDouble(int position) const;

    void updateEdit() override;
    /// A text that is no number gives 0.
    void setValueFromEdit() override;
    void setValueFromSlider(int position) override;
    void saveDataFromField() override;

protected:
    bool isTextRounded() const override;

private:
    QString shownText() const;
    void takeValue(double value);
    void placeSlider();

    double m_minimum = 0;
    double m_maximum = 0;
    double m_value = 0;
    DvRealValidator* m_validator;
    bool m_boundFixed = false;
    bool m_isFloat;
    bool m_entered = false;
};
