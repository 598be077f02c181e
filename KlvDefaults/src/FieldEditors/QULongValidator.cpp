#include "FieldEditors/QULongValidator.h"

QULongValidator::QULongValidator(QObject* parent)
    : DvUnsignedValidator(parent)
{
}
