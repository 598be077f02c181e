#pragma once

#include <Inventor/fields/SoFields.h>

#include <type_traits>

/// A list of field classes to build tables over.
template <class... Fields>
struct FieldClasses
{
};

/// Every field class whose values are nothing but numbers.
using NumericFields =
    FieldClasses<SoSFShort, SoSFUShort, SoSFInt32, SoSFUInt32, SoSFFloat, SoSFDouble, SoSFTime, SoSFColor,
                 SoSFColorRGBA, SoSFPlane, SoSFRotation, SoSFMatrix, SoSFBox2s, SoSFBox2i32, SoSFBox2f,
                 SoSFBox2d, SoSFBox3s, SoSFBox3i32, SoSFBox3f, SoSFBox3d, SoSFVec2b, SoSFVec2s, SoSFVec2i32,
                 SoSFVec2f, SoSFVec2d, SoSFVec3b, SoSFVec3s, SoSFVec3i32, SoSFVec3f, SoSFVec3d, SoSFVec4b,
                 SoSFVec4ub, SoSFVec4s, SoSFVec4us, SoSFVec4i32, SoSFVec4ui32, SoSFVec4f, SoSFVec4d,
                 SoMFShort, SoMFUShort, SoMFInt32, SoMFUInt32, SoMFFloat, SoMFDouble, SoMFTime, SoMFColor,
                 SoMFColorRGBA, SoMFPlane, SoMFRotation, SoMFMatrix, SoMFVec2b, SoMFVec2s, SoMFVec2i32,
                 SoMFVec2f, SoMFVec2d, SoMFVec3b, SoMFVec3s, SoMFVec3i32, SoMFVec3f, SoMFVec3d, SoMFVec4b,
                 SoMFVec4ub, SoMFVec4s, SoMFVec4us, SoMFVec4i32, SoMFVec4ui32, SoMFVec4f, SoMFVec4d>;

/// True for the classes of multi-value fields.
template <class Field>
inline constexpr bool isMultiField = std::is_base_of_v<SoMField, Field>;

template <class Field>
struct FieldElementOf
{
    using Type = std::remove_cvref_t<decltype(std::declval<const Field&>().getValue())>;
};
template <class Field>
requires isMultiField<Field>
struct FieldElementOf<Field>
{
    using Type = std::remove_cvref_t<decltype(std::declval<const Field&>()[0])>;
};

/// The type of a field's value, of one element for a multi-value field.
template <class Field>
using FieldElement = typename FieldElementOf<Field>::Type;
