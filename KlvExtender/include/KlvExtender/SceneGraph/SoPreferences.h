#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbString.h>

/// Preferences that are given in the environment of the process.
class KLV_EXTENDER_EXPORT SoPreferences
{
public:
    /// The truth value of an environment variable: `0`, `false`, `no` and `off`, in any letter case, are
    /// false, anything else is true. A variable that is unset or empty gives the default value.
    static SbBool getBool(const SbString& name, SbBool defaultValue);

    SoPreferences() = delete;
};
