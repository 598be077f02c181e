#pragma once

#include "FieldEditors/SFWidgets/DvSFSliderEditor.h"

/// The editor of fields that hold signed 16-bit integers.
class DvSFShortWidget : public DvSFSliderEditor<SoSFShort>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFShortWidget".
    explicit DvSFShortWidget(const char* name);
    ~DvSFShortWidget() override;
};
