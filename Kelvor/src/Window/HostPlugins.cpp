#include "HostPlugins.h"

#include "HostSettings.h"

#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <QDir>
#include <QFileInfo>
#include <QUndoStack>

#include <algorithm>

#include <dlfcn.h>

namespace {

const QString profileKey = QStringLiteral("profile");

KlvProfile* findProfile(const QString& name)
{
    for (KlvProfile* profile : KlvPluginsManager::getInstance()->getProfilesList()) {
        if (toUtf16(profile->getName()) == name)
            return profile;
    }
    return nullptr;
}

bool isSameFile(const QString& one, const QString& other)
{
    const QString path = QFileInfo(one).canonicalFilePath();
    return path.isEmpty() ? one == other : path == QFileInfo(other).canonicalFilePath();
}

bool isLoaded(const QString& file)
{
    const KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    const QList<KlvPlugin*> plugins = manager->getPlugins();
    return std::any_of(plugins.begin(), plugins.end(), [&](const KlvPlugin* plugin) {
        return isSameFile(manager->getPluginFile(plugin), file);
    });
}

} // namespace

HostPlugins::HostPlugins(const QString& defaultPlugin)
    : m_defaultPlugin(defaultPlugin)
    , m_othersPlugins(KlvPluginsManager::getInstance()->getPlugins())
    , m_profiles(ProfileStore::userFile())
{
    const KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    connect(manager, &KlvPluginsManager::pluginsChanged, this, &HostPlugins::pluginsChanged);
    connect(manager, &KlvPluginsManager::profilesChanged, this, &HostPlugins::profilesChanged);
}

HostPlugins::~HostPlugins()
{
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    manager->disconnect(this);
    manager->setActiveProfile(nullptr);
    const QList<KlvPlugin*> plugins = manager->getPlugins();
    for (auto plugin = plugins.crbegin(); plugin != plugins.crend(); ++plugin) {
        if (!m_othersPlugins.contains(*plugin))
            manager->unloadPlugin(*plugin);
    }
}

QString HostPlugins::defaultPlugin()
{
    // Beside the library that this code is in, so that an embedding application finds it too.
    Dl_info library = {};
    dladdr(reinterpret_cast<const void*>(&HostPlugins::defaultPlugin), &library);
    const QDir folder = QFileInfo(QFile::decodeName(library.dli_fname)).absoluteDir();
    return folder.filePath(QStringLiteral("kelvor/plugins/libqor_kelvor_extender_base.so"));
}

QStringList HostPlugins::loadRemembered()
{
    QStringList files = m_remembered.files();
    if (m_remembered.wantsDefault())
        files.prepend(m_defaultPlugin);
    QStringList errors;
    for (const QString& file : std::as_const(files)) {
        QString error;
        if (!load(file, &error))
            errors.append(error);
    }
    return errors;
}

bool HostPlugins::load(const QString& file, QString* error)
{
    return isLoaded(file) || KlvPluginsManager::getInstance()->loadPlugin(file, error);
}

QStringList HostPlugins::loadFolder(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.isReadable())
        return {tr("The plug-in folder \"%1\" cannot be read.").arg(folder)};
    QStringList errors;
    for (const QFileInfo& file : dir.entryInfoList({QStringLiteral("*.so")}, QDir::Files, QDir::Name)) {
        QString error;
        if (!load(file.filePath(), &error))
            errors.append(error);
    }
    return errors;
}

bool HostPlugins::loadAndRemember(const QString& file, QString* error)
{
    if (!load(file, error))
        return false;
    if (isDefault(file))
        m_remembered.setWantsDefault(true);
    else
        m_remembered.add(file);
    Q_EMIT changed();
    return true;
}

void HostPlugins::unload(KlvPlugin* plugin)
{
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    QUndoStack* history = KlvServices::getInstance()->getUndoStack();
    const bool clean = history->isClean();
    const QString file = manager->getPluginFile(plugin);
    manager->unloadPlugin(plugin);
    if (!clean)
        history->resetClean();
    forget(file);
}

QStringList HostPlugins::absentPlugins() const
{
    QStringList files = m_remembered.files();
    files.prepend(m_defaultPlugin);
    files.removeIf([](const QString& file) { return isLoaded(file); });
    return files;
}

void HostPlugins::forget(const QString& file)
{
    if (isDefault(file))
        m_remembered.setWantsDefault(false);
    else
        m_remembered.remove(file);
    Q_EMIT changed();
}

bool HostPlugins::isDefault(const QString& file) const
{
    return isSameFile(file, m_defaultPlugin);
}

bool HostPlugins::activateProfile(const QString& name)
{
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    m_rememberedProfile = findProfile(HostSettings().value(profileKey).toString());
    KlvProfile* profile = name.isEmpty() ? m_rememberedProfile : findProfile(name);
    if (!profile && name.isEmpty())
        profile = m_profiles.entries().constFirst().profile;
    if (!profile)
        return false;
    manager->setActiveProfile(profile);
    connect(manager, &KlvPluginsManager::activeProfileChanged, this, &HostPlugins::rememberProfile,
            Qt::UniqueConnection);
    return true;
}

void HostPlugins::pluginsChanged()
{
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    m_profiles.apply();
    manager->setActiveProfile(manager->getActiveProfile());
    Q_EMIT changed();
}

void HostPlugins::rememberProfile()
{
    m_rememberedProfile = KlvPluginsManager::getInstance()->getActiveProfile();
    profilesChanged();
}

void HostPlugins::profilesChanged()
{
    // A profile that was renamed is remembered by its new name.
    if (KlvPluginsManager::getInstance()->getProfilesList().contains(m_rememberedProfile))
        HostSettings().setValue(profileKey, toUtf16(m_rememberedProfile->getName()));
    else
        m_rememberedProfile = nullptr;
}
