#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbString.h>

#include <QList>
#include <QObject>
#include <QString>

#include <memory>

class KlvExtension;
class KlvPlugin;
class KlvProfile;

/// Loads and unloads plug-in modules and keeps the profiles.
///
/// The one instance is made on first use and goes with the application object: it then unloads what is still
/// loaded and deletes the profiles. Nothing that a plug-in throws leaves this class.
class KLV_EXTENDER_EXPORT KlvPluginsManager : public QObject
{
    Q_OBJECT

public:
    static KlvPluginsManager* getInstance();

    ~KlvPluginsManager() override;

    /// Loads a module and its extensions. On failure gives null and, if asked for, one sentence in `error`;
    /// nothing of the module then stays behind. A module that is loaded already is refused. Its extensions
    /// are active once a profile that has settings for them is made active.
    KlvPlugin* loadPlugin(const QString& file, QString* error = nullptr);
    /// Clears the selection and the history (both may hold code and objects of the plug-in), deactivates and
    /// unloads its extensions, takes them out of all profiles and unloads the module. Null and a plug-in that
    /// this manager did not load are ignored.
    void unloadPlugin(KlvPlugin* plugin);

    /// The loaded plug-ins in the order of loading.
    QList<KlvPlugin*> getPlugins() const;
    /// The file that a loaded plug-in came from; empty for one that this manager did not load.
    QString getPluginFile(const KlvPlugin* plugin) const;
    /// The extensions of all loaded plug-ins in the order of their registration.
    const QList<KlvExtension*>& getExtensions() const;

    /// The profiles in the order of their addition.
    const QList<KlvProfile*>& getProfilesList() const;
    /// The active profile, or null.
    KlvProfile* getActiveProfile() const;
    /// Deactivates what `profile` leaves out, activates what it adds, touches nothing else, and then
    /// announces the selection again, so that the docks choose anew. Called with the active profile it puts
    /// changed settings into effect. Null deactivates everything. A profile that was not added is ignored.
    void setActiveProfile(KlvProfile* profile);
    /// Adds a profile and takes ownership. Null and one that was added already are ignored.
    void addProfile(KlvProfile* profile);
    /// Gives a profile another name; it stays the same profile, active or not. One that was not added is
    /// ignored.
    void renameProfile(KlvProfile* profile, const SbString& name);
    /// Removes and deletes a profile; if it was active, no profile is active afterwards.
    void removeProfile(KlvProfile* profile);

Q_SIGNALS:
    /// A plug-in was loaded or unloaded.
    void pluginsChanged();
    /// A profile was added, renamed or removed.
    void profilesChanged();
    /// Another profile (or none: null) is active now.
    void activeProfileChanged(KlvProfile* profile);

private:
    KlvPluginsManager();

    class Private;
    std::unique_ptr<Private> d;
};
