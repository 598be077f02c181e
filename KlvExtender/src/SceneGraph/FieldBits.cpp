#include "FieldBits.h"

#include "FieldChange.h"
#include "NumericFields.h"

#include <cstring>
#include <numeric>
#include <unordered_map>

namespace {

struct FieldBitsRow
{
    bool (*identical)(const SoField& a, const SoField& b);
    std::size_t (*byteSize)(const SoField& field);
    void (*copy)(SoField& target, const SoField& source);
};

using FieldBitsTable = std::unordered_map<int, FieldBitsRow>;

template <class Field>
bool identicalBits(const SoField& a, const SoField& b)
{
    const auto& left = static_cast<const Field&>(a);
    const auto& right = static_cast<const Field&>(b);
    if constexpr (isMultiField<Field>) {
        const auto count = static_cast<std::size_t>(left.getNum());
        return right.getNum() == left.getNum() &&
               (count == 0 ||
                std::memcmp(left.getValues(0), right.getValues(0), count * sizeof(FieldElement<Field>)) == 0);
    } else {
        const FieldElement<Field>& leftValue = left.getValue();
        const FieldElement<Field>& rightValue = right.getValue();
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the bits are what counts
        return std::memcmp(&leftValue, &rightValue, sizeof leftValue) == 0;
    }
}

bool sameValue(const SoField& a, const SoField& b)
{
    a.evaluate();
    b.evaluate();
    return a.isSame(b);
}

template <class Field>
std::size_t elementBytes(const SoField& field)
{
    std::size_t bytes = sizeof(Field);
    if constexpr (isMultiField<Field>)
        bytes +=
            static_cast<std::size_t>(static_cast<const Field&>(field).getNum()) * sizeof(FieldElement<Field>);
    return bytes;
}

std::size_t stringBytes(const SbString& string)
{
    return sizeof(SbString) + static_cast<std::size_t>(string.getLength());
}

template <>
std::size_t elementBytes<SoSFString>(const SoField& field)
{
    return sizeof(SoSFString) + stringBytes(static_cast<const SoSFString&>(field).getValue());
}

template <>
std::size_t elementBytes<SoMFString>(const SoField& field)
{
    const auto& strings = static_cast<const SoMFString&>(field);
    const SbString* first = strings.getValues(0);
    return std::accumulate(first, first + strings.getNum(), sizeof(SoMFString),
                           [](std::size_t sum, const SbString& string) { return sum + stringBytes(string); });
}

template <>
std::size_t elementBytes<SoSFImage>(const SoField& field)
{
    SbVec2s size;
    int components = 0;
    static_cast<const SoSFImage&>(field).getValue(size, components);
    return sizeof(SoSFImage) + static_cast<std::size_t>(size[0]) * size[1] * components;
}

template <>
std::size_t elementBytes<SoSFImage3>(const SoField& field)
{
    SbVec3s size;
    int components = 0;
    static_cast<const SoSFImage3&>(field).getValue(size, components);
    return sizeof(SoSFImage3) + static_cast<std::size_t>(size[0]) * size[1] * size[2] * components;
}

void copyByCoin(SoField& target, const SoField& source)
{
    target.copyFrom(source);
}

template <class Field>
void copyTyped(SoField& target, const SoField& source)
{
    auto& to = static_cast<Field&>(target);
    const auto& from = static_cast<const Field&>(source);
    if constexpr (isMultiField<Field>) {
        to.setNum(from.getNum());
        to.setValues(0, from.getNum(), from.getValues(0));
    } else {
        to.setValue(from.getValue());
    }
}

/// For lists of counted references: only `setNum()` and `setValues()` keep the count, and only from empty.
template <class Field>
void copyReferences(SoField& target, const SoField& source)
{
    static_cast<Field&>(target).setNum(0);
    copyTyped<Field>(target, source);
}

template <class... Fields>
void addPlain(FieldBitsTable& table, FieldClasses<Fields...>)
{
    (table.emplace(Fields::getClassTypeId().getKey(),
                   FieldBitsRow{identicalBits<Fields>, elementBytes<Fields>, copyTyped<Fields>}),
     ...);
}

template <class... Fields>
void addReferences(FieldBitsTable& table, FieldClasses<Fields...>)
{
    (table.emplace(Fields::getClassTypeId().getKey(),
                   FieldBitsRow{identicalBits<Fields>, elementBytes<Fields>, copyReferences<Fields>}),
     ...);
}

template <class... Fields>
void addOthers(FieldBitsTable& table, FieldClasses<Fields...>)
{
    (table.emplace(Fields::getClassTypeId().getKey(),
                   FieldBitsRow{sameValue, elementBytes<Fields>, copyByCoin}),
     ...);
}

/// The row of a type; types that Coin does not bring along are compared by their own means.
FieldBitsRow rowOf(SoType type)
{
    static const FieldBitsTable table = [] {
        FieldBitsTable rows;
        addPlain(rows, NumericFields());
        addPlain(rows, FieldClasses<SoSFBool, SoSFEnum, SoSFBitMask, SoMFBool, SoMFEnum, SoMFBitMask>());
        addReferences(rows, FieldClasses<SoMFNode, SoMFEngine, SoMFPath>());
        addOthers(rows, FieldClasses<SoSFString, SoSFName, SoSFNode, SoSFEngine, SoSFPath, SoSFImage,
                                     SoSFImage3, SoMFString, SoMFName>());
        return rows;
    }();
    const auto found = table.find(type.getKey());
    return found != table.end()
               ? found->second
               : FieldBitsRow{sameValue, [](const SoField&) { return sizeof(SoField); }, copyByCoin};
}

} // namespace

bool identicalFields(const SoField& a, const SoField& b)
{
    return a.getTypeId() == b.getTypeId() && rowOf(a.getTypeId()).identical(a, b);
}

std::size_t fieldByteSize(const SoField& field)
{
    return rowOf(field.getTypeId()).byteSize(field);
}

void copyFieldValue(SoField& target, const SoField& source)
{
    if (&target == &source)
        return;
    // A connected source is brought up to date first: that may notify.
    source.evaluate();
    const FieldChange change(target);
    rowOf(target.getTypeId()).copy(target, source);
}
