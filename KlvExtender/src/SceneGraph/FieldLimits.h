#pragma once

class SoField;
class SoMField;

/// Values that a field's type allows, but that the engine behind the field does not survive.
namespace FieldLimits {

/// False where an engine reads the last element without asking whether there is one.
bool canBeEmpty(const SoMField& field);
/// False where an engine divides by the value.
bool canBeZero(const SoField& field);

} // namespace FieldLimits
