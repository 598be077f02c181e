#pragma once

#include <utility>

class SoField;
class SoInput;
class SoMField;
class SoSField;

/// What Coin's field classes keep to themselves and the text operations need: each function calls one
/// protected member of the given field.
namespace FieldAccess {

/// Marks the value as set (no longer the default, up to date) and notifies the auditors.
void notifyChanged(SoField& field);

/// Tells which elements the next notification is about; `first` -1 stands for all.
void setChangedElements(SoMField& field, int first, int count);

/// During a notification: the first and the number of the elements that it is about; first -1 stands for all.
/// Undefined until the elements were told or `setChangedElements()` was called once: Coin leaves them so.
std::pair<int, int> changedElements(SoMField& field);

/// Bytes of one element in the field's array.
int elementSize(const SoMField& field);

/// Reads the bare value, without the marks for connections and ignored fields that may follow it in a file.
bool readValue(SoField& field, SoInput& in);

/// Gives an enumeration the names of another field of its type: copying a field does not always copy them.
/// Does nothing for other kinds.
void copyEnumTable(SoField& target, const SoField& source);

/// True when a single- or multi-value enumeration takes only the names of its table. (A field of a node type
/// that the process does not know has none.)
template <class EnumField>
bool takesNamesOnly(const EnumField& field)
{
    struct Access : EnumField
    {
        static bool get(const EnumField& field) { return field.*(&Access::legalValuesSet); }
    };
    return Access::get(field);
}

} // namespace FieldAccess
