#pragma once

#include "FieldEditors/MFWidgets/DvMFLineWidget.h"

/// The editor of fields that hold unsigned 32-bit integers.
class DvMFUInt32Widget : public DvMFLineWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFUInt32Widget".
    explicit DvMFUInt32Widget(const char* name);
    ~DvMFUInt32Widget() override;
};
