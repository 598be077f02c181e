#include "FieldEditors/DvIntegerSlider.h"

#include "FieldEditors/DvRangeSettings.h"
#include "FieldEditors/QUIntValidator.h"

#include <QIntValidator>
#include <QLineEdit>
#include <QLocale>
#include <QSlider>

#include <algorithm>
#include <limits>
#include <utility>

template <typename Value, typename Validator>
DvIntegerSlider<Value, Validator>::DvIntegerSlider(Value lowest, Value highest, SliderParentType parentType,
                                                   KlvFieldEditors* owner, QWidget* parent, int row,
                                                   int column)
    : DvSlider(parentType, owner, parent, row, column)
    , m_lowest(lowest)
    , m_highest(highest)
    , m_validator(new Validator(this))
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    m_validator->setLocale(locale);
    applyRange();
}

template <typename Value, typename Validator>
DvIntegerSlider<Value, Validator>::~DvIntegerSlider() = default;

template <typename Value, typename Validator>
void DvIntegerSlider<Value, Validator>::setValidLimits(Value min, Value max, bool boundFixed)
{
    if (max < min)
        std::swap(min, max);
    m_minimum = std::clamp(min, m_lowest, m_highest);
    m_maximum = std::clamp(max, m_lowest, m_highest);
    m_boundFixed = boundFixed;
    applyRange();
}

template <typename Value, typename Validator>
void DvIntegerSlider<Value, Validator>::setBottom(Value min)
{
    if (!m_boundFixed)
        setValidLimits(min, std::max(min, m_maximum), false);
}

template <typename Value, typename Validator>
void DvIntegerSlider<Value, Validator>::setTop(Value max)
{
    if (!m_boundFixed)
        setValidLimits(std::min(m_minimum, max), max, false);
}

template <typename Value, typename Validator>
void DvIntegerSlider<Value, Validator>::setValue(QString text)
{
    if (std::exchange(m_firstValue, false)) {
        m_base = DvRangeSettings::checkBase(text);
        if (m_base == 10)
            m_lineEdit->setValidator(m_validator);
    }
    setText(text);
    setValueFromEdit();
    updateEdit();
    updateSlider();
}

template <typename Value, typename Validator>
void DvIntegerSlider<Value, Validator>::updateEdit()
{
    setText(withPrefix(QString::number(m_value, m_base)));
}

template <typename Value, typename Validator>
void DvIntegerSlider<Value, Validator>::setValueFromEdit()
{
    bool isNumber = false;
    const qlonglong entered = m_lineEdit->text().toLongLong(&isNumber, m_base);
    const Value value = std::in_range<Value>(entered) ? static_cast<Value>(entered) : 0;
    const bool fixed = m_boundFixed;
    m_value = std::clamp(value, fixed ? m_minimum : m_lowest, fixed ? m_maximum : m_highest);
    if (m_value < m_minimum || m_value > m_maximum) {
        m_minimum = std::min(m_minimum, m_value);
        m_maximum = std::max(m_maximum, m_value);
        applyRange();
    }
    m_currentPosition = toPosition(m_value);
    if (!isNumber || m_value != entered)
        updateEdit();
}

template <typename Value, typename Validator>
void DvIntegerSlider<Value, Validator>::setValueFromSlider(int position)
{
    const qint64 value = qint64(position) << m_shift;
    m_value = static_cast<Value>(std::clamp<qint64>(value, m_minimum, m_maximum));
    // The last step of a range with two integers per step.
    if (position == m_slider->maximum())
        m_value = m_maximum;
    m_currentPosition = position;
}

template <typename Value, typename Validator>
void DvIntegerSlider<Value, Validator>::applyRange()
{
    const bool fixed = m_boundFixed;
    m_validator->setRange(fixed ? m_minimum : m_lowest, fixed ? m_maximum : m_highest);
    m_shift = std::in_range<int>(m_maximum) ? 0 : 1;
    m_currentPosition = toPosition(m_value);
    setPositions(toPosition(m_minimum), toPosition(m_maximum));
}

template <typename Value, typename Validator>
int DvIntegerSlider<Value, Validator>::toPosition(Value value) const
{
    return static_cast<int>(value >> m_shift);
}

template class DvIntegerSlider<int, QIntValidator>;
template class DvIntegerSlider<unsigned int, QUIntValidator>;
