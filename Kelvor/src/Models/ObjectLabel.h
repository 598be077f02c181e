#pragma once

#include <QString>

class SoBase;
class SoField;

/// How people are told of a node, an engine or another object of the scene graph: `Material "Gold"`, `Cube`,
/// or "none" for null.
QString objectLabel(const SoBase* object);

/// The object's name if it has one, else its type: the part before the dot in `Gold.diffuseColor`.
QString objectKey(const SoBase* object);

/// A field with the object that it belongs to: `Gold.diffuseColor`. That of a field that Coin does not
/// tell the container of is its type.
QString fieldLabel(const SoField& field);
