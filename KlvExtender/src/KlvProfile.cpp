#include <KlvExtender/KlvProfile.h>

#include <KlvExtender/KlvProfileSetting.h>

#include <algorithm>

KlvProfile::KlvProfile(const SbString& name)
    : m_name(name)
{
}

KlvProfile::~KlvProfile() = default;

KlvProfileSetting* KlvProfile::addSetting(KlvExtension* extension)
{
    if (!extension)
        return nullptr;
    if (KlvProfileSetting* setting = getSetting(extension))
        return setting;
    return m_settings.emplace_back(std::make_unique<KlvProfileSetting>(extension)).get();
}

KlvProfileSetting* KlvProfile::getSetting(const KlvExtension* extension) const
{
    const auto setting = std::find_if(m_settings.begin(), m_settings.end(), [extension](const auto& one) {
        return one->getExtension() == extension;
    });
    return setting == m_settings.end() ? nullptr : setting->get();
}

void KlvProfile::forgetExtension(const KlvExtension* extension)
{
    std::erase_if(m_settings, [extension](const auto& one) { return one->getExtension() == extension; });
    for (const auto& setting : m_settings)
        setting->removeControlledExtension(extension);
}
