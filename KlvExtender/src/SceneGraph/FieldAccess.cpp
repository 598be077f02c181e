#include "FieldAccess.h"

#include <Inventor/SoInput.h>
#include <Inventor/fields/SoMFEnum.h>
#include <Inventor/fields/SoSFEnum.h>
#include <Inventor/misc/SoNotRec.h>

#include <vector>

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

template <class EnumField>
void copyTable(SoField& target, const SoField& source)
{
    if (!source.isOfType(EnumField::getClassTypeId()))
        return;
    const auto& from = static_cast<const EnumField&>(source);
    if (!FieldAccess::takesNamesOnly(from))
        return;
    std::vector<SbName> names(static_cast<std::size_t>(from.getNumEnums()));
    std::vector<int> values;
    for (int i = 0; i < from.getNumEnums(); ++i)
        values.push_back(from.getEnum(i, names[static_cast<std::size_t>(i)]));
    static_cast<EnumField&>(target).setEnums(from.getNumEnums(), values.data(), names.data());
}

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

void FieldAccess::copyEnumTable(SoField& target, const SoField& source)
{
    copyTable<SoSFEnum>(target, source);
    copyTable<SoMFEnum>(target, source);
}
