#include "OtherFieldKind.h"

#include "FieldAccess.h"
#include "FieldBits.h"
#include "FieldChange.h"
#include "ReadErrorSilencer.h"
#include "TextScanner.h"

#include <Inventor/SoInput.h>
#include <Inventor/fields/SoMField.h>

#include <algorithm>
#include <memory>
#include <string>

namespace {

/// A field of the type with the value that the text stands for, or null.
std::unique_ptr<SoField> readScratch(const SoField& field, std::string_view text)
{
    if (!field.getTypeId().canCreateInstance())
        return nullptr;
    std::unique_ptr<SoField> scratch(static_cast<SoField*>(field.getTypeId().createInstance()));
    FieldAccess::copyEnumTable(*scratch, field);

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
