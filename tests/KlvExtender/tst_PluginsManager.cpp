#include "TestMain.h"

#include <KlvExtender/KlvExtension.h>
#include <KlvExtender/KlvPlugin.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvProfileSetting.h>
#include <KlvExtender/KlvServices.h>

namespace {

QString moduleFile(const QString& name)
{
    return QString(KELVOR_TEST_PLUGINDIR "/") + name + QString(".so");
}

/// What the recording modules have noted since the last time, with ", " between the events.
QString takeEvents()
{
    const QString events = qApp->property("events").toStringList().join(QString(", "));
    qApp->setProperty("events", QVariant());
    return events;
}

bool isMapped(const QString& name)
{
    QFile maps(QString("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(moduleFile(name).toUtf8());
}

KlvProfile* makeProfile(const char* name, const QList<KlvExtension*>& extensions)
{
    auto* profile = new KlvProfile(name);
    for (KlvExtension* extension : extensions)
        profile->addSetting(extension);
    KlvPluginsManager::getInstance()->addProfile(profile);
    return profile;
}

} // namespace

class tst_PluginsManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        takeEvents();
    }
    void cleanup()
    {
        while (!m_manager->getProfilesList().isEmpty())
            m_manager->removeProfile(m_manager->getProfilesList().last());
        for (KlvPlugin* plugin : m_manager->getPlugins())
            m_manager->unloadPlugin(plugin);
    }

    void refusesWhatIsNoPlugin()
    {
        const char* cleanedUp = "first load, third unload, second unload, first unload, Recording deleted";
        // The module, the reason, and what the module has noted.
        const char* const rows[][3] = {
            {"missing", "no such file", ""},
            {"not-a-library", "file too short", ""},
            {"NoEntryPoints", "loadPlugin", ""},
            {"OneEntryPoint", "unloadPlugin", ""},
            {"RecordingLoadPluginGivesNull", "no plug-in", ""},
            {"RecordingLoadPluginThrows", "this plug-in is broken", ""},
            {"RecordingLoadThrows", "this plug-in is broken", cleanedUp},
            {"RecordingLoadThrowsInt", "unknown", cleanedUp},
        };
        for (const auto& [name, reason, events] : rows) {
            QString error;
            QVERIFY(!m_manager->loadPlugin(moduleFile(name), &error));
            QVERIFY2(error.contains(moduleFile(name)) && error.contains(reason), qPrintable(error));
            QVERIFY2(error.endsWith('.') && !error.contains('\n'), qPrintable(error));
            QCOMPARE(takeEvents(), QString(events));
            QVERIFY(m_manager->getPlugins().isEmpty() && m_manager->getExtensions().isEmpty());
            QVERIFY(!isMapped(name));
            QVERIFY(!m_manager->loadPlugin(moduleFile(name)));
            takeEvents();
        }
        QVERIFY(m_manager->loadPlugin(moduleFile(QString("RecordingNone"))));
    }

    void loadsAndUnloads()
    {
        const QString file = moduleFile(QString("RecordingNone"));
        KlvPlugin* plugin = m_manager->loadPlugin(file);
        QVERIFY(plugin);
        QCOMPARE(plugin->getName().getString(), "Recording");
        QCOMPARE(takeEvents(), QString("first load, second load, third load"));
        QCOMPARE(m_manager->getExtensions(), plugin->getExtensions());
        QCOMPARE(m_manager->getPluginFile(plugin), file);

        KlvProfile* profile = makeProfile("all", plugin->getExtensions());
        m_manager->setActiveProfile(profile);
        QVERIFY(plugin->getExtensions().first()->getProfileSetting());
        takeEvents();

        m_manager->unloadPlugin(plugin);
        QCOMPARE(takeEvents(), QString("third deactivate, second deactivate, first deactivate, "
                                       "third unload, second unload, first unload, Recording deleted"));
        QVERIFY(m_manager->getExtensions().isEmpty());
        QVERIFY(!isMapped(QString("RecordingNone")));

        m_manager->unloadPlugin(plugin);
        m_manager->unloadPlugin(nullptr);
        m_manager->setActiveProfile(profile);
        QCOMPARE(takeEvents(), QString());
    }

