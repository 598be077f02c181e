#pragma once

#include "FieldEditors/SFWidgets/DvSFFloatColumns.h"

/// Base of the editors of values with four single-precision components.
class DvSF4fBox : public DvSFFloatColumns
{
    Q_OBJECT

public:
    ~DvSF4fBox() override;

protected:
    /// The editor of the fields of a kind, with four captions. `name` becomes the object name.
    DvSF4fBox(SoType kind, const char* kindName, const QStringList& captions, const char* name);
};
