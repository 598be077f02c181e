#include "Search/FieldComparison.h"

#include "Models/FieldPreview.h"

#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include <Inventor/fields/SoFields.h>
#include <Inventor/fields/SoSFImage3.h>

#include <algorithm>
#include <cmath>

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

/// True for each value of a field, in lists for one of the first, for which `test(value)` is.
template <class Field, typename Test>
bool anyValue(SoField& field, const Test& test)
{
    auto& typed = static_cast<Field&>(field);
    if constexpr (std::is_base_of_v<SoMField, Field>) {
        const auto* values = typed.getValues(0);
        return std::any_of(values, values + std::min(typed.getNum(), mostNumbers), test);
    } else {
        return test(typed.getValue());
    }
}

template <class Field>
bool holdsForNumber(SoField& field, const FieldComparison& comparison)
{
    return anyValue<Field>(field, [&](auto value) { return comparison.holdsNumber(value); });
}

template <class Field>
bool holdsForTruth(SoField& field, const FieldComparison& comparison)
{
    return anyValue<Field>(field, [&](SbBool value) { return comparison.holdsNumber(value ? 1 : 0); });
}

template <class Field>
bool holdsForTime(SoField& field, const FieldComparison& comparison)
{
    return anyValue<Field>(field,
                           [&](const SbTime& time) { return comparison.holdsNumber(time.getValue()); });
}

template <class Field>
bool holdsForComponent(SoField& field, const FieldComparison& comparison)
{
    return anyValue<Field>(field, [&](const auto& vector) {
        const auto* components = vector.getValue();
        return std::any_of(components, components + sizeof vector / sizeof *components,
                           [&](auto component) { return comparison.holdsNumber(component); });
    });
}

struct Kind
{
    SoType (*type)();
    bool (*holds)(SoField& field, const FieldComparison& comparison);
    bool isNumber = true; ///< a vector is equal as a whole only
};

template <class Field>
constexpr Kind number{Field::getClassTypeId, holdsForNumber<Field>};
template <class Field>
constexpr Kind vector{Field::getClassTypeId, holdsForComponent<Field>, false};

constexpr Kind kinds[] = {
    number<SoSFFloat>,
    number<SoMFFloat>,
    number<SoSFInt32>,
    number<SoMFInt32>,
    {SoSFBool::getClassTypeId, holdsForTruth<SoSFBool>},
    {SoMFBool::getClassTypeId, holdsForTruth<SoMFBool>},
    number<SoSFDouble>,
    number<SoMFDouble>,
    number<SoSFShort>,
    number<SoMFShort>,
    number<SoSFUShort>,
    number<SoMFUShort>,
    number<SoSFUInt32>,
    number<SoMFUInt32>,
    {SoSFTime::getClassTypeId, holdsForTime<SoSFTime>},
    {SoMFTime::getClassTypeId, holdsForTime<SoMFTime>},
    vector<SoSFVec3f>,
    vector<SoMFVec3f>,
    vector<SoSFColor>,
    vector<SoMFColor>,
    vector<SoSFVec2f>,
    vector<SoMFVec2f>,
    vector<SoSFVec4f>,
    vector<SoMFVec4f>,
    vector<SoSFVec2d>,
    vector<SoMFVec2d>,
    vector<SoSFVec3d>,
    vector<SoMFVec3d>,
    vector<SoSFVec4d>,
    vector<SoMFVec4d>,
    vector<SoSFVec2s>,
    vector<SoMFVec2s>,
    vector<SoSFVec3s>,
    vector<SoMFVec3s>,
    vector<SoSFVec2i32>,
    vector<SoMFVec2i32>,
    vector<SoSFVec3i32>,
    vector<SoMFVec3i32>,
};

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

bool FieldComparison::holds(SoField& field) const
{
    const SoType type = field.getTypeId();
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [type](const Kind& each) { return type.isDerivedFrom(each.type()); });
    if (m_number && kind != std::end(kinds) && (kind->isNumber || !isEquality()))
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
