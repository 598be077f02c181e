#pragma once

#include "FieldEditors/MFWidgets/DvMFLineWidget.h"

/// The editor of fields that hold unsigned 16-bit integers.
class DvMFUShortWidget : public DvMFLineWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFUShortWidget".
    explicit DvMFUShortWidget(const char* name);
    ~DvMFUShortWidget() override;
};
