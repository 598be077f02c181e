#pragma once

#include "FieldEditors/SFWidgets/DvSFSliderEditor.h"

/// The editor of fields that hold unsigned 16-bit integers.
class DvSFUShortWidget : public DvSFSliderEditor<SoSFUShort>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFUShortWidget".
    explicit DvSFUShortWidget(const char* name);
    ~DvSFUShortWidget() override;
};
