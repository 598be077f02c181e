#include "Answer.h"

#include <Kelvor/KelvorInspector.h>

#include <KlvExtender/KlvServices.h>

#include <Inventor/sensors/SoNodeSensor.h>
#include <Inventor/sensors/SoOneShotSensor.h>
#include <Inventor/sensors/SoTimerSensor.h>

#include <iostream>

namespace {

/// A scene of the application: a root with one cone.
struct Scene
{
    Scene()
    {
        root->ref();
        root->setName("Ship");
        root->addChild(cone);
        m_watch.setDeleteCallback([](void* gone, SoSensor*) { *static_cast<bool*>(gone) = true; }, &isGone);
        m_watch.attach(root);
    }
    ~Scene() { release(); }
    void release()
    {
        if (SoSeparator* held = std::exchange(root, nullptr))
            held->unref();
    }

    SoSeparator* root = new SoSeparator;
    SoCone* cone = new SoCone;
    bool isGone = false;

private:
    SoNodeSensor m_watch;
};

/// An application's own care for the sensor queues. While it is there, `isStolen` says whether a timer sensor
/// fired without it.
struct Pump
{
    explicit Pump(int interval)
    {
        m_timer.callOnTimeout([this] {
            const QScopedValueRollback<bool> rollback(isPumping, true);
            SoDB::getSensorManager()->processTimerQueue();
            SoDB::getSensorManager()->processDelayQueue(TRUE);
        });
        m_timer.start(interval);
        m_animation.setInterval(SbTime(0.001));
        m_animation.schedule();
    }

    bool isPumping = false;
    bool isStolen = false;

private:
    QTimer m_timer;
    SoTimerSensor m_animation{[](void* data, SoSensor*) {
                                  auto* pump = static_cast<Pump*>(data);
                                  pump->isStolen |= !pump->isPumping;
                              },
                              this};
};

/// What an application would find changed if the inspector left anything behind.
auto outerState()
{
    return std::tuple(SoDebugError::getHandlerCallback(), std::cout.rdbuf(), std::cerr.rdbuf(),
                      QApplication::topLevelWidgets().size(), QCoreApplication::organizationName(),
                      QApplication::palette(), QApplication::windowIcon().isNull());
}

} // namespace

class tst_Embedding : public QObject
{
    Q_OBJECT

    KlvServices* m_services = KlvServices::getInstance();
    Scene m_last; // is still shown when the application object goes

    QMainWindow* window() const
    {
        return static_cast<QMainWindow*>(KelvorInspector::getInstance()->window());
    }

    QLineEdit* input() const
    {
        auto* edit = window()->findChild<QDockWidget*>("KlvFieldEditorDockWin")->findChild<QLineEdit*>();
        edit->setFocus();
        edit->selectAll();
        return edit;
    }

