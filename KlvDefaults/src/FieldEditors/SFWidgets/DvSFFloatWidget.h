#pragma once

#include "FieldEditors/SFWidgets/DvSFSliderEditor.h"

/// The editor of fields that hold single-precision numbers.
class DvSFFloatWidget : public DvSFSliderEditor<SoSFFloat>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFFloatWidget".
    explicit DvSFFloatWidget(const char* name);
    ~DvSFFloatWidget() override;
};
