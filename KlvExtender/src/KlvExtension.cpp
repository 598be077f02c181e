#include <KlvExtender/KlvExtension.h>

#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>

#include <utility>

KlvExtension::KlvExtension() = default;

KlvExtension::~KlvExtension() = default;

void KlvExtension::activate()
{
    setState(&KlvExtension::m_active, true);
}

void KlvExtension::deactivate()
{
    setState(&KlvExtension::m_active, false);
}

void KlvExtension::hide()
{
    setState(&KlvExtension::m_visible, false);
}

void KlvExtension::load() {}

void KlvExtension::show()
{
    setState(&KlvExtension::m_visible, true);
}

void KlvExtension::unload() {}

void KlvExtension::setState(bool KlvExtension::*state, bool value)
{
    if (std::exchange(this->*state, value) != value)
        Q_EMIT stateChanged();
}

KlvProfileSetting* KlvExtension::getProfileSetting() const
{
    const KlvProfile* profile = KlvPluginsManager::getInstance()->getActiveProfile();
    return profile ? profile->getSetting(this) : nullptr;
}
