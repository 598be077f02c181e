#pragma once

#include "FieldEditors/DvUnsignedValidator.h"

/// Validator for unsigned integers in base 10 with 64-bit bounds. Kept: numbers that need more than 32 bits
/// are invalid all the same.
class QULongValidator : public DvUnsignedValidator<quint64>
{
    Q_OBJECT

public:
    explicit QULongValidator(QObject* parent = nullptr);
};
