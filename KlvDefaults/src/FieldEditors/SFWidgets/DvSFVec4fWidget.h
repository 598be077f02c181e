#pragma once

#include "FieldEditors/SFWidgets/DvSF4fBox.h"
#include "FieldEditors/SFWidgets/DvSFVectorWidget.h"

#include <Inventor/fields/SoSFVec4f.h>

/// The editor of fields of four single-precision numbers.
class DvSFVec4fWidget : public DvSFVectorWidget<DvSF4fBox, SoSFVec4f>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFVec4fWidget".
    explicit DvSFVec4fWidget(const char* name);

    ~DvSFVec4fWidget() override;
};
