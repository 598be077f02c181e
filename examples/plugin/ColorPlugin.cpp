#include "ColorEditor.h"

#include <KlvExtender/KlvPlugin.h>

namespace {

class ColorPlugin : public KlvPlugin
{
public:
    ColorPlugin()
    {
        m_name = "Color Plugin";
        m_description = "A small example of a plug-in.";
        m_author = "An example";
        m_version = "1.0.0";
    }

    void load() override
    {
        addExtension(&m_editor);
        KlvPlugin::load();
    }

private:
    ColorEditor m_editor;
};

ColorPlugin* g_plugin = nullptr;

} // namespace

extern "C" Q_DECL_EXPORT KlvPlugin* loadPlugin()
{
    g_plugin = new ColorPlugin;
    return g_plugin;
}

extern "C" Q_DECL_EXPORT void unloadPlugin()
{
    delete g_plugin;
    g_plugin = nullptr;
}
