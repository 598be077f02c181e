#pragma once

#include <QStringList>

class SoField;

/// Where a field gets its value from, one entry a connection: "Rotor.angle" for a field, "Calculator.oA" for
/// an engine's output. Empty when it is not connected.
QStringList fieldSources(const SoField& field);