    void refusesToLoadTwice()
    {
        const QString file = moduleFile(QString("RecordingNone"));
        QVERIFY(m_manager->loadPlugin(file));
        QTemporaryDir folder;
        const QString link = folder.filePath(QString("link.so"));
        QVERIFY(QFile::link(file, link));
        takeEvents();
        for (const QString& name : {file, QDir::current().relativeFilePath(file), link}) {
            QString error;
            QVERIFY(!m_manager->loadPlugin(name, &error));
            QVERIFY2(error.contains(QLatin1String("already")), qPrintable(error));
        }
        QCOMPARE(m_manager->getPlugins().size(), 1);
        QCOMPARE(takeEvents(), QString());
    }

    void switchesProfiles()
    {
        const QList<KlvExtension*> all =
            m_manager->loadPlugin(moduleFile(QString("RecordingNone")))->getExtensions();
        qRegisterMetaType<KlvProfile*>("KlvProfile*");
        qRegisterMetaType<SoFieldContainer*>("SoFieldContainer*");
        QSignalSpy listChanged(m_manager, &KlvPluginsManager::profilesChanged);
        QSignalSpy activeChanged(m_manager, &KlvPluginsManager::activeProfileChanged);
        QSignalSpy announced(KlvServices::getInstance(), &KlvServices::selectedNodeChanged);
        KlvProfile* early = makeProfile("early", {all[1], all[0]});
        KlvProfile* late = makeProfile("late", {all[2], all[1]});
        QCOMPARE(m_manager->getProfilesList(), (QList<KlvProfile*>{early, late}));
        QCOMPARE(listChanged.size(), 2);
        takeEvents();

        m_manager->setActiveProfile(early);
        QCOMPARE(takeEvents(), QString("first activate, second activate"));
        m_manager->setActiveProfile(late);
        QCOMPARE(takeEvents(), QString("first deactivate, third activate"));
        QVERIFY(!all[0]->isActive() && all[1]->isActive() && all[2]->isActive());
        QVERIFY(!all[0]->getProfileSetting() && all[2]->getProfileSetting());
        QCOMPARE(activeChanged.size(), 2);
        QCOMPARE(announced.size(), 2);

        // Settings added to the active profile take effect when it is made active again; that is no change of
        // profile.
        late->addSetting(all[0]);
        m_manager->setActiveProfile(late);
        QCOMPARE(takeEvents(), QString("first activate"));
        QCOMPARE(activeChanged.size(), 2);

        KlvProfile stranger("stranger");
        m_manager->setActiveProfile(&stranger);
        QCOMPARE(m_manager->getActiveProfile(), late);
        m_manager->removeProfile(late);
        QCOMPARE(takeEvents(), QString("third deactivate, second deactivate, first deactivate"));
        QCOMPARE(m_manager->getActiveProfile(), nullptr);
        QCOMPARE(m_manager->getProfilesList(), QList<KlvProfile*>{early});
    }

    void ordersControlledExtensions()
    {
        KlvPlugin* plugin = m_manager->loadPlugin(moduleFile(QString("RecordingNone")));
        const QList<KlvExtension*> all = plugin->getExtensions();
        KlvExtension stranger;
        KlvProfile* profile = makeProfile("docks", {});
        KlvProfileSetting* setting = profile->addSetting(&stranger);
        for (KlvExtension* extension : {&stranger, all[2], all[0], all[2], all[1]})
            setting->addControlledExtension(extension);
        QCOMPARE(setting->getControlledExtensions(), all + QList<KlvExtension*>{&stranger});

        m_manager->unloadPlugin(plugin);
        QCOMPARE(setting->getControlledExtensions(), QList<KlvExtension*>{&stranger});
    }

    void survivesThrowingExtensions()
    {
        for (const QString name :
             {"RecordingActivateThrows", "RecordingDeactivateThrows", "RecordingUnloadThrows"}) {
            const PostedErrors<SoDebugError> errors;
            KlvPlugin* plugin = m_manager->loadPlugin(moduleFile(name));
            QVERIFY(plugin);
            m_manager->setActiveProfile(makeProfile("all", plugin->getExtensions()));
            m_manager->setActiveProfile(nullptr);
            m_manager->unloadPlugin(plugin);

            // Every extension had its turn, whatever the one before it did.
            const QString events = takeEvents();
            for (const char* event :
                 {"first load", "second activate", "third activate", "first unload", "Recording deleted"})
                QVERIFY2(events.contains(QLatin1String(event)), qPrintable(events));
            QCOMPARE(errors.messages.size(), 3);
            QVERIFY(!isMapped(name));
        }
    }

private:
    KlvPluginsManager* m_manager = KlvPluginsManager::getInstance();
};

KLV_TEST_MAIN(tst_PluginsManager)
#include "tst_PluginsManager.moc"
