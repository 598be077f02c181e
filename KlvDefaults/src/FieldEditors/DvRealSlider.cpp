#include "FieldEditors/DvRealSlider.h"

#include "FieldEditors/DvPastedNumber.h"
#include "FieldEditors/DvRealValidator.h"

#include <QLineEdit>
#include <QSlider>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Differences of doubles may overflow; this far down, and times 100, they cannot.
constexpr double Scale = 1.0 / 256;

} // namespace

DvRealSlider::DvRealSlider(SliderParentType parentType, KlvFieldEditors* owner, QWidget* parent, bool isFloat,
                           int row, int column)
    : DvSlider(parentType, owner, parent, row, column)
    , m_validator(new DvRealValidator(isFloat ? DvRealValidator::Float : DvRealValidator::Double, this))
    , m_isFloat(isFloat)
{
    m_lineEdit->setValidator(m_validator);
    DvPastedNumber::install(m_lineEdit);
    setPositions(0, 100);
}

DvRealSlider::~DvRealSlider() = default;

void DvRealSlider::setValidLimits(double min, double max, bool boundFixed)
{
    if (!std::isfinite(min) || !std::isfinite(max))
        return;
    m_boundFixed = boundFixed;
    m_minimum = std::min(min, max);
    m_maximum = std::max(min, max);
    m_validator->resetRange();
    if (boundFixed)
        m_validator->setRange(m_minimum, m_maximum, m_validator->decimals());
    m_validator->setOutsideAccepted(boundFixed);
    placeSlider();
    updateSlider();
}

void DvRealSlider::setBottom(double min)
{
    if (!m_boundFixed)
        setValidLimits(min, std::max(min, m_maximum), false);
}

void DvRealSlider::setTop(double max)
{
    if (!m_boundFixed)
        setValidLimits(std::min(m_minimum, max), max, false);
}

void DvRealSlider::setRealValue(double value)
{
    m_entered = false;
    takeValue(value);
    updateEdit();
    updateSlider();
}

int DvRealSlider::sliderToInt(double value) const
{
    const double minimum = m_minimum * Scale;
    const double span = m_maximum * Scale - minimum;
    if (!(span > 0) || std::isnan(value))
        return 0;
    const double position = (value * Scale - minimum) * 100 / span + 0.5;
    constexpr double lowest = std::numeric_limits<int>::lowest();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(position, lowest, highest));
}

double DvRealSlider::sliderToDouble(int position) const
{
    const double minimum = m_minimum * Scale;
    const double value = position * (m_maximum * Scale - minimum) / 100 + minimum;
    constexpr double highest = std::numeric_limits<double>::max() * Scale;
    return std::clamp(value, -highest, highest) / Scale;
}

void DvRealSlider::updateEdit()
{
    setText(shownText());
}

void DvRealSlider::setValueFromEdit()
{
    const QString text = m_lineEdit->text();
    // The text that is shown stands for all digits of the value.
    if (text == shownText())
        return;
    m_entered = true;
    const double value = text.toDouble();
    const bool bounded = m_boundFixed && m_minimum < m_maximum;
    takeValue(bounded ? std::clamp(value, m_minimum, m_maximum) : value);
    if (m_value != value)
        updateEdit();
}

void DvRealSlider::setValueFromSlider(int position)
{
    m_entered = true;
    takeValue(std::clamp(sliderToDouble(position), m_minimum, m_maximum));
    m_currentPosition = position;
}

void DvRealSlider::saveDataFromField()
{
    updateEdit();
}

bool DvRealSlider::isTextRounded() const
{
    const double value = shownText().toDouble();
    return !m_entered && !(m_isFloat ? float(value) == float(m_value) : value == m_value);
}

QString DvRealSlider::shownText() const
{
    return m_isFloat ? QString::number(m_value, 'f', 6) : QString::number(m_value, 'g', 15);
}

void DvRealSlider::takeValue(double value)
{
    constexpr double lowest = std::numeric_limits<float>::lowest();
    constexpr double highest = std::numeric_limits<float>::max();
    const bool finite = std::isfinite(value);
    m_value = m_isFloat && finite ? std::clamp(value, lowest, highest) : value;
    if (!m_boundFixed && finite) {
        m_minimum = std::min(m_minimum, m_value);
        m_maximum = std::max(m_maximum, m_value);
    }
    placeSlider();
}

void DvRealSlider::placeSlider()
{
    m_currentPosition = std::clamp(sliderToInt(m_value), 0, 100);
    m_slider->setEnabled(m_minimum < m_maximum);
}
