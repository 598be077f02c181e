// The plug-in module in the plug-ins manager: its docks and its tool bar in a window.

#include "RecordingShell.h"

#include <KlvExtender/KlvContainerRef.h>
#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPlugin.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvProfileSetting.h>
#include <KlvExtender/KlvServices.h>

namespace {

class OtherEditor : public KlvEditor
{
public:
    explicit OtherEditor(SoType type)
    {
        m_handledType = type;
        m_widget = &m_frame;
    }

private:
    QWidget m_frame;
};

QString className(const QObject* object)
{
    return QString::fromUtf8(object->metaObject()->className());
}

} // namespace

class tst_KlvDefaults : public QObject
{
    Q_OBJECT

public:
    tst_KlvDefaults() { m_file->ref(); }
    ~tst_KlvDefaults() override { m_file->unref(); }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_shell = std::make_unique<RecordingShell>();
        m_shell->window().show();
        m_plugin = m_manager->loadPlugin(QStringLiteral(KELVOR_PLUGIN_FILE));
        QVERIFY(m_plugin);
    }

    void cleanup()
    {
        for (KlvPlugin* plugin : m_manager->getPlugins())
            m_manager->unloadPlugin(plugin);
        while (!m_manager->getProfilesList().isEmpty())
            m_manager->removeProfile(m_manager->getProfilesList().last());
        m_shell.reset();
    }

    void extensionsInOrder()
    {
        const char* const expected =
            "KlvProfileSelectorExtension KlvConsole DvMFDefaultFieldWidget DvMFDoubleWidget "
            "DvMFFloatWidget DvMFInt32Widget DvMFShortWidget DvMFStringWidget DvMFUInt32Widget "
            "DvMFUShortWidget DvSFBitMaskWidget DvSFBoolWidget DvSFEnumWidget DvSFDoubleWidget "
            "DvSFFloatWidget DvSFInt32Widget DvSFLineWidget DvSFNameWidget DvSFPlaneWidget "
            "DvSFRotationWidget DvSFShortWidget DvSFStringWidget DvSFUInt32Widget DvSFUShortWidget "
            "DvSFVec2fWidget DvSFVec2i32Widget DvSFVec2sWidget DvSFVec3fWidget DvSFVec4fWidget "
            "KlvFieldEditorDockWin KlvNodeEditor";
        QStringList classes;
        for (const KlvExtension* one : m_plugin->getExtensions())
            classes += className(one);
        QCOMPARE(classes.join(' '), QLatin1String(expected));
    }

    void docks_data()
    {
        QTest::addColumn<bool>("ofNodes");
        QTest::newRow("field") << false;
        QTest::newRow("node") << true;
    }
    void docks()
    {
        QFETCH(bool, ofNodes);
        const QString name(ofNodes ? "KlvNodeEditor" : "KlvFieldEditorDockWin");
        const QString title(ofNodes ? "Node Editor" : "Field Editor");
        SoTypedObject object(m_file);
        SoTypedObject other(&m_file->name);
        if (!ofNodes)
            std::swap(object, other);
        KlvProfileSetting* setting = addProfile("Test", name);
        m_manager->setActiveProfile(m_manager->getProfilesList().first());
        QCOMPARE(m_shell->takeCalls().join(','),
                 QStringLiteral("addDockWidget %1 2,extensionActivated %1 1").arg(title));
        const QPointer<QDockWidget> dock = m_shell->window().findChild<QDockWidget*>(name);
        QVERIFY(dock && dock->windowTitle() == title && dock->isHidden() && !dock->acceptDrops());
        m_services->setSelectedField(&m_file->name);
        QVERIFY(dock->isHidden());

        // The most specific of the controlled editors is chosen, the last one of equals.
        OtherEditor first(object.getTypeId());
        OtherEditor last(object.getTypeId());
        OtherEditor general(object.getTypeId().getParent());
        OtherEditor foreign(other.getTypeId());
        for (OtherEditor* editor : {&first, &general, &last, &foreign})
            setting->addControlledExtension(editor);
        for (OtherEditor* editor : {&last, &first, &general}) {
            m_services->announceSelection();
            QVERIFY(dock->isVisible() && dock->widget() == editor->getWidget());
            QVERIFY(editor->isActive() && editor->getEditedObject() == object);
            setting->removeControlledExtension(editor);
            Q_EMIT editor->editedObjectLost();
            QVERIFY(dock->isHidden() && !dock->widget() && !editor->getWidget()->parent());
            QVERIFY(!editor->isActive() && editor->getEditedObject().isNull());
        }
        setting->addControlledExtension(&first);
        m_services->announceSelection();
        QVERIFY(first.isActive());
        m_services->setSelectedNode(nullptr);
        QVERIFY(dock->isHidden() && !first.isActive());
        m_services->setSelectedField(&m_file->name);
        m_manager->setActiveProfile(nullptr);
        QVERIFY(dock->isHidden() && !first.isActive());
        QCOMPARE(m_shell->takeCalls().join(','),
                 QStringLiteral("removeDockWidget %1,extensionDeactivated %1").arg(title));
        m_manager->unloadPlugin(m_plugin);
        QVERIFY(!dock);
    }

    /// An editor that is taken away commits what is being typed, also without another place for the focus
    /// in its window; somebody who hears of that selects something else.
    void selectionWithinSelection_data()
    {
        QTest::addColumn<int>("fieldIndex"); // of the field list of a cone; -1 for none
        QTest::newRow("nothing") << -1;
        QTest::newRow("the same field") << 1;
        QTest::newRow("another field") << 2;
    }
    void selectionWithinSelection()
    {
        QFETCH(int, fieldIndex);
        const KlvContainerRef cone(new SoCone);
        SoFieldList fields;
        cone.get()->getFields(fields);
        KlvProfileSetting* setting = addProfile("Test", "KlvFieldEditorDockWin");
        for (const char* editor : {"DvSFFloatWidget", "DvSFBitMaskWidget"})
            setting->addControlledExtension(extension(editor));
        m_manager->setActiveProfile(m_manager->getProfilesList().first());
        auto* dock = m_shell->window().findChild<QDockWidget*>("KlvFieldEditorDockWin");
        m_services->setSelectedField(fields[0]);
        auto* input = dock->findChild<QLineEdit*>();
        QVERIFY(input);
        input->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(dock->window()));
        QTest::keyClicks(input, "3.5");

        SoField* wanted = fieldIndex < 0 ? nullptr : fields[fieldIndex];
        std::function<void()> select = [&] { m_services->setSelectedField(wanted); };
        SoFieldSensor sensor([](void* data, SoSensor*) { (*static_cast<std::function<void()>*>(data))(); },
                             &select);
        sensor.setPriority(0);
        sensor.attach(fields[0]);
        m_services->setSelectedField(fields[1]);
        sensor.detach();
        QVERIFY(static_cast<SoSFFloat*>(fields[0])->getValue() != 2);
        QCOMPARE(m_services->getSelectedField(), wanted);
        QCOMPARE(dock->isVisible(), wanted != nullptr);
        for (const char* editor : {"DvSFFloatWidget", "DvSFBitMaskWidget"}) {
            auto* shown = static_cast<KlvEditor*>(extension(editor));
            const bool isFor = wanted && wanted->getTypeId() == shown->getHandledType();
            QCOMPARE(shown->isActive(), isFor);
            QCOMPARE(shown->getEditedObject().toField(), isFor ? wanted : nullptr);
        }
    }

    void profileSelector()
    {
        const QString selector = QStringLiteral("KlvProfileSelectorExtension");
        for (const char* name : {"A", "Größe €", "C"})
            addProfile(name, selector);
        addProfile("Without", QString());
        const QList<KlvProfile*> profiles = m_manager->getProfilesList();
        const QStringList names{"A", "Größe ?", "C", "Without"};
        m_manager->setActiveProfile(profiles[1]);
        QCOMPARE(m_shell->takeCalls().join(','),
                 QStringLiteral("addToolBar Profile Selector,extensionActivated Profile Selector 1"));
        const QPointer<QToolBar> toolBar = m_shell->window().findChild<QToolBar*>(selector);
        QVERIFY(toolBar && toolBar->isVisible() && extension(selector)->isVisible());
        auto* box = toolBar->findChild<QComboBox*>();
        const auto entries = [box] {
            QStringList texts;
            for (int i = 0; i < box->count(); ++i)
                texts += box->itemText(i);
            return texts;
        };
        QCOMPARE(entries(), names);
        QCOMPARE(box->currentIndex(), 1);
        QCOMPARE(m_manager->getActiveProfile(), profiles[1]);

        // Each choice lists what was passed once more; what lies beyond the profiles chooses none.
        QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(m_manager->getActiveProfile(), profiles[2]);
        QCOMPARE(entries(), names + names.first(3));
        for (int index : {4, -1})
            box->setCurrentIndex(index);
        QCOMPARE(m_manager->getActiveProfile(), profiles[2]);
        QCOMPARE(entries(), names + names.first(3) + names + names);

        // The selector goes while its own signal is delivered, and starts anew.
        box->setCurrentIndex(3);
        QCOMPARE(m_shell->takeCalls().join(','),
                 QStringLiteral("removeToolBar Profile Selector,extensionDeactivated Profile Selector"));
        box->setCurrentIndex(0);
        QCOMPARE(m_manager->getActiveProfile(), profiles[3]);
        m_manager->removeProfile(profiles[1]);
        m_manager->setActiveProfile(profiles[0]);
        QCOMPARE(entries(), QStringList({"A", "C", "Without"}));
        // A profile that went meanwhile is still listed.
        m_manager->removeProfile(profiles[3]);
        box->setCurrentIndex(2);
        QCOMPARE(m_manager->getActiveProfile(), profiles[0]);
    }

    void otherPluginsNodeEditor()
    {
        KlvPlugin* other = m_manager->loadPlugin(QStringLiteral(TRANSFORM_PLUGIN_FILE));
        QVERIFY(other);
        KlvProfileSetting* setting = addProfile("Test", "KlvNodeEditor");
        setting->addControlledExtension(other->getExtensions().first());
        m_manager->setActiveProfile(m_manager->getProfilesList().first());
        const auto* dock = m_shell->window().findChild<QDockWidget*>("KlvNodeEditor");
        auto* node = new SoTransform;
        node->ref();
        m_services->setSelectedNode(node);
        QVERIFY(QTest::qWaitForWindowActive(&m_shell->window()));
        const auto boxes = dock->widget()->findChildren<QDoubleSpinBox*>();
        QCOMPARE(boxes.size(), 9);
        const auto enter = [&](int box, const char* keys) {
            boxes[box]->setFocus();
            boxes[box]->selectAll();
            QTest::keyClicks(boxes[box], keys);
        };

        // The components that are not entered stay to the bit; undo brings back the default, too.
        node->scaleFactor = SbVec3f(0.123456789f, 1, 2);
        enter(7, "3\r");
        QCOMPARE(node->scaleFactor.getValue(), SbVec3f(0.123456789f, 3, 2));
        enter(0, "1.5\r");
        QVERIFY(node->translation.getValue() == SbVec3f(1.5f, 0, 0) && !node->translation.isDefault());
        m_services->getUndoStack()->undo();
        QVERIFY(node->translation.getValue() == SbVec3f(0, 0, 0) && node->translation.isDefault());
        processSensors();
        QCOMPARE(boxes[0]->value(), 0.0);

        node->rotation = SbRotation(SbVec3f(0, 0, 1), float(M_PI / 2));
        processSensors();
        QVERIFY(qAbs(boxes[4]->value()) < 0.001 && qAbs(boxes[5]->value() - 90) < 0.001);

        // What is being typed counts; the plug-in itself may go while it is in use.
        enter(2, "7");
        m_services->setSelectedNode(m_file);
        QCOMPARE(node->translation.getValue(), SbVec3f(0, 0, 7));
        QVERIFY(dock->isHidden());
        m_services->setSelectedNode(node);
        QVERIFY(dock->isVisible() && m_services->getUndoStack()->count() > 0);
        m_manager->unloadPlugin(other);
        QVERIFY(dock->isHidden() && !dock->widget());
        QCOMPARE(m_services->getUndoStack()->count(), 0);
        node->translation = SbVec3f(0, 0, 0);
        processSensors();
        node->unref();
    }

    void entryPoints()
    {
        m_manager->unloadPlugin(m_plugin);
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

private:
    KlvExtension* extension(const QString& name) const
    {
        for (KlvExtension* one : m_manager->getExtensions()) {
            if (className(one) == name)
                return one;
        }
        return nullptr;
    }

    /// Adds a profile with an extension, or without any; gives the extension's setting.
    KlvProfileSetting* addProfile(const char* name, const QString& active)
    {
        auto* profile = new KlvProfile(name);
        m_manager->addProfile(profile);
        return profile->addSetting(extension(active));
    }

    KlvPluginsManager* m_manager = KlvPluginsManager::getInstance();
    KlvServices* m_services = KlvServices::getInstance();
    std::unique_ptr<RecordingShell> m_shell;
    KlvPlugin* m_plugin = nullptr;
    SoFile* m_file = new SoFile;
};

KLV_TEST_MAIN(tst_KlvDefaults)
#include "tst_KlvDefaults.moc"
