#include "FieldEditors/DvIntSlider.h"

#include <limits>

DvIntSlider::DvIntSlider(SliderType type, SliderParentType parentType, KlvFieldEditors* owner,
                         QWidget* parent, int row, int column)
    : DvIntegerSlider(type == Int16 ? std::numeric_limits<short>::min() : std::numeric_limits<int>::min(),
                      type == Int16 ? std::numeric_limits<short>::max() : std::numeric_limits<int>::max(),
                      parentType, owner, parent, row, column)
{
}

DvIntSlider::~DvIntSlider() = default;
