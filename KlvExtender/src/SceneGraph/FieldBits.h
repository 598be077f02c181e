#pragma once

#include <cstddef>
#include <limits>

class SoField;
class SoMField;

/// Comparing, measuring and copying the values of fields at the speed of memory, whatever their kind.

/// True when two fields are of one type and hold the same value bit for bit: a NaN is identical to itself,
/// -0.0 is not identical to 0.0. Flags and connections do not count. Brings connected fields up to date, as
/// reading them does.
bool identicalFields(const SoField& a, const SoField& b);

/// The same of `count` elements from `startA` and from `startB` on, all of which exist, of two fields of one
/// type.
bool identicalElements(const SoMField& a, int startA, const SoMField& b, int startB, int count);

/// Roughly the bytes that a field's value takes, the field object itself included. What a node, engine or
/// path field refers to does not count. Beyond `enough` any number above it will do: then long lists of
/// strings are not summed up.
std::size_t fieldByteSize(const SoField& field, std::size_t enough = std::numeric_limits<std::size_t>::max());

/// The share of `count` elements from `start` on, all of which exist.
std::size_t elementsByteSize(const SoMField& field, int start, int count);

/// Gives `target` the value of `source`, a field of the same type, and notifies once. Connections, the
/// ignored flag and an enumeration's table stay the target's own; its default flag is cleared, as by any
/// setter.
///
/// To be used instead of `SoField::copyFrom()`, which forgets to release what a longer node, engine or path
/// list held and writes past the end of a list kept beside a path list.
void copyFieldValue(SoField& target, const SoField& source);

/// Overwrites `count` elements from `to` on with those from `from` on of `source`, another field of the same
/// type, and notifies once. All of them exist in both.
void copyElementValues(SoMField& target, int to, const SoMField& source, int from, int count);
