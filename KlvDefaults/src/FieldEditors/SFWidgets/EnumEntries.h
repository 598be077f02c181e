#pragma once

#include <QString>

#include <vector>

class SoSFEnum;

/// One name of an enumeration.
struct EnumEntry
{
    QString name;
    int value;
};

/// The enumeration of a field, in its order. Empty for a field without one.
std::vector<EnumEntry> enumEntries(const SoSFEnum& field);
