// The plug-in module in the plug-ins manager, and the field editor dock in a window.

#include "RecordingShell.h"
#include "TestMain.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPlugin.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvProfileSetting.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoSFString.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoFile.h>

#include <QDockWidget>
#include <QLibrary>

namespace {

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
    void init() { QTest::failOnWarning(QRegularExpression("^(?!This plugin does not support)")); }

    void lifeCycle()
    {
        RecordingShell shell;
        shell.window().show();
        KlvPluginsManager* manager = KlvPluginsManager::getInstance();
        KlvServices* services = KlvServices::getInstance();
        KlvPlugin* plugin = manager->loadPlugin(QStringLiteral(KELVOR_PLUGIN_FILE));
        QVERIFY(plugin);
        auto* profile = new KlvProfile("Test");
        KlvProfileSetting* setting = profile->addSetting(plugin->getExtensions().last());
        QStringList classes;
        for (KlvExtension* extension : plugin->getExtensions()) {
            classes += QString::fromUtf8(extension->metaObject()->className());
            setting->addControlledExtension(extension);
        }
        QCOMPARE(
            classes.join(' '),
            QStringLiteral("DvMFDefaultFieldWidget DvMFDoubleWidget DvMFFloatWidget DvMFInt32Widget "
                           "DvMFShortWidget DvMFStringWidget DvMFUInt32Widget DvMFUShortWidget "
                           "DvSFBitMaskWidget DvSFBoolWidget DvSFEnumWidget DvSFDoubleWidget DvSFFloatWidget "
                           "DvSFInt32Widget DvSFLineWidget DvSFNameWidget DvSFPlaneWidget DvSFRotationWidget "
                           "DvSFShortWidget DvSFStringWidget DvSFUInt32Widget DvSFUShortWidget "
                           "DvSFVec2fWidget DvSFVec2i32Widget DvSFVec2sWidget DvSFVec3fWidget "
                           "DvSFVec4fWidget KlvFieldEditorDockWin"));
        manager->addProfile(profile);
        manager->setActiveProfile(profile);
        QCOMPARE(shell.takeCalls(),
                 QStringList({"addDockWidget Field Editor 2", "extensionActivated Field Editor 1"}));
        auto* dock = shell.window().findChild<QDockWidget*>();
        QVERIFY(dock && dock->isHidden());

        const auto shown = [&](SoField* field) {
            services->setSelectedField(field);
            for (KlvExtension* extension : setting->getControlledExtensions()) {
                auto* editor = dynamic_cast<KlvEditor*>(extension);
                if (editor && dock->isVisible() && dock->widget() == editor->getWidget() &&
                    editor->isActive())
                    return QString::fromUtf8(extension->metaObject()->className());
            }
            return dock->isHidden() && !dock->widget() ? QString()
                                                       : QStringLiteral("a dock without an editor");
        };
        auto* file = new SoFile;
        file->ref();
        SoSFTime time;
        QCOMPARE(shown(&file->name), QStringLiteral("DvSFStringWidget"));
        QCOMPARE(shown(&time), QStringLiteral("DvSFLineWidget"));
        QCOMPARE(shown(&(new SoCoordinate3)->point), QStringLiteral("DvMFDefaultFieldWidget"));
        // Among equally specific editors the last one is chosen; one that is not controlled never is.
        OtherStringEditor other;
        setting->addControlledExtension(&other);
        QCOMPARE(shown(&file->name), QStringLiteral("KlvEditor"));
        setting->removeControlledExtension(&other);
        setting->removeControlledExtension(
            plugin->getExtensions()[classes.indexOf(QStringLiteral("DvSFStringWidget"))]);
        QCOMPARE(shown(nullptr), QString());
        QCOMPARE(shown(&file->name), QStringLiteral("DvSFLineWidget"));

        // A field that nobody holds goes while it is shown.
        auto* doomed = new SoFile;
        doomed->ref();
        QMetaObject::invokeMethod(plugin->getExtensions().last(), "s_selectedFieldChanged",
                                  Q_ARG(SoField*, &doomed->name));
        QVERIFY(dock->isVisible());
        doomed->unref();
        QVERIFY(dock->isHidden() && !dock->widget());

        QCOMPARE(shown(&time), QStringLiteral("DvSFLineWidget"));
        manager->unloadPlugin(plugin);
        QCOMPARE(shell.takeCalls(),
                 QStringList({"removeDockWidget Field Editor", "extensionDeactivated Field Editor"}));
        QVERIFY(!shell.window().findChild<QDockWidget*>());
        manager->removeProfile(profile);
        file->unref();
    }

    void entryPoints()
    {
        QLibrary module(QStringLiteral(KELVOR_PLUGIN_FILE));
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
