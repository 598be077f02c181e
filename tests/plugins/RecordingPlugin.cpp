#include <KlvExtender/KlvExtension.h>
#include <KlvExtender/KlvPlugin.h>

#include <QCoreApplication>
#include <QStringList>
#include <QVariant>

#include <stdexcept>

// One source, several modules: FAULT says what this one does wrong.
enum class Fault
{
    None,
    LoadPluginThrows,
    LoadPluginGivesNull,
    LoadThrows,
    LoadThrowsInt,
    ActivateThrows,
    DeactivateThrows,
    UnloadThrows
};

namespace {

constexpr Fault fault = Fault::FAULT;

// The events of all modules in their order, where the test finds them after the module is gone.
void record(const SbString& name, const char* event)
{
    QStringList events = qApp->property("events").toStringList();
    events.append(QLatin1String(name.getString()) + QLatin1Char(' ') + QLatin1String(event));
    qApp->setProperty("events", events);
}

void failAt(Fault here)
{
    if (fault == here)
        throw std::runtime_error("this plug-in is broken");
}

class RecordingExtension : public KlvExtension
{
public:
    explicit RecordingExtension(const char* name) { m_name = name; }

    void load() override
    {
        record(m_name, "load");
        failAt(Fault::LoadThrows);
        if (fault == Fault::LoadThrowsInt)
            throw 42;
    }

    void activate() override
    {
        KlvExtension::activate();
        record(m_name, "activate");
        failAt(Fault::ActivateThrows);
    }

    void deactivate() override
    {
        KlvExtension::deactivate();
        record(m_name, "deactivate");
        failAt(Fault::DeactivateThrows);
    }

    void unload() override
    {
        record(m_name, "unload");
        failAt(Fault::UnloadThrows);
    }
};

class RecordingPlugin : public KlvPlugin
{
public:
    RecordingPlugin() { m_name = "Recording"; }
    ~RecordingPlugin() override { record(m_name, "deleted"); }

    void load() override
    {
        addExtension(&m_first);
        addExtension(&m_second);
        addExtension(&m_third);
        KlvPlugin::load();
    }

private:
    RecordingExtension m_first{"first"};
    RecordingExtension m_second{"second"};
    RecordingExtension m_third{"third"};
};

KlvPlugin* g_plugin = nullptr;

} // namespace

extern "C" Q_DECL_EXPORT KlvPlugin* loadPlugin()
{
    failAt(Fault::LoadPluginThrows);
    return fault == Fault::LoadPluginGivesNull ? nullptr : g_plugin = new RecordingPlugin;
}

extern "C" Q_DECL_EXPORT void unloadPlugin()
{
    delete g_plugin;
    g_plugin = nullptr;
}
