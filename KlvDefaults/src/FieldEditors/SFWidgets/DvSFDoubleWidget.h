#pragma once

#include "FieldEditors/SFWidgets/DvSFSliderEditor.h"

/// The editor of fields that hold double-precision numbers.
class DvSFDoubleWidget : public DvSFSliderEditor<SoSFDouble>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFDoubleWidget".
    explicit DvSFDoubleWidget(const char* name);
    ~DvSFDoubleWidget() override;
};
