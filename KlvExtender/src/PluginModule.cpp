#include "PluginModule.h"

#include <KlvExtender/KlvGuarded.h>

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("KlvPluginsManager", text);
}

} // namespace

std::unique_ptr<PluginModule> PluginModule::load(const QString& file, QString& error)
{
    std::unique_ptr<PluginModule> module(new PluginModule(file));
    const QString reason = module->open();
    if (reason.isEmpty())
        return module;
    error = tr("The plug-in \"%1\" cannot be loaded: %2.").arg(file, reason);
    return nullptr;
}

PluginModule::PluginModule(const QString& file)
    : m_library(QFileInfo(file).absoluteFilePath())
{
    // A module with a symbol missing is refused now, instead of ending the process when the symbol is called.
    m_library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
}

QString PluginModule::open()
{
    if (!QFileInfo(m_library.fileName()).isFile())
        return tr("there is no such file");
    if (!m_library.load())
        return loadFailure();

    using LoadFunction = KlvPlugin* (*)();
    const auto make = reinterpret_cast<LoadFunction>(m_library.resolve("loadPlugin"));
    const auto unload = reinterpret_cast<UnloadFunction>(m_library.resolve("unloadPlugin"));
    if (!make || !unload)
        return tr("it does not export %1").arg(QLatin1String(make ? "unloadPlugin" : "loadPlugin"));

    QString thrown;
    if (!guarded([&] { m_plugin = make(); }, &thrown))
        return tr("it failed to start (%1)").arg(thrown);
    if (!m_plugin)
        return tr("it gave no plug-in");
    m_unload = unload;
    const bool loaded = guarded([&] { m_plugin->load(); }, &thrown);
    m_extensions = m_plugin->getExtensions();
    return loaded ? QString() : tr("its extensions failed to load (%1)").arg(thrown);
}

QString PluginModule::loadFailure() const
{
    // "Cannot load library FILE: (FILE: what the dynamic linker says)"
    QString reason = m_library.errorString().section(QLatin1Char('\n'), 0, 0);
    reason.remove(m_library.fileName() + QLatin1String(": "));
    const QRegularExpressionMatch inner = QRegularExpression(QStringLiteral("\\((.*)\\)\\.?$")).match(reason);
    return inner.hasMatch() ? inner.captured(1) : reason;
}

PluginModule::~PluginModule()
{
    // As often as there are extensions: one that throws while it unloads does not keep the others from
    // unloading.
    for (qsizetype left = m_extensions.size(); m_plugin && left >= 0; --left) {
        if (guarded([&] { m_plugin->unload(); }))
            break;
    }
    if (m_unload)
        guarded([&] { m_unload(); });
    // Objects that the plug-in has left for later deletion have their code in the module.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (m_library.isLoaded())
        m_library.unload();
}
