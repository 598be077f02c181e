#pragma once

#include "NumberForm.h"
#include "NumberText.h"
#include "ScannedFieldKind.h"

#include <cmath>
#include <optional>

/// Fields whose elements are numbers.
///
/// Text does not hold every bit of a real number. An element whose text is what the present element prints
/// keeps the present value, so that a text that is given back unchanged changes nothing.
template <class Field>
class NumericFieldKind final : public ScannedFieldKind<Field>
{
public:
    using Element = FieldElement<Field>;

protected:
    bool readNext(TextScanner& scanner, const Field& field, int index, Element& value) const override;
    Element neutral(const Field&) const override { return neutralElement<Element>(); }

private:
    using Number = typename NumberOf<Element>::Type;

    /// The present element at an index, where there is one and its text may not tell all of it.
    static std::optional<Element> present(const Field& field, int index);
    static bool printsAs(Number present, Number read);
};

template <class Field>
bool NumericFieldKind<Field>::readNext(TextScanner& scanner, const Field& field, int index,
                                       Element& value) const
{
    Numbers<Element> numbers;
    for (Number& number : numbers)
        if (!readNumber(scanner.takeWord(), number))
            return false;
    const std::optional<Element> before = present(field, index);
    const bool unchanged = before && std::ranges::equal(toNumbers(*before), numbers, printsAs);
    value = unchanged ? *before : fromNumbers<Element>(numbers);
    return true;
}

template <class Field>
auto NumericFieldKind<Field>::present(const Field& field, int index) -> std::optional<Element>
{
    if constexpr (!std::is_floating_point_v<Number>)
        return std::nullopt;
    else if constexpr (!isMultiField<Field>)
        return field.getValue();
    else if (index < field.getNum())
        return field[index];
    else
        return std::nullopt;
}

template <class Field>
bool NumericFieldKind<Field>::printsAs(Number present, Number read)
{
    if constexpr (std::is_floating_point_v<Number>) {
        if (std::isnan(present) || std::isnan(read))
            return std::isnan(present) && std::isnan(read);
        // Printing costs more than reading: it is done for numbers that are close only.
        const bool near = present == read || std::fabs(present - read) <= std::fabs(read) * Number(1e-6);
        return near && std::signbit(present) == std::signbit(read) && asPrinted(present) == read;
    } else {
        return present == read;
    }
}
