#pragma once

#include "FieldEditors/MFWidgets/DvMFLineWidget.h"

/// The editor of fields that hold signed 32-bit integers.
class DvMFInt32Widget : public DvMFLineWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFInt32Widget".
    explicit DvMFInt32Widget(const char* name);
    ~DvMFInt32Widget() override;
};
