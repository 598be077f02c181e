#include "TestMain.h"

#include "ExampleWindow.h"
#include "SensorQueue.h"

#include <Kelvor/KelvorInspector.h>

#include <KlvExtender/KlvServices.h>

/// The example application, used as its user would, on a screen where both windows draw.
class tst_EmbedExample : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goesOnWithItsSceneWhileItIsInspected()
    {
        QTest::failOnWarning(unexpectedWarnings());
        const SensorQueue sensors;
        ExampleWindow window;
        const auto press = [&window](QKeyCombination keys) {
            window.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            QTest::keyClick(&window, keys.key(), keys.keyboardModifiers());
        };
        const auto picture = [&window] { return window.centralWidget()->grab().toImage(); };
        window.show();
        const QImage first = picture();
        QTRY_VERIFY(picture() != first); // it moves
        press(Qt::CTRL | Qt::Key_I);
        QCOMPARE(KelvorInspector::getInstance()->root(), window.scene());
        SoNode* last = window.scene()->getChild(window.scene()->getNumChildren() - 1);
        KlvServices::getInstance()->setSelectedNode(last);
        press(Qt::Key_Delete);
        press(Qt::CTRL | Qt::Key_R);
        QTRY_COMPARE(KelvorInspector::getInstance()->root(), nullptr);
        QCOMPARE(KlvServices::getInstance()->getSelectedNode(), nullptr);
        QTimer::singleShot(200, this, [press] { press(Qt::CTRL | Qt::Key_Q); });
        QCOMPARE(QApplication::exec(), 0);
        QVERIFY(!KelvorInspector::getInstance());
    }
};

KLV_TEST_MAIN(tst_EmbedExample)
#include "tst_EmbedExample.moc"
