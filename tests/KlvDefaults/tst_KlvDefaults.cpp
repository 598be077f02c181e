// The plug-in module in the plug-ins manager, and the field editor dock in a window.

#include "TestMain.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPlugin.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvProfileSetting.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/KlvShell.h>

#include <Inventor/fields/SoSFString.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoFile.h>

#include <QDockWidget>
#include <QLibrary>
#include <QMainWindow>

namespace {

/// A host window that really places docks, and notes what extensions ask of it.
class RecordingShell : public KlvShell
{
public:
    void addDockWidget(QDockWidget* dock, Qt::DockWidgetArea area) override
    {
        calls += QString("addDockWidget %1 %2").arg(dock->windowTitle()).arg(area);
        window.addDockWidget(area, dock);
    }
    void removeDockWidget(QDockWidget* dock) override
    {
        calls += QString("removeDockWidget ") + dock->windowTitle();
        window.removeDockWidget(dock);
        dock->setParent(nullptr);
    }
    void addToolBar(QToolBar*) override { calls += QString("addToolBar"); }
    void removeToolBar(QToolBar*) override { calls += QString("removeToolBar"); }
    void extensionActivated(KlvExtension* extension, int state) override
    {
        calls += QString("extensionActivated %1 %2").arg(extension->getName().getString()).arg(state);
    }
    void extensionDeactivated(KlvExtension* extension) override
    {
        calls += QString("extensionDeactivated ") + extension->getName().getString();
    }

    QMainWindow window;
    QStringList calls;
};

class OtherStringEditor : public KlvEditor
{
public:
    OtherStringEditor()
    {
        m_handledType = SoSFString::getClassTypeId();
        m_widget = &m_frame;
    }

private:
    QWidget m_frame;
};

} // namespace

class tst_KlvDefaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void lifeCycle()
    {
        RecordingShell shell;
        shell.window.show();
        KlvPluginsManager* manager = KlvPluginsManager::getInstance();
        KlvServices* services = KlvServices::getInstance();
        KlvPlugin* plugin = manager->loadPlugin(QString(KELVOR_PLUGIN_FILE));
        QVERIFY(plugin);
        auto* profile = new KlvProfile("Test");
        KlvProfileSetting* setting = profile->addSetting(plugin->getExtensions().last());
        QStringList classes;
        for (KlvExtension* extension : plugin->getExtensions()) {
            classes += QString::fromUtf8(extension->metaObject()->className());
            setting->addControlledExtension(extension);
        }
        QCOMPARE(classes.join(' '),
                 QString("DvMFDefaultFieldWidget DvMFDoubleWidget DvMFFloatWidget DvMFInt32Widget "
                         "DvMFShortWidget DvMFStringWidget DvMFUInt32Widget DvMFUShortWidget "
                         "DvSFBitMaskWidget DvSFBoolWidget DvSFEnumWidget DvSFDoubleWidget DvSFFloatWidget "
                         "DvSFInt32Widget DvSFLineWidget DvSFNameWidget DvSFPlaneWidget DvSFRotationWidget "
                         "DvSFShortWidget DvSFStringWidget DvSFUInt32Widget DvSFUShortWidget "
                         "DvSFVec2fWidget DvSFVec2i32Widget DvSFVec2sWidget DvSFVec3fWidget "
                         "DvSFVec4fWidget KlvFieldEditorDockWin"));
        manager->addProfile(profile);
        manager->setActiveProfile(profile);
        QCOMPARE(std::exchange(shell.calls, {}),
                 QStringList({"addDockWidget Field Editor 2", "extensionActivated Field Editor 1"}));
        auto* dock = shell.window.findChild<QDockWidget*>();
        QVERIFY(dock && dock->isHidden());

        const auto shown = [&](SoField* field) {
            services->setSelectedField(field);
            for (KlvExtension* extension : setting->getControlledExtensions()) {
                auto* editor = dynamic_cast<KlvEditor*>(extension);
                if (editor && dock->isVisible() && dock->widget() == editor->getWidget() &&
                    editor->isActive())
                    return QString::fromUtf8(extension->metaObject()->className());
            }
            return dock->isHidden() && !dock->widget() ? QString() : QString("a dock without an editor");
        };
        auto* file = new SoFile;
        file->ref();
        SoSFTime time;
        QCOMPARE(shown(&file->name), QString("DvSFStringWidget"));
        QCOMPARE(shown(&time), QString("DvSFLineWidget"));
        QCOMPARE(shown(&(new SoCoordinate3)->point), QString("DvMFDefaultFieldWidget"));
        // Among equally specific editors the last one is chosen; one that is not controlled never is.
        OtherStringEditor other;
        setting->addControlledExtension(&other);
        QCOMPARE(shown(&file->name), QString("KlvEditor"));
        setting->removeControlledExtension(&other);
        setting->removeControlledExtension(
            plugin->getExtensions()[classes.indexOf(QString("DvSFStringWidget"))]);
        QCOMPARE(shown(nullptr), QString());
        QCOMPARE(shown(&file->name), QString("DvSFLineWidget"));

        // A field that nobody holds goes while it is shown.
        auto* doomed = new SoFile;
        doomed->ref();
        QMetaObject::invokeMethod(plugin->getExtensions().last(), "s_selectedFieldChanged",
                                  Q_ARG(SoField*, &doomed->name));
        QVERIFY(dock->isVisible());
        doomed->unref();
        QVERIFY(dock->isHidden() && !dock->widget());

        QCOMPARE(shown(&time), QString("DvSFLineWidget"));
        manager->unloadPlugin(plugin);
        QCOMPARE(std::exchange(shell.calls, {}),
                 QStringList({"removeDockWidget Field Editor", "extensionDeactivated Field Editor"}));
        QVERIFY(!shell.window.findChild<QDockWidget*>());
        manager->removeProfile(profile);
        file->unref();
    }

    void entryPoints()
    {
        QLibrary module(QString(KELVOR_PLUGIN_FILE));
        const auto load = reinterpret_cast<KlvPlugin* (*)()>(module.resolve("loadPlugin"));
        const auto unload = reinterpret_cast<void (*)()>(module.resolve("unloadPlugin"));
        QVERIFY(load && unload);
        unload();
        QVERIFY(load()->getName() == "KlvDefaults");
        unload();
        unload();
        QVERIFY(module.unload());
    }
};

KLV_TEST_MAIN(tst_KlvDefaults)
#include "tst_KlvDefaults.moc"
