#include <KlvExtender/KlvPlugin.h>

#include <KlvExtender/KlvExtension.h>

KlvPlugin::KlvPlugin() = default;

KlvPlugin::~KlvPlugin() = default;

void KlvPlugin::load()
{
    for (KlvExtension* extension : std::as_const(m_extensions))
        extension->load();
}

void KlvPlugin::unload()
{
    // Taken one by one, so that after a throw the rest can still be unloaded.
    while (!m_extensions.isEmpty())
        m_extensions.takeLast()->unload();
}

void KlvPlugin::addExtension(KlvExtension* extension)
{
    if (extension && !m_extensions.contains(extension))
        m_extensions.append(extension);
}
