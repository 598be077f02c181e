#include "FieldKind.h"

#include "ImageFieldKind.h"
#include "NamedFieldKind.h"
#include "NumericFieldKind.h"
#include "OtherFieldKind.h"
#include "ReferenceFieldKind.h"
#include "StringFieldKind.h"

#include <memory>
#include <unordered_map>

namespace {

using FieldKinds = std::unordered_map<int, std::unique_ptr<const FieldKind>>;

template <template <class> class Kind, class... Fields>
void addKinds(FieldKinds& kinds, FieldClasses<Fields...>)
{
    (kinds.emplace(Fields::getClassTypeId().getKey(), std::make_unique<Kind<Fields>>()), ...);
}

FieldKinds makeKinds()
{
    FieldKinds kinds;
    addKinds<NumericFieldKind>(kinds, NumericFields());
    addKinds<NamedFieldKind>(
        kinds, FieldClasses<SoSFBool, SoSFEnum, SoSFBitMask, SoMFBool, SoMFEnum, SoMFBitMask>());
    addKinds<StringFieldKind>(kinds, FieldClasses<SoSFString, SoSFName, SoMFString, SoMFName>());
    addKinds<ReferenceFieldKind>(
        kinds, FieldClasses<SoSFNode, SoSFEngine, SoSFPath, SoMFNode, SoMFEngine, SoMFPath>());
    kinds.emplace(SoSFImage::getClassTypeId().getKey(),
                  std::make_unique<ImageFieldKind<SoSFImage, SbVec2s, 2>>());
    kinds.emplace(SoSFImage3::getClassTypeId().getKey(),
                  std::make_unique<ImageFieldKind<SoSFImage3, SbVec3s, 3>>());
    return kinds;
}

bool isSame(std::string_view text, const SbString& string)
{
    return text == std::string_view(string.getString(), static_cast<std::size_t>(string.getLength()));
}

} // namespace

const FieldKind& FieldKind::of(const SoField& field)
{
    static const OtherFieldKind other;
    const FieldKind* kind = find(field.getTypeId());
    return kind ? *kind : other;
}

const FieldKind* FieldKind::find(SoType type)
{
    static const FieldKinds kinds = makeKinds();
    const auto found = kinds.find(type.getKey());
    return found != kinds.end() ? found->second.get() : nullptr;
}

bool FieldKind::setElement(SoMField&, int, std::string_view) const
{
    return false;
}

void FieldKind::insertElements(SoMField& field, int first, int count) const
{
    field.insertSpace(first, count);
}

bool FieldKind::isPresentText(SoField& field, std::string_view text)
{
    SbString present;
    field.get(present);
    return isSame(text, present);
}

bool FieldKind::isPresentText(SoMField& field, int index, std::string_view text)
{
    SbString present;
    if (index < field.getNum())
        field.get1(index, present);
    return index < field.getNum() && isSame(text, present);
}

void FieldKind::growTo(SoMField& field, int index) const
{
    const int count = field.getNum();
    if (index >= count)
        insertElements(field, count, index + 1 - count);
}
