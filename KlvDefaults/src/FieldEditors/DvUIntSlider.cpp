#include "FieldEditors/DvUIntSlider.h"

#include <limits>

DvUIntSlider::DvUIntSlider(SliderType type, SliderParentType parentType, KlvFieldEditors* owner,
                           QWidget* parent, int row, int column)
    : DvIntegerSlider(0,
                      type == UInt16 ? std::numeric_limits<unsigned short>::max()
                                     : std::numeric_limits<unsigned int>::max(),
                      parentType, owner, parent, row, column)
{
}

DvUIntSlider::~DvUIntSlider() = default;
