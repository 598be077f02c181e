#include "FieldEditors/SFWidgets/DvSF4fBox.h"

DvSF4fBox::DvSF4fBox(SoType kind, const char* kindName, const QStringList& captions, const char* name)
    : DvSFFloatColumns(
          kind, kindName,
          {"SF4FvLayout", "SF4flabel", "SF4fine", "SF4fBoxVSpacing", "SF4fBoxHSpacing", "SF4fBoxHMargin"},
          captions, name)
{
}

DvSF4fBox::~DvSF4fBox() = default;
