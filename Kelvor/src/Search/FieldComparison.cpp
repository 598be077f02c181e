#include "Search/FieldComparison.h"

#include "Models/FieldPreview.h"

#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include <Inventor/fields/SoFields.h>
#include <Inventor/fields/SoSFImage3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace {

constexpr int mostNumbers = 4096;
constexpr int mostTexts = 500; // some microseconds each

std::optional<double> numberIn(const QString& text)
{
    for (const auto& [word, value] : {std::pair("true", 1.0), std::pair("false", 0.0)}) {
        if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return value;
    }
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (isNumber)
        return value;
    const qlonglong whole = text.toLongLong(&isNumber, 0); // hexadecimal, as Coin prints some kinds
    return isNumber ? std::optional<double>(static_cast<double>(whole)) : std::nullopt;
}

/// A range of the numbers in a value, as fields show them.
template <typename Value>
auto numbersIn(const Value& value)
{
    if constexpr (std::is_arithmetic_v<Value>) {
        return std::array{value};
    } else if constexpr (requires { value.getMin(); }) {
        const auto low = numbersIn(value.getMin());
        using Number = typename decltype(low)::value_type;
        std::array<Number, 2 * sizeof(value.getMin()) / sizeof(Number)> corners;
        std::ranges::copy(numbersIn(value.getMax()), std::ranges::copy(low, corners.begin()).out);
        return corners;
    } else {
        return std::span(value.getValue(), sizeof value / sizeof *value.getValue());
    }
}

std::array<double, 1> numbersIn(const SbTime& time)
{
    return {time.getValue()};
}

std::array<float, 4> numbersIn(const SbRotation& rotation)
{
    SbVec3f axis;
    float angle = 0;
    rotation.getValue(axis, angle);
    return {axis[0], axis[1], axis[2], angle};
}

std::array<float, 4> numbersIn(const SbPlane& plane)
{
    const SbVec3f& normal = plane.getNormal();
    return {normal[0], normal[1], normal[2], plane.getDistanceFromOrigin()};
}

std::span<const float> numbersIn(const SbMatrix& matrix)
{
    return {*matrix.getValue(), 16};
}

/// Whether a comparison with a number holds for the value of a field, in lists for one of the first.
template <class Field>
bool holdsFor(SoField& field, const FieldComparison& comparison)
{
    const auto holds = [&comparison](const auto& value) {
        if constexpr (std::is_base_of_v<SoSFBool, Field> || std::is_base_of_v<SoMFBool, Field>)
            return comparison.holdsNumbers(numbersIn(value ? 1 : 0));
        else
            return comparison.holdsNumbers(numbersIn(value));
    };
    auto& typed = static_cast<Field&>(field);
    if constexpr (std::is_base_of_v<SoMField, Field>) {
        const auto* values = typed.getValues(0);
        return std::any_of(values, values + std::min(typed.getNum(), mostNumbers), holds);
    } else {
        return holds(typed.getValue());
    }
}

struct Kind
{
    SoType (*type)();
    bool (*holds)(SoField& field, const FieldComparison& comparison);
};

template <class... Fields>
constexpr std::array<Kind, sizeof...(Fields)> kindsOf{Kind{Fields::getClassTypeId, holdsFor<Fields>}...};

/// All that consists of numbers; the most frequent ones first.
constexpr auto kinds =
    kindsOf<SoSFFloat, SoMFFloat, SoSFBool, SoMFBool, SoSFInt32, SoMFInt32, SoSFVec3f, SoMFVec3f, SoSFColor,
            SoMFColor, SoSFRotation, SoMFRotation, SoSFVec2f, SoMFVec2f, SoSFTime, SoMFTime, SoSFShort,
            SoMFShort, SoSFUShort, SoMFUShort, SoSFUInt32, SoMFUInt32, SoSFDouble, SoMFDouble, SoSFVec2b,
            SoMFVec2b, SoSFVec2s, SoMFVec2s, SoSFVec2i32, SoMFVec2i32, SoSFVec2d, SoMFVec2d, SoSFVec3b,
            SoMFVec3b, SoSFVec3s, SoMFVec3s, SoSFVec3i32, SoMFVec3i32, SoSFVec3d, SoMFVec3d, SoSFVec4b,
            SoMFVec4b, SoSFVec4ub, SoMFVec4ub, SoSFVec4s, SoMFVec4s, SoSFVec4us, SoMFVec4us, SoSFVec4i32,
            SoMFVec4i32, SoSFVec4ui32, SoMFVec4ui32, SoSFVec4f, SoMFVec4f, SoSFVec4d, SoMFVec4d,
            SoSFColorRGBA, SoMFColorRGBA, SoSFPlane, SoMFPlane, SoSFMatrix, SoMFMatrix, SoSFBox2s,
            SoSFBox2i32, SoSFBox2f, SoSFBox2d, SoSFBox3s, SoSFBox3i32, SoSFBox3f, SoSFBox3d>;

