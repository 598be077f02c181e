#pragma once

#include <cstddef>

class SoField;

/// Comparing, measuring and copying the values of fields at the speed of memory, whatever their kind.

/// True when two fields are of one type and hold the same value bit for bit: a NaN is identical to itself,
/// -0.0 is not identical to 0.0. Flags and connections do not count. Brings connected fields up to date, as
/// reading them does.
bool identicalFields(const SoField& a, const SoField& b);

/// Roughly the bytes that a field's value takes, the field object itself included. What a node, engine or
/// path field refers to does not count.
std::size_t fieldByteSize(const SoField& field);

/// Gives `target` the value of `source`, a field of the same type, and notifies once. Connections, the
/// ignored flag and an enumeration's table stay the target's own; its default flag is cleared, as by any
/// setter.
///
/// To be used instead of `SoField::copyFrom()`, which forgets to release what a longer node, engine or path
/// list held and writes past the end of a list kept beside a path list.
void copyFieldValue(SoField& target, const SoField& source);
