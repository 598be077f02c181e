#include "TransformEditor.h"

#include <KlvExtender/KlvPlugin.h>

namespace {

class TransformPlugin : public KlvPlugin
{
public:
    TransformPlugin()
    {
        m_name = "Transform Plugin";
        m_description = "A small example of a plug-in with a node editor.";
        m_author = "An example";
        m_version = "1.0.0";
    }

    void load() override
    {
        addExtension(&m_editor);
        KlvPlugin::load();
    }

private:
    TransformEditor m_editor;
};

TransformPlugin* g_plugin = nullptr;

} // namespace

extern "C" Q_DECL_EXPORT KlvPlugin* loadPlugin()
{
    g_plugin = new TransformPlugin;
    return g_plugin;
}

extern "C" Q_DECL_EXPORT void unloadPlugin()
{
    delete g_plugin;
    g_plugin = nullptr;
}
