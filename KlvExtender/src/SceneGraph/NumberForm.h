#pragma once

#include <Inventor/SbMatrix.h>
#include <Inventor/SbPlane.h>
#include <Inventor/SbRotation.h>
#include <Inventor/SbTime.h>
#include <Inventor/SbVec3f.h>

#include <array>
#include <cstring>
#include <type_traits>

/// The type of the numbers that a value of a field is made of.
template <class Element>
struct NumberOf;

template <class Element>
requires std::is_arithmetic_v<Element>
struct NumberOf<Element>
{
    using Type = Element;
};
template <class Element>
requires std::is_class_v<Element> && requires(const Element& element)
{
    element[0];
}
struct NumberOf<Element>
{
    using Type = std::remove_cvref_t<decltype(std::declval<const Element&>()[0])>;
};
template <class Element>
requires requires(const Element& box)
{
    box.getMin()[0];
}
struct NumberOf<Element>
{
    using Type = std::remove_cvref_t<decltype(std::declval<const Element&>().getMin()[0])>;
};
template <>
struct NumberOf<SbMatrix>
{
    using Type = float;
};
template <>
struct NumberOf<SbPlane>
{
    using Type = float;
};
template <>
struct NumberOf<SbTime>
{
    using Type = double;
};

/// The numbers of a value in the order of its text form.
template <class Element>
using Numbers =
    std::array<typename NumberOf<Element>::Type, sizeof(Element) / sizeof(typename NumberOf<Element>::Type)>;

/// Takes a value apart. Vectors, colours, matrices and boxes are stored just as they are written.
template <class Element>
Numbers<Element> toNumbers(const Element& element)
{
    static_assert(std::is_standard_layout_v<Element>);
    Numbers<Element> numbers;
    std::memcpy(&numbers, &element, sizeof element);
    return numbers;
}

/// Puts a value together again.
template <class Element>
Element fromNumbers(const Numbers<Element>& numbers)
{
    Element element;
    std::memcpy(static_cast<void*>(&element), &numbers, sizeof element);
    return element;
}

/// A rotation is written as axis and angle, none at all as a turn by nothing about z.
template <>
inline Numbers<SbRotation> toNumbers(const SbRotation& rotation)
{
    SbVec3f axis;
    float angle = 0;
    rotation.getValue(axis, angle);
    if (axis.length() == 0.0f)
        return {0, 0, 1, 0};
    return {axis[0], axis[1], axis[2], angle};
}

template <>
inline SbRotation fromNumbers<SbRotation>(const Numbers<SbRotation>& numbers)
{
    const SbVec3f axis(numbers.data());
    const float angle = numbers[3];
    return axis == SbVec3f(0, 0, 0) && angle == 0.0f ? SbRotation::identity() : SbRotation(axis, angle);
}

/// A plane is written as normal and distance; its normal is made a unit vector.
template <>
inline SbPlane fromNumbers<SbPlane>(const Numbers<SbPlane>& numbers)
{
    return SbPlane(SbVec3f(numbers.data()), numbers[3]);
}

/// The value of elements that nobody has set yet: zero, for rotations and matrices the identity.
template <class Element>
Element neutralElement()
{
    return fromNumbers<Element>(Numbers<Element>{});
}

template <>
inline SbMatrix neutralElement<SbMatrix>()
{
    return SbMatrix::identity();
}