QStringList wordsOf(const QString& text)
{
    QStringList words;
    QString word;
    for (const QChar each : text + QLatin1Char(' ')) {
        if (!each.isSpace() && !QStringLiteral(",[](){}|\"").contains(each))
            word += each;
        else if (!word.isEmpty())
            words += std::exchange(word, QString());
    }
    return words;
}

bool isSameWord(const QString& one, const QString& other)
{
    if (one.compare(other, Qt::CaseInsensitive) == 0)
        return true;
    const auto a = numberIn(one);
    const auto b = numberIn(other);
    if (!a || !b)
        return false;
    // Rotations and planes drift in their last digits, whole numbers do not.
    const bool whole = std::floor(*a) == *a && std::floor(*b) == *b;
    return *a == *b || (!whole && std::abs(*a - *b) <= 1e-6 * std::max({1.0, std::abs(*a), std::abs(*b)}));
}

bool areSame(const QStringList& one, const QStringList& other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isSameWord);
}

QString singleText(SoField& field)
{
    for (const auto type : {SoSFNode::getClassTypeId, SoSFEngine::getClassTypeId, SoSFPath::getClassTypeId,
                            SoSFImage::getClassTypeId, SoSFImage3::getClassTypeId}) {
        if (field.isOfType(type()))
            return fieldPreview(field);
    }
    if (field.isOfType(SoSFString::getClassTypeId()))
        return toUtf16(static_cast<SoSFString&>(field).getValue());
    SbString text;
    field.get(text);
    return toUtf16(text);
}

} // namespace

FieldComparison::FieldComparison(int relations, const QString& value)
    : m_relations(relations)
    , m_number(numberIn(value.trimmed()))
    , m_words(wordsOf(value))
{
}

template <typename Number>
bool FieldComparison::holdsNumber(Number value) const
{
    // What prints as 0.1 is to be equal to 0.1 in floats, too.
    const double typed = std::is_same_v<Number, float> ? static_cast<float>(*m_number) : *m_number;
    const auto actual = static_cast<double>(value);
    if (std::isnan(actual) || std::isnan(typed))
        return m_relations & (std::isnan(actual) && std::isnan(typed) ? Equal : Unordered);
    return m_relations & (actual < typed ? Less : actual > typed ? Greater : Equal);
}

template <typename Numbers>
bool FieldComparison::holdsNumbers(const Numbers& numbers) const
{
    const auto holds = [this](auto number) { return holdsNumber(number); };
    return m_relations == Equal ? std::ranges::all_of(numbers, holds) : std::ranges::any_of(numbers, holds);
}

bool FieldComparison::holds(SoField& field) const
{
    const SoType type = field.getTypeId();
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [type](const Kind& each) { return type.isDerivedFrom(each.type()); });
    if (m_number && kind != std::end(kinds))
        return kind->holds(field, *this);
    return isEquality() && holdsText(field);
}

bool FieldComparison::holdsText(SoField& field) const
{
    const bool wanted = m_relations == Equal;
    if (!field.isOfType(SoMField::getClassTypeId()))
        return areSame(wordsOf(singleText(field)), m_words) == wanted;
    auto& list = static_cast<SoMField&>(field);
    const int count = list.getNum();
    bool any = false;
    QStringList whole; // as far as it can be the same
    for (int i = 0; i < std::min(count, mostTexts); ++i) {
        const QStringList words = wordsOf(toUtf16(getElementSummary(&list, i)));
        any |= areSame(words, m_words) == wanted;
        if (whole.size() <= m_words.size())
            whole += words;
        if (any && (wanted || whole.size() > m_words.size()))
            return true;
    }
    const bool wholeIsSame = count <= mostTexts && areSame(whole, m_words);
    return wanted ? wholeIsSame : any && !wholeIsSame;
}
