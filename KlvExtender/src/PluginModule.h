#pragma once

#include <KlvExtender/KlvPlugin.h>

#include <QLibrary>
#include <QString>

#include <memory>

/// A plug-in module of the file system, loaded: its library and the plug-in object that it made. Destroying
/// it unloads both. Nothing that the plug-in throws comes through.
class PluginModule
{
public:
    /// Loads a module and its extensions; null and one sentence in `error` when that fails.
    static std::unique_ptr<PluginModule> load(const QString& file, QString& error);

    ~PluginModule();

    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;

    KlvPlugin* plugin() const { return m_plugin; }
    /// The extensions it registered; they stay known here while the plug-in unloads them.
    const QList<KlvExtension*>& extensions() const { return m_extensions; }
    QString file() const { return m_library.fileName(); }

private:
    using UnloadFunction = void (*)();

    explicit PluginModule(const QString& file);
    QString open();
    QString loadFailure() const;

    QLibrary m_library;
    KlvPlugin* m_plugin = nullptr; ///< the module's own
    UnloadFunction m_unload = nullptr;
    QList<KlvExtension*> m_extensions;
};
