#pragma once

#include "FieldEditors/MFWidgets/DvMFLineWidget.h"

/// The editor of fields that hold signed 16-bit integers.
class DvMFShortWidget : public DvMFLineWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFShortWidget".
    explicit DvMFShortWidget(const char* name);
    ~DvMFShortWidget() override;
};
