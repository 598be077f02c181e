#pragma once

#include "FieldEditors/SFWidgets/DvSF2iSpinBox.h"
#include "FieldEditors/SFWidgets/DvSFVectorWidget.h"

#include <Inventor/fields/SoSFVec2i32.h>

/// The editor of fields of two 32-bit integers.
class DvSFVec2i32Widget : public DvSFVectorWidget<DvSF2iSpinBox, SoSFVec2i32>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFVec2i32Widget".
    explicit DvSFVec2i32Widget(const char* name);

    ~DvSFVec2i32Widget() override;
};
