#pragma once

#include "FieldEditors/SFWidgets/DvSF2iSpinBox.h"
#include "FieldEditors/SFWidgets/DvSFVectorWidget.h"

#include <Inventor/fields/SoSFVec2s.h>

/// The editor of fields of two 16-bit integers.
class DvSFVec2sWidget : public DvSFVectorWidget<DvSF2iSpinBox, SoSFVec2s>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFVec2sWidget".
    explicit DvSFVec2sWidget(const char* name);

    ~DvSFVec2sWidget() override;
};