    void open(const Scene& scene)
    {
        KelvorInspector::inspect(scene.root);
        QVERIFY(QTest::qWaitForWindowActive(window()));
        m_services->setSelectedField(&scene.cone->height);
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression("^(?!This plugin does not support)"));
        QSettings("Kelvor", "kelvor").clear();
    }

    void cleanup()
    {
        auto* inspector = KelvorInspector::getInstance();
        if (!inspector)
            return;
        const QSignalSpy closed(inspector, &KelvorInspector::closed);
        inspector->close();
        QVERIFY(!KelvorInspector::getInstance());
        QTRY_COMPARE(closed.count(), 1);
    }

    void leavesTheApplicationAsItWas()
    {
        const Scene scene;
        const Scene other;
        const auto before = outerState();
        for (int round = 0; round < 10; ++round) {
            open(scene);
            QVERIFY(window()->windowTitle().contains("Separator \"Ship\""));
            QTest::keyClicks(input(), QString::number(round + 5) + '\r');
            QCOMPARE(scene.cone->height.getValue(), round + 5.0f);
            if (round % 2)
                KelvorInspector::inspect(other.root);
            cleanup();
            QCOMPARE(scene.root->getRefCount(), 1);
            QCOMPARE(scene.cone->getRefCount(), 1);
            QCOMPARE(other.root->getRefCount(), 1);
            QVERIFY(outerState() == before);
        }
    }

    void theApplicationDeletesWhatItLikes()
    {
        Scene scene;
        open(scene);
        QTest::keyClicks(input(), "7\r8"); // one taken, one only typed
        scene.root->removeChild(scene.cone);
        QTRY_COMPARE(m_services->getSelectedNode(), nullptr);
        scene.root->addChild(scene.cone = new SoCone);
        m_services->setSelectedField(&scene.cone->height);
        QTest::keyClicks(input(), "7\r8");
        scene.release();
        QTRY_VERIFY(scene.isGone);
        QCOMPARE(KelvorInspector::getInstance()->root(), nullptr);
        const QString told = window()->statusBar()->currentMessage();
        QVERIFY2(window()->statusBar()->isVisible() && told.endsWith('.'), qPrintable(told));
        for (const QAction* action : window()->findChildren<QAction*>())
            QVERIFY(action->text() != "Save &As…" || !action->isEnabled());
        const Scene next;
        open(next);
        QCOMPARE(KelvorInspector::getInstance()->root(), next.root);
    }

    void anApplicationsPumpIsLeftAlone()
    {
        static bool isHeard = false;
        SoSensorManager* sensors = SoDB::getSensorManager();
        sensors->setChangedCallback([](void*) { isHeard = true; }, nullptr);
        const Pump pump(400); // a slow one
        const Scene scene;
        open(scene);
        isHeard = false;
        for (int i = 0; i < 100; ++i) {
            scene.cone->height = float(i); // something is queued most of the time
            QTest::qWait(5);
        }
        QVERIFY(!pump.isStolen);
        QVERIFY(isHeard);
        sensors->setChangedCallback(nullptr, nullptr);
    }

    void anApplicationWithoutPumpNeedsNone()
    {
        const Scene scene;
        open(scene);
        scene.cone->height = 4.5f;
        QTRY_COMPARE(input()->text(), "4.500000");
        {
            Pump late(10);
            QTest::qWait(200);
            late.isStolen = false;
            QTest::qWait(200);
            QVERIFY(!late.isStolen);
        }
        cleanup();
        int fired = 0;
        SoOneShotSensor sensor([](void* count, SoSensor*) { ++*static_cast<int*>(count); }, &fired);
        sensor.schedule();
        QTest::qWait(300);
        QCOMPARE(fired, 0); // it has stopped looking after them
    }

    void asksOnceBeforeTheListOfChangesGoes()
    {
        const Scene scene;
        open(scene);
        QTest::keyClicks(input(), "7\r");
        Answer cancel(QMessageBox::Cancel);
        QTest::keyClick(window(), Qt::Key_W, Qt::ControlModifier);
        QVERIFY2(cancel.text.startsWith("One field was changed."), qPrintable(cancel.text));
        QVERIFY(window()->testAttribute(Qt::WA_QuitOnClose)); // there is no other
        window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window()));
        QTimer::singleShot(0, this, [] {
            for (auto* button : QApplication::activeModalWidget()->findChildren<QPushButton*>())
                if (button->text().contains("C++"))
                    button->click();
        });
        QTest::keyClick(window(), Qt::Key_W, Qt::ControlModifier);
        QTRY_VERIFY(!KelvorInspector::getInstance());
        QVERIFY(QApplication::clipboard()->text().contains("height"));
        QCOMPARE(scene.cone->height.getValue(), 7.0f);
    }

    void closesFromADialogOfItsOwn()
    {
        const Scene scene;
        open(scene);
        QTimer::singleShot(0, this, [] {
            QCOMPARE(QApplication::activeModalWidget()->windowModality(), Qt::WindowModal);
            KelvorInspector::getInstance()->close();
        });
        QTest::keyClick(window(), Qt::Key_T, Qt::AltModifier);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_P);
        QTRY_COMPARE(scene.root->getRefCount(), 1);
    }

    void closesFromACallbackOfTheScene()
    {
        const Scene scene;
        open(scene);
        const auto close = [](void*, SoSensor*) {
            if (KelvorInspector::getInstance())
                KelvorInspector::getInstance()->close();
            QApplication::processEvents();
        };
        SoFieldSensor sensor(close, nullptr);
        sensor.setPriority(0);
        sensor.attach(&scene.cone->height);
        connect(KelvorInspector::getInstance(), &KelvorInspector::closed, qApp, [] { QApplication::exit(); });
        QTimer::singleShot(0, this, [this] { QTest::keyClicks(input(), "7\r"); });
        QApplication::exec();
        QCOMPARE(scene.root->getRefCount(), 1);
    }

    void goesWithTheApplication()
    {
        const Scene scene;
        open(scene);
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
        QApplication::exec();
        QVERIFY(!KelvorInspector::getInstance());
        QCOMPARE(scene.root->getRefCount(), 1);
    }

    void cleanupTestCase() { open(m_last); }
};

KLV_TEST_MAIN(tst_Embedding)
#include "tst_Embedding.moc"
