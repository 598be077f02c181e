#include <KlvExtender/KlvPluginsManager.h>

#include "PluginModule.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvGuarded.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvServices.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QUndoStack>

#include <algorithm>
#include <vector>

namespace {

KlvPluginsManager* g_instance = nullptr;

} // namespace

class KlvPluginsManager::Private
{
public:
    std::vector<std::unique_ptr<PluginModule>> modules;
    QList<KlvExtension*> extensions;
    QList<KlvProfile*> profiles; ///< owned
    KlvProfile* active = nullptr;
    QList<KlvExtension*>
        activated; ///< those that a profile put to work; docks activate their editors themselves

    void deactivate(KlvExtension* extension);
    void activate(KlvExtension* extension);
};

void KlvPluginsManager::Private::deactivate(KlvExtension* extension)
{
    if (activated.removeOne(extension))
        guarded([extension] { extension->deactivate(); });
}

void KlvPluginsManager::Private::activate(KlvExtension* extension)
{
    if (activated.contains(extension))
        return;
    activated.append(extension);
    if (!guarded([extension] { extension->activate(); }))
        activated.removeOne(extension);
}

KlvPluginsManager* KlvPluginsManager::getInstance()
{
    if (!g_instance) {
        // Made before and therefore destroyed after the manager, which needs them to unload its plug-ins.
        KlvServices::getInstance();
        g_instance = new KlvPluginsManager;
        qAddPostRoutine([] { delete g_instance; });
    }
    return g_instance;
}

KlvPluginsManager::KlvPluginsManager()
    : d(std::make_unique<Private>())
{
}

KlvPluginsManager::~KlvPluginsManager()
{
    while (!d->modules.empty())
        unloadPlugin(d->modules.back()->plugin());
    qDeleteAll(d->profiles);
    g_instance = nullptr;
}

KlvPlugin* KlvPluginsManager::loadPlugin(const QString& file, QString* error)
{
    QString ownError;
    QString& reason = error ? *error : ownError;
    const QString path = QFileInfo(file).canonicalFilePath();
    const bool loaded = std::any_of(d->modules.begin(), d->modules.end(), [&path](const auto& module) {
        return !path.isEmpty() && QFileInfo(module->file()).canonicalFilePath() == path;
    });
    if (loaded) {
        reason = tr("The plug-in \"%1\" is loaded already.").arg(file);
        return nullptr;
    }
    std::unique_ptr<PluginModule> module = PluginModule::load(file, reason);
    if (!module)
        return nullptr;
    d->extensions.append(module->extensions());
    KlvPlugin* plugin = d->modules.emplace_back(std::move(module))->plugin();
    Q_EMIT pluginsChanged();
    return plugin;
}

void KlvPluginsManager::unloadPlugin(KlvPlugin* plugin)
{
    const auto module = std::find_if(d->modules.begin(), d->modules.end(),
                                     [plugin](const auto& one) { return one->plugin() == plugin; });
    if (!plugin || module == d->modules.end())
        return;
    KlvServices* services = KlvServices::getInstance();
    services->setSelectedNode(nullptr);
    services->setSelectedField(nullptr);

    const QList<KlvExtension*> leaving = (*module)->extensions();
    std::for_each(leaving.crbegin(), leaving.crend(), [this](KlvExtension* one) { d->deactivate(one); });
    services->getUndoStack()->clear();
    for (KlvExtension* extension : leaving) {
        d->extensions.removeOne(extension);
        for (KlvProfile* profile : std::as_const(d->profiles))
            profile->forgetExtension(extension);
    }
    // Taken out first: what the destructor calls finds a manager that no longer knows the plug-in.
    std::unique_ptr<PluginModule> last = std::move(*module);
    d->modules.erase(module);
    last.reset();
    Q_EMIT pluginsChanged();
}

QList<KlvPlugin*> KlvPluginsManager::getPlugins() const
{
    QList<KlvPlugin*> plugins;
    for (const auto& module : d->modules)
        plugins.append(module->plugin());
    return plugins;
}

QString KlvPluginsManager::getPluginFile(const KlvPlugin* plugin) const
{
    for (const auto& module : d->modules) {
        if (module->plugin() == plugin)
            return module->file();
    }
    return QString();
}

const QList<KlvExtension*>& KlvPluginsManager::getExtensions() const
{
    return d->extensions;
}

const QList<KlvProfile*>& KlvPluginsManager::getProfilesList() const
{
    return d->profiles;
}

KlvProfile* KlvPluginsManager::getActiveProfile() const
{
    return d->active;
}

void KlvPluginsManager::setActiveProfile(KlvProfile* profile)
{
    if (profile && !d->profiles.contains(profile))
        return;
    const auto inProfile = [profile](const KlvExtension* one) { return profile && profile->getSetting(one); };
    const bool changes = d->active != profile;

    // What leaves still finds its setting in the old profile.
    const QList<KlvExtension*> extensions = d->extensions;
    for (auto one = extensions.crbegin(); one != extensions.crend(); ++one) {
        if (!inProfile(*one))
            d->deactivate(*one);
    }
    d->active = profile;
    for (KlvExtension* one : extensions) {
        if (inProfile(one))
            d->activate(one);
    }
    if (changes)
        Q_EMIT activeProfileChanged(profile);
    KlvServices::getInstance()->announceSelection();
}

void KlvPluginsManager::addProfile(KlvProfile* profile)
{
    if (!profile || d->profiles.contains(profile))
        return;
    d->profiles.append(profile);
    Q_EMIT profilesChanged();
}

void KlvPluginsManager::renameProfile(KlvProfile* profile, const SbString& name)
{
    if (!d->profiles.contains(profile) || profile->m_name == name)
        return;
    profile->m_name = name;
    Q_EMIT profilesChanged();
}

void KlvPluginsManager::removeProfile(KlvProfile* profile)
{
    if (!d->profiles.contains(profile))
        return;
    if (profile == d->active)
        setActiveProfile(nullptr);
    d->profiles.removeOne(profile);
    delete profile;
    Q_EMIT profilesChanged();
}
