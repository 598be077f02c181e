#include "FieldBits.h"

#include "FieldAccess.h"
#include "FieldChange.h"
#include "NumericFields.h"
#include "ReadErrorSilencer.h"

#include <algorithm>
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

/// What multi-value fields have in addition; their elements exist.
struct ElementBitsRow
{
    bool (*identical)(const SoMField& a, int startA, const SoMField& b, int startB, int count);
    std::size_t (*byteSize)(const SoMField& field, int start, int count);
    void (*copy)(SoMField& target, int to, const SoMField& source, int from, int count);
};

struct FieldBitsTables
{
    std::unordered_map<int, FieldBitsRow> fields;
    std::unordered_map<int, ElementBitsRow> elements;
};

template <class Field>
inline constexpr bool hasTexts =
    std::is_same_v<FieldElement<Field>, SbString> || std::is_same_v<FieldElement<Field>, SbName>;

std::size_t stringBytes(const SbString& string)
{
    return sizeof(SbString) + static_cast<std::size_t>(string.getLength());
}

// Elements

template <class Field>
bool identicalElementBits(const SoMField& a, int startA, const SoMField& b, int startB, int count)
{
    const auto* left = static_cast<const Field&>(a).getValues(startA);
    const auto* right = static_cast<const Field&>(b).getValues(startB);
    if constexpr (hasTexts<Field>)
        return std::equal(left, left + count, right);
    else
        return count == 0 ||
               std::memcmp(left, right, static_cast<std::size_t>(count) * sizeof(FieldElement<Field>)) == 0;
}

template <class Field>
std::size_t elementBytes(const SoMField& field, int start, int count)
{
    if constexpr (std::is_same_v<Field, SoMFString>) {
        const SbString* first = static_cast<const SoMFString&>(field).getValues(start);
        return std::accumulate(
            first, first + count, std::size_t(0),
            [](std::size_t sum, const SbString& string) { return sum + stringBytes(string); });
    } else {
        return static_cast<std::size_t>(count) * sizeof(FieldElement<Field>);
    }
}

template <class Field>
void copyElementBits(SoMField& target, int to, const SoMField& source, int from, int count)
{
    const auto& elements = static_cast<const Field&>(source);
    if constexpr (std::is_pointer_v<FieldElement<Field>>) {
        // For lists of counted references, setValues() counts right only from empty.
        for (int i = 0; i < count; ++i)
            static_cast<Field&>(target).set1Value(to + i, elements[from + i]);
    } else {
        static_cast<Field&>(target).setValues(to, count, elements.getValues(from));
    }
}

SbString textOf(const SoMField& field, int index)
{
    SbString text;
    const_cast<SoMField&>(field).get1(index, text);
    return text;
}

bool identicalTexts(const SoMField& a, int startA, const SoMField& b, int startB, int count)
{
    for (int i = 0; i < count; ++i)
        if (textOf(a, startA + i) != textOf(b, startB + i))
            return false;
    return true;
}

std::size_t bytesByCoin(const SoMField& field, int, int count)
{
    return static_cast<std::size_t>(count) * static_cast<std::size_t>(FieldAccess::elementSize(field));
}

void copyTexts(SoMField& target, int to, const SoMField& source, int from, int count)
{
    const ReadErrorSilencer silencer;
    for (int i = 0; i < count; ++i)
        target.set1(to + i, textOf(source, from + i).getString());
}

// Whole values

