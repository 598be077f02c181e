#pragma once

#include "FieldEditors/DvRangeComponent.h"

#include <QMap>
#include <QString>

class SoFieldContainer;

/// The default slider ranges, by the type name of a node (without "So") and the name of one of its fields.
///
/// The pseudo type "DefaultNode" has a range for each numeric kind: "floatField", "doubleField" and
/// "intField". A short-lived object: make one, take a range, let it go.
class DvRangeSettings
{
public:
    DvRangeSettings();

    /// True when there is a range of its own for the field. A null name counts as empty.
    bool isBounded(const char* typeName, const char* fieldName) const;
    /// The range for the field; all bounds 0 and not fixed when there is none.
    DvRangeComponent getFieldRange(const char* typeName, const char* fieldName) const;
    /// The range for the real numbers of a container, which may be null: that of "DefaultNode" and
    /// `defaultField`, but for complexities, materials and directional lights. All numbers of those share one
    /// fixed range, whatever the field; it has no bounds for doubles.
    DvRangeComponent getRealRange(const SoFieldContainer* container, const char* defaultField) const;

    /// The base that an integer is written in: 16 for "0x" with something behind it, 8 for a zero and one
    /// more character, else 10 ("017" too).
    static int checkBase(const QString& text);

private:
    QMap<QString, DvRangeComponent> m_ranges;
};
