#pragma once

#include "FieldEditors/DvIntegerSlider.h"

class QIntValidator;

/// The slider frame for signed integers: 16-bit ones for the type `Int16`, else 32-bit ones.
class DvIntSlider : public DvIntegerSlider<int, QIntValidator>
{
    Q_OBJECT

public:
    DvIntSlider(SliderType type, SliderParentType parentType, KlvFieldEditors* owner, QWidget* parent,
                int row, int column);
    ~DvIntSlider() override;
};
