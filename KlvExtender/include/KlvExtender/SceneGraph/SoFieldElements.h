#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbBasic.h>
#include <Inventor/SbString.h>

#include <memory>

class SoMField;

/// Operations on the elements of a multi-value field that hold for every index. Coin checks none of them:
/// beyond the end it reads and writes memory that is not the field's.

/// The text of one element; empty when there is no such element.
KLV_EXTENDER_EXPORT SbString getElementText(SoMField* field, int index);

/// Inserts `count` elements before `start`, holding the kind's neutral value (zero, identity, empty, null,
/// for an enumeration its value 0 or first value). A start beyond the end first fills the gap in the same
/// way; a negative start or a count below 1 does nothing, more elements than Coin can count nothing but a
/// line through `SoDebugError`. Notifies once.
KLV_EXTENDER_EXPORT void insertElements(SoMField* field, int start, int count);

/// Deletes those of the `count` elements from `start` on that exist; a negative start or a count below 1
/// deletes nothing. An input of an engine that does not survive an empty input keeps its elements; a line
/// through `SoDebugError` says so.
KLV_EXTENDER_EXPORT void deleteElements(SoMField* field, int start, int count);

/// A field of the same type, in no container, that holds copies of those of the `count` elements from `start`
/// on that exist, to the bit (nodes, engines and paths: the same ones, referenced). Null for a null field and
/// for a type that cannot be instantiated. Costs what those elements cost.
KLV_EXTENDER_EXPORT std::unique_ptr<SoMField> copyElements(SoMField* field, int start, int count);

/// Overwrites the elements from `start` on with all those of `elements`, a field of the same type; beyond the
/// end the field grows, every element in a gap holding the kind's neutral value. Notifies once. A negative
/// start, no elements or a field of another type do nothing.
KLV_EXTENDER_EXPORT void setElements(SoMField* field, int start, const SoMField* elements);

/// Exchanges two elements, to the bit. Does nothing unless both exist. Notifies once.
KLV_EXTENDER_EXPORT void swapElements(SoMField* field, int index1, int index2);

/// One element in a few words: of nodes and engines type and name, of paths the last node; else its text, as
/// `getElementText()` gives it. Costs the same however large a scene hangs below a node.
KLV_EXTENDER_EXPORT SbString getElementSummary(SoMField* field, int index);

/// Notifies the field's auditors once that `count` values from `start` on have changed; `numChanged` tells
/// that their number changed too.
KLV_EXTENDER_EXPORT void valueChanged(SoMField* field, int start, int count, SbBool numChanged);
