#include <KlvExtender/KlvExtension.h>
#include <KlvExtender/KlvPlugin.h>

#include <QCoreApplication>
#include <QStringList>
#include <QVariant>

#include <stdexcept>
#include <string_view>

namespace {

/// One source, several modules: what this one does wrong.
constexpr std::string_view fault = FAULT;

// The events of all modules in their order, where the test finds them after the module is gone.
void record(const SbString& name, const char* event)
{
    QStringList events = qApp->property("events").toStringList();
    events.append(QLatin1String(name.getString()) + QLatin1Char(' ') + QLatin1String(event));
    qApp->setProperty("events", events);
}

void failAt(std::string_view here)
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
        note("load");
        if (fault == "load a number")
            throw 42;
    }
    void activate() override
    {
        KlvExtension::activate();
        note("activate");
    }
    void deactivate() override
    {
        KlvExtension::deactivate();
        note("deactivate");
    }
    void unload() override { note("unload"); }

private:
    void note(const char* event) const
    {
        record(m_name, event);
        failAt(event);
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
    failAt("loadPlugin");
    return fault == "null" ? nullptr : g_plugin = new RecordingPlugin;
}

extern "C" Q_DECL_EXPORT void unloadPlugin()
{
    delete g_plugin;
    g_plugin = nullptr;
}
