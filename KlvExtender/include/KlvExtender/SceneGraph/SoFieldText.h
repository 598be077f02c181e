#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbBasic.h>

class SbString;
class SoField;
class SoMField;

/// Sets a field from text in the scene graph's text form, whole or not at all.
///
/// Coin's own `SoField::set()` may leave a value half overwritten, takes text with junk behind the value,
/// cuts `3.7` to an integer and lets large integers overflow, mostly without a word. Here a text that is not
/// exactly one value of the field's kind gives FALSE, the field is bit for bit as it was (value, default
/// flag, ignored flag, connections), nobody is notified, and one `SoReadError` tells which field of which
/// node did not take which text.
///
/// Every text that `SoField::get()` printed for a field of the kind is accepted, also where Coin's reader
/// stumbles: null in node and engine fields, nan and inf, strings that end in a backslash, four-component
/// colours, paths (which are printed as the nodes along them). Doubles are read exactly. Where text does not
/// hold all of a value (the last digits of numbers, rotations and planes, enumeration values without a name,
/// which node it is), the text that the field prints at present stands for its present value.
///
/// Refused in the same way is what ends the process when Coin evaluates the engine of the field: a step of 0
/// of a counter, no element for an engine that composes or interpolates.
///
/// On success the field's auditors are notified once, as by a setter. A null field gives FALSE.
KLV_EXTENDER_EXPORT SbBool setFieldFromText(SoField* field, const SbString& text);

/// Sets one element of a multi-value field from text, under the same rules. Its cost does not grow with the
/// number of elements, except for nodes, engines and paths, whose present text Coin makes by looking at all
/// of them. An index beyond the end grows the field, every element in the gap holding the kind's neutral
/// value; an index that no memory has room for is refused like a wrong text. A negative index or a null field
/// gives FALSE. Without `report` a refused text is refused without a message.
KLV_EXTENDER_EXPORT SbBool setElementFromText(SoMField* field, int index, const SbString& text,
                                              SbBool report = TRUE);
