#pragma once

#include <QList>
#include <QString>

class SoField;
class SoFieldContainer;

/// The other end of a field's connection. Nothing is referenced.
struct FieldLink
{
    SoFieldContainer* container; ///< a node, an engine or a global field
    SoField* field;              ///< null for an output of an engine
    QString label;               ///< "Rotor.angle" for a field, "Calculator.oA" for an engine's output

    bool operator==(const FieldLink&) const = default;
};

/// Where a field gets its value from, one entry a connection. Empty when it is not connected.
QList<FieldLink> fieldSources(const SoField& field);

/// The fields that get their values from a field, also where the scene graph converts them on the way.
QList<FieldLink> fieldTargets(const SoField& field);
