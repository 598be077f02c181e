#include "HostPlugins.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvProfileSetting.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>

namespace {

const char* const defaultProfile = "Default";

KlvProfile* findProfile(const QString& name)
{
    for (KlvProfile* profile : KlvPluginsManager::getInstance()->getProfilesList()) {
        if (toUtf16(profile->getName()) == name)
            return profile;
    }
    return nullptr;
}

/// Everything active, everything controlled; repeated after a plug-in was loaded it adds what is new.
void complete(KlvProfile* profile)
{
    const QList<KlvExtension*>& extensions = KlvPluginsManager::getInstance()->getExtensions();
    for (KlvExtension* extension : extensions) {
        // Editors are put to work by the dock that shows them.
        if (qobject_cast<KlvEditor*>(extension))
            continue;
        KlvProfileSetting* setting = profile->addSetting(extension);
        for (KlvExtension* other : extensions) {
            if (qobject_cast<KlvEditor*>(other))
                setting->addControlledExtension(other);
        }
    }
}

} // namespace

HostPlugins::HostPlugins()
{
    if (!findProfile(QLatin1String(defaultProfile)))
        KlvPluginsManager::getInstance()->addProfile(new KlvProfile(defaultProfile));
}

HostPlugins::~HostPlugins()
{
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    manager->setActiveProfile(nullptr);
    const QList<KlvPlugin*> plugins = manager->getPlugins();
    for (auto plugin = plugins.crbegin(); plugin != plugins.crend(); ++plugin)
        manager->unloadPlugin(*plugin);
}

QString HostPlugins::defaultPlugin()
{
    // Beside the library that this code is in, so that an embedding application finds it too.
    Dl_info library = {};
    dladdr(reinterpret_cast<const void*>(&HostPlugins::defaultPlugin), &library);
    const QDir folder = QFileInfo(QFile::decodeName(library.dli_fname)).absoluteDir();
    return folder.filePath(QStringLiteral("kelvor/plugins/libqor_kelvor_extender_base.so"));
}

bool HostPlugins::load(const QString& file, QString* error)
{
    return KlvPluginsManager::getInstance()->loadPlugin(file, error) != nullptr;
}

QStringList HostPlugins::loadFolder(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.isReadable())
        return {QCoreApplication::translate("HostPlugins", "The plug-in folder \"%1\" cannot be read.")
                    .arg(folder)};
    QStringList errors;
    for (const QFileInfo& file : dir.entryInfoList({QStringLiteral("*.so")}, QDir::Files, QDir::Name)) {
        QString error;
        if (!load(file.filePath(), &error))
            errors.append(error);
    }
    return errors;
}

bool HostPlugins::activateProfile(const QString& name)
{
    KlvProfile* profile = findProfile(name.isEmpty() ? QLatin1String(defaultProfile) : name);
    if (!profile)
        return false;
    complete(findProfile(QLatin1String(defaultProfile)));
    KlvPluginsManager::getInstance()->setActiveProfile(profile);
    return true;
}
