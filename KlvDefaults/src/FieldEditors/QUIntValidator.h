#pragma once

#include "FieldEditors/DvUnsignedValidator.h"

/// Validator for unsigned 32-bit integers in base 10.
class QUIntValidator : public DvUnsignedValidator<unsigned int>
{
    Q_OBJECT

public:
    explicit QUIntValidator(QObject* parent = nullptr);
};
