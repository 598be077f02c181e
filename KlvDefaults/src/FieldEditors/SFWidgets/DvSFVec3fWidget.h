#pragma once

#include "FieldEditors/SFWidgets/DvSFFloatColumns.h"
#include "FieldEditors/SFWidgets/DvSFVectorWidget.h"

#include <Inventor/fields/SoSFVec3f.h>

/// The editor of fields of three single-precision numbers.
class DvSFVec3fWidget : public DvSFVectorWidget<DvSFFloatColumns, SoSFVec3f>
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFVec3fWidget".
    explicit DvSFVec3fWidget(const char* name);

    ~DvSFVec3fWidget() override;
};
