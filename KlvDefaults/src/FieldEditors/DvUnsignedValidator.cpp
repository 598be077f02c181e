#include "FieldEditors/DvUnsignedValidator.h"

template <typename Bound>
void DvUnsignedValidator<Bound>::setRange(Bound bottom, Bound top)
{
    m_bottom = bottom;
    m_top = top;
}

template <typename Bound>
QValidator::State DvUnsignedValidator<Bound>::validate(QString& text, int&) const
{
    if (text.isEmpty())
        return Acceptable;
    bool isNumber = false;
    const unsigned int number = text.toUInt(&isNumber);
    if (!isNumber)
        return Invalid;
    return number < m_bottom || number > m_top ? Intermediate : Acceptable;
}

template class DvUnsignedValidator<unsigned int>;
template class DvUnsignedValidator<quint64>;
