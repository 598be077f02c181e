#include "OtherFieldKind.h"

#include "FieldAccess.h"
#include "FieldBits.h"
#include "FieldChange.h"
#include "ReadErrorSilencer.h"
#include "TextScanner.h"

#include <Inventor/SoInput.h>
#include <Inventor/fields/SoMFEnum.h>
#include <Inventor/fields/SoSFEnum.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

/// Enumerations need their table to read a text, and copying a field does not always copy it.
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

/// A field of the type with the value that the text stands for, or null.
std::unique_ptr<SoField> readScratch(const SoField& field, std::string_view text)
{
    if (!field.getTypeId().canCreateInstance())
        return nullptr;
    std::unique_ptr<SoField> scratch(static_cast<SoField*>(field.getTypeId().createInstance()));
    copyTable<SoSFEnum>(*scratch, field);
    copyTable<SoMFEnum>(*scratch, field);

    const ReadErrorSilencer silencer;
    std::string buffer(1, ' ');
    buffer.append(text).append(1, '\n');
    SoInput in;
    in.setBuffer(buffer.data(), buffer.size());
    char next = '\0';
    if (!FieldAccess::readValue(*scratch, in) || in.read(next))
        return nullptr;
    return scratch;
}

} // namespace

bool OtherFieldKind::setValue(SoField& field, std::string_view text) const
{
    if (const auto scratch = readScratch(field, text)) {
        copyFieldValue(field, *scratch);
        return true;
    }
    if (!isPresentText(field, text))
        return false;
    const FieldChange change(field);
    return true;
}

bool OtherFieldKind::setElement(SoMField& field, int index, std::string_view text) const
{
    const auto scratch = readScratch(field, text);
    if (!scratch || static_cast<SoMField&>(*scratch).getNum() != 1 || TextScanner(text).take('['))
        return false;
    if (!canHold(field, std::int64_t(index) + 1))
        return false;
    const int count = field.getNum();
    const FieldChange change(field, std::min(index, count), std::max(index - count, 0) + 1);
    const ReadErrorSilencer silencer;
    growTo(field, index);
    return field.set1(index, (std::string(text) + "\n").c_str());
}

void OtherFieldKind::insertElements(SoMField& field, int first, int count) const
{
    for (SoType type = field.getTypeId(); !type.isBad(); type = type.getParent())
        if (const FieldKind* kind = find(type))
            return kind->insertElements(field, first, count);
    FieldKind::insertElements(field, first, count);
}
