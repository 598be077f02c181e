#pragma once

#include "FieldEditors/DvIntegerSlider.h"

class QUIntValidator;

/// The slider frame for unsigned integers: 16-bit ones for the type `UInt16`, else 32-bit ones.
class DvUIntSlider : public DvIntegerSlider<unsigned int, QUIntValidator>
{
    Q_OBJECT

public:
    DvUIntSlider(SliderType type, SliderParentType parentType, KlvFieldEditors* owner, QWidget* parent,
                 int row, int column);
    ~DvUIntSlider() override;
};
