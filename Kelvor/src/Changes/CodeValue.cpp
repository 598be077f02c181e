#include "Changes/CodeValue.h"

#include "Changes/CodeNumber.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoFields.h>

#include <QStringList>

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>
#include <vector>

namespace CodeValue {
namespace {

template <class Numbers>
QString joined(const Numbers& numbers, CodeLanguage language)
{
    QStringList texts;
    for (const auto number : numbers)
        texts += codeNumber(number, language);
    return texts.join(QLatin1String(language == CodeLanguage::Cpp ? ", " : " "));
}

/// The numbers of which `make` makes exactly this element, which has all its constructors make unit vectors
/// of its first `directions` numbers: at some length they are rounded to what they are.
template <class Element, class Make>
std::array<float, 4> unrounded(const Element& element, const std::array<float, 4>& numbers,
                               std::size_t directions, Make make)
{
    constexpr int lengths = 400;
    for (int i = 0; i < lengths; ++i) {
        std::array<float, 4> scaled = numbers;
        for (std::size_t n = 0; n < directions; ++n)
            scaled[n] *= 1.0F + float(i) / 64.0F;
        const Element made = make(scaled);
        if (std::memcmp(&made, &element, sizeof element) == 0)
            return scaled;
    }
    return numbers;
}

// The numbers of an element in the order of the constructor or, for Inventor text, of the text.

template <class Element>
requires std::is_arithmetic_v<Element>
auto numbersOf(Element element, CodeLanguage)
{
    return std::array<Element, 1>{element};
}

template <class Element>
requires requires(const Element& element)
{
    element[0];
}
auto numbersOf(const Element& element, CodeLanguage)
{
    using Number = std::remove_cvref_t<decltype(element[0])>;
    std::array<Number, sizeof(Element) / sizeof(Number)> numbers;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = element[int(i)];
    return numbers;
}

template <class Box>
requires requires(const Box& box)
{
    box.getMin()[0];
}
auto numbersOf(const Box& box, CodeLanguage language)
{
    auto corners = numbersOf(box.getMin(), language);
    const auto max = numbersOf(box.getMax(), language);
    std::vector numbers(corners.begin(), corners.end());
    numbers.insert(numbers.end(), max.begin(), max.end());
    return numbers;
}

auto numbersOf(const SbTime& time, CodeLanguage)
{
    return std::array{time.getValue()};
}

auto numbersOf(const SbMatrix& matrix, CodeLanguage)
{
    const float* first = matrix.getValue()[0];
    return std::vector<float>(first, first + 16);
}

auto numbersOf(const SbRotation& rotation, CodeLanguage language)
{
    if (language == CodeLanguage::Inventor) {
        SbVec3f axis;
        float angle = 0;
        rotation.getValue(axis, angle);
        return std::array{axis[0], axis[1], axis[2], angle};
    }
    const float* q = rotation.getValue();
    return unrounded(rotation, {q[0], q[1], q[2], q[3]}, 4,
                     [](const auto& n) { return SbRotation(n[0], n[1], n[2], n[3]); });
}

auto numbersOf(const SbPlane& plane, CodeLanguage)
{
    const SbVec3f normal = plane.getNormal();
    return unrounded(plane, {normal[0], normal[1], normal[2], plane.getDistanceFromOrigin()}, 3,
                     [](const auto& n) { return SbPlane(SbVec3f(n[0], n[1], n[2]), n[3]); });
}

template <class Field>
decltype(auto) valueOf(const SoField& field, int index)
{
    const auto& typed = static_cast<const Field&>(field);
    if constexpr (std::is_base_of_v<SoMField, Field>)
        return typed[index];
    else
        return typed.getValue();
}

template <class Element>
QString constructed(const Element& element, const char* type, CodeLanguage language)
{
    const QString numbers = joined(numbersOf(element, language), language);
    if (std::is_arithmetic_v<Element> || language == CodeLanguage::Inventor)
        return numbers;
    return QStringLiteral("%1(%2)").arg(QLatin1String(type), numbers);
}

// A plane is made of a vector and a number.
template <>
QString constructed(const SbPlane& plane, const char*, CodeLanguage language)
{
    const auto n = numbersOf(plane, language);
    if (language == CodeLanguage::Inventor)
        return joined(n, language);
    return QStringLiteral("SbPlane(SbVec3f(%1), %2)")
        .arg(joined(std::array{n[0], n[1], n[2]}, language), codeNumber(n[3], language));
}

struct Row
{
    SoType (*type)();
    Kind kind;
};

/// A template argument that is a text.
template <std::size_t size>
struct Name
{
    constexpr Name(const char (&text)[size]) { std::copy_n(text, size, value); }
    char value[size];
};

template <class Field, Name element>
constexpr Row numbers()
{
    const auto text = [](const SoField& field, int index, CodeLanguage language) {
        return constructed(valueOf<Field>(field, index), element.value, language);
    };
    return {Field::getClassTypeId, {element.value, text, true}};
}

template <class Field, Name element>
constexpr Row strings()
{
    const auto text = [](const SoField& field, int index, CodeLanguage) {
        return quoted(SbString(valueOf<Field>(field, index).getString()));
    };
    return {Field::getClassTypeId, {element.value, text, false}};
}

template <class Field>
constexpr Row truths()
{
    const auto text = [](const SoField& field, int index, CodeLanguage) {
        return QString::fromLatin1(valueOf<Field>(field, index) ? "TRUE" : "FALSE");
    };
    return {Field::getClassTypeId, {"SbBool", text, true}};
}

/// What Inventor text cannot hold, or can in a better way, so that it is written as the field itself would.
constexpr Row withOwnText(Row row)
{
    row.kind.numeric = false;
    return row;
}

const Row rows[] = {
    truths<SoSFBool>(),
    truths<SoMFBool>(),
    withOwnText(numbers<SoSFEnum, "int">()),
    withOwnText(numbers<SoMFEnum, "int">()),
    strings<SoSFString, "SbString">(),
    strings<SoMFString, "SbString">(),
    strings<SoSFName, "SbName">(),
    strings<SoMFName, "SbName">(),
    numbers<SoSFShort, "short">(),
    numbers<SoMFShort, "short">(),
    numbers<SoSFUShort, "unsigned short">(),
    numbers<SoMFUShort, "unsigned short">(),
    numbers<SoSFInt32, "int32_t">(),
    numbers<SoMFInt32, "int32_t">(),
    numbers<SoSFUInt32, "uint32_t">(),
    numbers<SoMFUInt32, "uint32_t">(),
    numbers<SoSFFloat, "float">(),
    numbers<SoMFFloat, "float">(),
    numbers<SoSFDouble, "double">(),
    numbers<SoMFDouble, "double">(),
    numbers<SoSFTime, "SbTime">(),
    numbers<SoMFTime, "SbTime">(),
    numbers<SoSFColor, "SbColor">(),
    numbers<SoMFColor, "SbColor">(),
    numbers<SoSFColorRGBA, "SbColor4f">(),
    withOwnText(numbers<SoMFColorRGBA, "SbColor4f">()),
    numbers<SoSFRotation, "SbRotation">(),
    numbers<SoMFRotation, "SbRotation">(),
    numbers<SoSFMatrix, "SbMatrix">(),
    numbers<SoMFMatrix, "SbMatrix">(),
    numbers<SoSFPlane, "SbPlane">(),
    numbers<SoMFPlane, "SbPlane">(),
    numbers<SoSFBox2s, "SbBox2s">(),
    numbers<SoSFBox2i32, "SbBox2i32">(),
    numbers<SoSFBox2f, "SbBox2f">(),
    numbers<SoSFBox2d, "SbBox2d">(),
    numbers<SoSFBox3s, "SbBox3s">(),
    numbers<SoSFBox3i32, "SbBox3i32">(),
    numbers<SoSFBox3f, "SbBox3f">(),
    numbers<SoSFBox3d, "SbBox3d">(),
    numbers<SoSFVec2b, "SbVec2b">(),
    numbers<SoMFVec2b, "SbVec2b">(),
    numbers<SoSFVec2s, "SbVec2s">(),
    numbers<SoMFVec2s, "SbVec2s">(),
    numbers<SoSFVec2i32, "SbVec2i32">(),
    numbers<SoMFVec2i32, "SbVec2i32">(),
    numbers<SoSFVec2f, "SbVec2f">(),
    numbers<SoMFVec2f, "SbVec2f">(),
    numbers<SoSFVec2d, "SbVec2d">(),
    numbers<SoMFVec2d, "SbVec2d">(),
    numbers<SoSFVec3b, "SbVec3b">(),
    numbers<SoMFVec3b, "SbVec3b">(),
    numbers<SoSFVec3s, "SbVec3s">(),
    numbers<SoMFVec3s, "SbVec3s">(),
    numbers<SoSFVec3i32, "SbVec3i32">(),
    numbers<SoMFVec3i32, "SbVec3i32">(),
    numbers<SoSFVec3f, "SbVec3f">(),
    numbers<SoMFVec3f, "SbVec3f">(),
    numbers<SoSFVec3d, "SbVec3d">(),
    numbers<SoMFVec3d, "SbVec3d">(),
    numbers<SoSFVec4b, "SbVec4b">(),
    numbers<SoMFVec4b, "SbVec4b">(),
    numbers<SoSFVec4ub, "SbVec4ub">(),
    numbers<SoMFVec4ub, "SbVec4ub">(),
    numbers<SoSFVec4s, "SbVec4s">(),
    numbers<SoMFVec4s, "SbVec4s">(),
    numbers<SoSFVec4us, "SbVec4us">(),
    numbers<SoMFVec4us, "SbVec4us">(),
    numbers<SoSFVec4i32, "SbVec4i32">(),
    numbers<SoMFVec4i32, "SbVec4i32">(),
    numbers<SoSFVec4ui32, "SbVec4ui32">(),
    numbers<SoMFVec4ui32, "SbVec4ui32">(),
    numbers<SoSFVec4f, "SbVec4f">(),
    numbers<SoMFVec4f, "SbVec4f">(),
    numbers<SoSFVec4d, "SbVec4d">(),
    numbers<SoMFVec4d, "SbVec4d">(),
};

} // namespace

const Kind* kindOf(const SoField& field)
{
    const SoType type = field.getTypeId();
    const auto* row = std::find_if(std::begin(rows), std::end(rows),
                                   [type](const Row& each) { return type.isDerivedFrom(each.type()); });
    return row == std::end(rows) ? nullptr : &row->kind;
}

QString quoted(const SbString& string)
{
    constexpr std::pair<char16_t, char> escapes[] = {
        {u'"', '"'}, {u'\\', '\\'}, {u'\n', 'n'}, {u'\r', 'r'}, {u'\t', 't'}};
    QString literal(QLatin1Char('"'));
    bool pairBegun = false;
    for (const QChar next : toUtf16(string)) {
        const char16_t unit = next.unicode();
        const auto* escape = std::find_if(std::begin(escapes), std::end(escapes),
                                          [unit](const auto& each) { return each.first == unit; });
        const bool isByte = next.isLowSurrogate() && !pairBegun; // that is no character
        pairBegun = next.isHighSurrogate();
        if (escape != std::end(escapes))
            literal += QString(QLatin1Char('\\')) + QLatin1Char(escape->second);
        else if (next == QLatin1Char('?') && literal.endsWith(next))
            literal += QLatin1String("\\?"); // no trigraphs
        else if (isByte || unit < 0x20 || unit == 0x7f)
            // Always three digits, so that a digit after it is not taken for a part of it.
            literal += QStringLiteral("\\%1").arg(unit & 0xff, 3, 8, QLatin1Char('0'));
        else
            literal += next;
    }
    return literal + QLatin1Char('"');
}

} // namespace CodeValue
