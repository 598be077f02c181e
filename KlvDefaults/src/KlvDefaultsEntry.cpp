#include "KlvDefaults.h"

/// The plug-in object that the host asked for; null when there is none.
static KlvDefaults* g_instance = nullptr;

/// Makes the plug-in object and gives it to the host, which calls its `load()`.
extern "C" Q_DECL_EXPORT KlvPlugin* loadPlugin()
{
    g_instance = new KlvDefaults;
    return g_instance;
}

/// Deletes the plug-in object with everything in it. Does nothing when there is none.
extern "C" Q_DECL_EXPORT void unloadPlugin()
{
    delete g_instance;
    g_instance = nullptr;
}
