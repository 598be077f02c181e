#pragma once

#include "FieldEditors/SFWidgets/DvSFSliderEditor.h"

/// The editor of fields that hold signed 32-bit integers.
class DvSFInt32Widget : public DvSFSliderEditor<SoSFInt32>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFInt32Widget".
    explicit DvSFInt32Widget(const char* name);
    ~DvSFInt32Widget() override;
};
