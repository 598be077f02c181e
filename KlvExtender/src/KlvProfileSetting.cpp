#include <KlvExtender/KlvProfileSetting.h>

#include <KlvExtender/KlvPluginsManager.h>

#include <algorithm>
#include <limits>

namespace {

qsizetype rank(const KlvExtension* extension)
{
    const qsizetype place = KlvPluginsManager::getInstance()->getExtensions().indexOf(extension);
    return place < 0 ? std::numeric_limits<qsizetype>::max() : place;
}

} // namespace

KlvProfileSetting::KlvProfileSetting(KlvExtension* extension)
    : m_extension(extension)
{
}

void KlvProfileSetting::addControlledExtension(KlvExtension* extension)
{
    if (!extension || m_controlled.contains(extension))
        return;
    const auto place =
        std::upper_bound(m_controlled.cbegin(), m_controlled.cend(), rank(extension),
                         [](qsizetype own, const KlvExtension* other) { return own < rank(other); });
    m_controlled.insert(place - m_controlled.cbegin(), extension);
}

void KlvProfileSetting::removeControlledExtension(const KlvExtension* extension)
{
    m_controlled.removeIf([extension](const KlvExtension* other) { return other == extension; });
}