template <class Field>
bool identicalBits(const SoField& a, const SoField& b)
{
    const auto& left = static_cast<const Field&>(a);
    const auto& right = static_cast<const Field&>(b);
    if constexpr (isMultiField<Field>) {
        const int count = left.getNum();
        return right.getNum() == count && identicalElementBits<Field>(left, 0, right, 0, count);
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
std::size_t valueBytes(const SoField& field)
{
    if constexpr (isMultiField<Field>) {
        const auto& elements = static_cast<const Field&>(field);
        return sizeof(Field) + elementBytes<Field>(elements, 0, elements.getNum());
    } else if constexpr (std::is_same_v<Field, SoSFString>) {
        return sizeof(Field) + stringBytes(static_cast<const Field&>(field).getValue());
    } else {
        return sizeof(Field);
    }
}

template <>
std::size_t valueBytes<SoSFImage>(const SoField& field)
{
    SbVec2s size;
    int components = 0;
    static_cast<const SoSFImage&>(field).getValue(size, components);
    return sizeof(SoSFImage) + static_cast<std::size_t>(size[0]) * size[1] * components;
}

template <>
std::size_t valueBytes<SoSFImage3>(const SoField& field)
{
    SbVec3s size;
    int components = 0;
    static_cast<const SoSFImage3&>(field).getValue(size, components);
    return sizeof(SoSFImage3) + static_cast<std::size_t>(size[0]) * size[1] * size[2] * components;
}

std::size_t unknownBytes(const SoField& field)
{
    if (!field.isOfType(SoMField::getClassTypeId()))
        return sizeof(SoField);
    const auto& elements = static_cast<const SoMField&>(field);
    return sizeof(SoMField) + elementsByteSize(elements, 0, elements.getNum());
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
        // Lists of counted references keep the count only when they grow from empty.
        if constexpr (std::is_pointer_v<FieldElement<Field>>)
            to.setNum(0);
        to.setNum(from.getNum());
        copyElementBits<Field>(to, 0, from, 0, from.getNum());
    } else {
        to.setValue(from.getValue());
    }
}

template <class... Fields>
void addTyped(FieldBitsTables& tables, FieldClasses<Fields...>)
{
    (tables.fields.emplace(Fields::getClassTypeId().getKey(),
                           FieldBitsRow{identicalBits<Fields>, valueBytes<Fields>, copyTyped<Fields>}),
     ...);
}

template <class... Fields>
void addOthers(FieldBitsTables& tables, FieldClasses<Fields...>)
{
    (tables.fields.emplace(Fields::getClassTypeId().getKey(),
                           FieldBitsRow{sameValue, valueBytes<Fields>, copyByCoin}),
     ...);
}

template <class Field>
void addElements(FieldBitsTables& tables)
{
    if constexpr (isMultiField<Field>)
        tables.elements.emplace(
            Field::getClassTypeId().getKey(),
            ElementBitsRow{identicalElementBits<Field>, elementBytes<Field>, copyElementBits<Field>});
}

template <class... Fields>
void addElements(FieldBitsTables& tables, FieldClasses<Fields...>)
{
    (addElements<Fields>(tables), ...);
}

const FieldBitsTables& tables()
{
    static const FieldBitsTables tables = [] {
        using Others = FieldClasses<SoSFBool, SoSFEnum, SoSFBitMask, SoMFBool, SoMFEnum, SoMFBitMask,
                                    SoMFString, SoMFName, SoMFNode, SoMFEngine, SoMFPath>;
        FieldBitsTables rows;
        addTyped(rows, NumericFields());
        addTyped(rows, Others());
        addElements(rows, NumericFields());
        addElements(rows, Others());
        addOthers(
            rows,
            FieldClasses<SoSFString, SoSFName, SoSFNode, SoSFEngine, SoSFPath, SoSFImage, SoSFImage3>());
        return rows;
    }();
    return tables;
}

/// The row of a type; types that Coin does not bring along are compared by their own means.
FieldBitsRow rowOf(SoType type)
{
    const auto found = tables().fields.find(type.getKey());
    return found != tables().fields.end() ? found->second : FieldBitsRow{sameValue, unknownBytes, copyByCoin};
}

/// The row of a type or of what it is derived from; text is what every element has.
ElementBitsRow elementRowOf(SoType type)
{
    for (; !type.isBad(); type = type.getParent()) {
        const auto found = tables().elements.find(type.getKey());
        if (found != tables().elements.end())
            return found->second;
    }
    return {identicalTexts, bytesByCoin, copyTexts};
}

} // namespace

bool identicalFields(const SoField& a, const SoField& b)
{
    return a.getTypeId() == b.getTypeId() && rowOf(a.getTypeId()).identical(a, b);
}

bool identicalElements(const SoMField& a, int startA, const SoMField& b, int startB, int count)
{
    return elementRowOf(a.getTypeId()).identical(a, startA, b, startB, count);
}

std::size_t fieldByteSize(const SoField& field, std::size_t enough)
{
    if (field.isOfType(SoMField::getClassTypeId())) {
        const auto& elements = static_cast<const SoMField&>(field);
        const std::size_t least = bytesByCoin(elements, 0, elements.getNum());
        if (least > enough)
            return least;
    }
    return rowOf(field.getTypeId()).byteSize(field);
}

std::size_t elementsByteSize(const SoMField& field, int start, int count)
{
    return elementRowOf(field.getTypeId()).byteSize(field, start, count);
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

void copyElementValues(SoMField& target, int to, const SoMField& source, int from, int count)
{
    source.evaluate();
    const FieldChange change(target, to, count);
    elementRowOf(target.getTypeId()).copy(target, to, source, from, count);
}
