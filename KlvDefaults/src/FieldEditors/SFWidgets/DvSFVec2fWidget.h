#pragma once

#include "FieldEditors/SFWidgets/DvSFFloatColumns.h"
#include "FieldEditors/SFWidgets/DvSFVectorWidget.h"

#include <Inventor/fields/SoSFVec2f.h>

/// The editor of fields of two single-precision numbers.
class DvSFVec2fWidget : public DvSFVectorWidget<DvSFFloatColumns, SoSFVec2f>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFVec2fWidget".
    explicit DvSFVec2fWidget(const char* name);

    ~DvSFVec2fWidget() override;
};
