#include "FieldAccess.h"

#include <Inventor/SoInput.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/misc/SoNotRec.h>

namespace {

// Pointers to protected members can be formed through a derived class only.
struct FieldMembers : SoField
{
    static constexpr auto changed() { return &FieldMembers::valueChanged; }
    static constexpr auto read() { return &FieldMembers::readValue; }
};

struct MultiFieldMembers : SoMField
{
    static constexpr auto setIndices() { return &MultiFieldMembers::setChangedIndices; }
    static constexpr auto notRec() { return &MultiFieldMembers::createNotRec; }
    static constexpr auto size() { return &MultiFieldMembers::fieldSizeof; }
};

} // namespace

void FieldAccess::notifyChanged(SoField& field)
{
    (field.*FieldMembers::changed())(TRUE);
}

void FieldAccess::setChangedElements(SoMField& field, int first, int count)
{
    (field.*MultiFieldMembers::setIndices())(first, count);
}

std::pair<int, int> FieldAccess::changedElements(SoMField& field)
{
    const SoNotRec record = (field.*MultiFieldMembers::notRec())(nullptr);
    return {record.getIndex(), record.getFieldNumIndices()};
}

int FieldAccess::elementSize(const SoMField& field)
{
    return (field.*MultiFieldMembers::size())();
}

bool FieldAccess::readValue(SoField& field, SoInput& in)
{
    return (field.*FieldMembers::read())(&in);
}
