#pragma once

#include "ProfileStore.h"
#include "RememberedPlugins.h"

#include <QObject>

class KlvPlugin;

/// The plug-ins and profiles of the host: the default plug-in, those that a person has chosen to load at
/// every start and those that were asked for, with the profiles in which they are put to work.
///
/// Unloads the plug-ins that were loaded in its time when it goes, while the shell that they show themselves
/// in must still be there. Those that an application had loaded before go on without a profile.
class HostPlugins : public QObject
{
    Q_OBJECT

public:
    explicit HostPlugins(const QString& defaultPlugin = HostPlugins::defaultPlugin());
    ~HostPlugins() override;

    /// The file of the plug-in that comes with the host, beside the host library.
    static QString defaultPlugin();

    /// Loads the default plug-in, unless it was switched off, and the remembered ones; one sentence for each
    /// that failed. Those stay remembered: the file may come back.
    QStringList loadRemembered();
    /// Loads one plug-in for this run; false and one sentence in `error` when that fails. One that is
    /// loaded already is no failure.
    bool load(const QString& file, QString* error);
    /// Loads all modules of a folder like `load()`, in the order of their names, and gives one sentence for
    /// each that failed or for the folder when it cannot be read.
    QStringList loadFolder(const QString& folder);

    /// Loads one plug-in, for every later run too; false and one sentence in `error` when that fails.
    bool loadAndRemember(const QString& file, QString* error);
    /// Unloads a plug-in, for every later run too. The history is cleared; if it held changes of the scene
    /// that were not saved, it stays marked as changed.
    void unload(KlvPlugin* plugin);
    /// Plug-ins that are not loaded but could be: the default one when it is switched off, and remembered
    /// ones that failed.
    QStringList absentPlugins() const;
    /// No longer loads a plug-in in later runs. The default one comes back by loading it.
    void forget(const QString& file);
    bool isDefault(const QString& file) const;

    ProfileStore& profiles() { return m_profiles; }
    /// Makes a profile active; without a name the one of the last run or, where there is none of that name,
    /// the first. False when there is none of the name. Called once the plug-ins are loaded; from then on the
    /// active profile is remembered when it is changed.
    bool activateProfile(const QString& name = QString());

Q_SIGNALS:
    /// Plug-ins were loaded, unloaded, remembered or forgotten.
    void changed();

private:
    void pluginsChanged();
    void rememberProfile();
    void profilesChanged();

    const QString m_defaultPlugin;
    const QList<KlvPlugin*> m_othersPlugins; ///< only compared
    RememberedPlugins m_remembered;
    ProfileStore m_profiles;
    KlvProfile* m_rememberedProfile = nullptr; ///< only compared
};
