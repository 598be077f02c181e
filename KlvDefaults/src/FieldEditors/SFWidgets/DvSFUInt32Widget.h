#pragma once

#include "FieldEditors/SFWidgets/DvSFSliderEditor.h"

/// The editor of fields that hold unsigned 32-bit integers.
class DvSFUInt32Widget : public DvSFSliderEditor<SoSFUInt32>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFUInt32Widget".
    explicit DvSFUInt32Widget(const char* name);
    ~DvSFUInt32Widget() override;
};
