#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbBasic.h>
#include <Inventor/SbString.h>

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
/// deletes nothing.
KLV_EXTENDER_EXPORT void deleteElements(SoMField* field, int start, int count);

/// Notifies the field's auditors once that `count` values from `start` on have changed; `numChanged` tells
/// that their number changed too.
KLV_EXTENDER_EXPORT void valueChanged(SoMField* field, int start, int count, SbBool numChanged);
