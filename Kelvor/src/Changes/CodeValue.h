#pragma once

#include "Changes/CodeNumber.h"

class SbString;
class SoField;

/// The source text of single values of fields, by tables over the kinds of fields.
namespace CodeValue {

/// Fields whose values are written one by one, exactly.
struct Kind
{
    const char* element; ///< the C++ type of a value
    /// The text of one value; index 0 for single-value fields.
    QString (*text)(const SoField& field, int index, CodeLanguage language);
    bool numeric; ///< Inventor text is made of the same numbers
};

/// The kind of a field; null for those that can only be written as their own text tells.
const Kind* kindOf(const SoField& field);

/// A C++ literal for a string: UTF-8, with escapes for control characters and for bytes that are no text.
QString quoted(const SbString& string);

} // namespace CodeValue
