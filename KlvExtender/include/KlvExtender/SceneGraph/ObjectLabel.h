#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbName.h>

#include <QString>

class SoBase;
class SoField;

/// How people are told of the objects of a scene graph.

/// What an object's type is called in files. That of a node that Coin does not know is what the file that it
/// was read from calls it.
KLV_EXTENDER_EXPORT SbName objectType(const SoBase* object);

/// A node, an engine or another object: `Material "Gold"`, `Cube`, or "none" for null.
KLV_EXTENDER_EXPORT QString objectLabel(const SoBase* object);

/// The object's name if it has one, else its type: the part before the dot in `Gold.diffuseColor`.
KLV_EXTENDER_EXPORT QString objectKey(const SoBase* object);

/// A field with the object that it belongs to: `Gold.diffuseColor`. That of a field whose container
/// Coin does not tell is its type.
KLV_EXTENDER_EXPORT QString fieldLabel(const SoField& field);
