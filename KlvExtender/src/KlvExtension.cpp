#include <KlvExtender/KlvExtension.h>

#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>

KlvExtension::KlvExtension() = default;

KlvExtension::~KlvExtension() = default;

void KlvExtension::activate()
{
    m_active = true;
}

void KlvExtension::deactivate()
{
    m_active = false;
}

void KlvExtension::hide()
{
    m_visible = false;
}

void KlvExtension::load() {}

void KlvExtension::show()
{
    m_visible = true;
}

void KlvExtension::unload() {}

KlvProfileSetting* KlvExtension::getProfileSetting() const
{
    const KlvProfile* profile = KlvPluginsManager::getInstance()->getActiveProfile();
    return profile ? profile->getSetting(this) : nullptr;
}
