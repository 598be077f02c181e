#pragma once

#include <QString>
#include <QStringList>

/// The plug-ins and profiles of the host: the default plug-in, those that were asked for, and the profile
/// "Default" in which everything is active and every dock and panel controls every editor.
///
/// Unloads all plug-ins when it goes, while the shell that they show themselves in must still be there.
class HostPlugins
{
public:
    HostPlugins();
    ~HostPlugins();

    HostPlugins(const HostPlugins&) = delete;
    HostPlugins& operator=(const HostPlugins&) = delete;

    /// The file of the plug-in that comes with the host, beside the host library.
    static QString defaultPlugin();

    /// Loads one plug-in; false and one sentence in `error` when that fails.
    bool load(const QString& file, QString* error);
    /// Loads all modules of a folder, in the order of their names, and gives one sentence for each that
    /// failed or for the folder when it cannot be read.
    QStringList loadFolder(const QString& folder);

    /// Makes a profile active, "Default" when no name is given; false when there is none of the name. Called
    /// once the plug-ins are loaded.
    bool activateProfile(const QString& name = QString());
};
