#include "FieldEditors/QUIntValidator.h"

QUIntValidator::QUIntValidator(QObject* parent)
    : DvUnsignedValidator(parent)
{
}
