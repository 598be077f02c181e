#include "FieldEditors/QUIntValidator.h"

QUIntValidator::QUIntValidator(QObject* parent)
    : QValidator(parent)
{
}

void QUIntValidator::setRange(unsigned int bottom, unsigned int top)
{
    m_bottom = bottom;
    m_top = top;
}

QValidator::State QUIntValidator::validate(QString& text, int&) const
{
    if (text.isEmpty())
        return Acceptable;
    bool isNumber = false;
    const unsigned int number = text.toUInt(&isNumber);
    if (!isNumber)
        return Invalid;
    return number < m_bottom || number > m_top ? Intermediate : Acceptable;
}
