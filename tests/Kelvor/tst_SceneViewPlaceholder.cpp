#include "TestMain.h"
#include "View/SceneView.h"

/// Without an X server there is no OpenGL on the offscreen platform.
class tst_SceneViewPlaceholder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goesOnWithoutOpenGl()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        SceneView view;
        QVERIFY(!view.canDraw());
        QSignalSpy first(&view, &SceneView::firstFrameDrawn);
        // Coin would not survive to measure it.
        view.setRoot(
            sceneOf("VRMLIndexedLineSet { coord VRMLCoordinate { point 0 0 0 } coordIndex 9999999 }"));
        view.resize(300, 200);
        view.show();
        QTRY_COMPARE(first.count(), 1); // whoever waits for a picture goes on, too
        QVERIFY(view.grabFrame().isNull());
        view.viewActions().viewAll->trigger();
        const QImage shown = view.grab().toImage();
        QImage blank(shown);
        blank.fill(shown.pixel(0, 100));
        QVERIFY(shown != blank); // there is a text
    }
};

static const bool noDisplay = qunsetenv("DISPLAY"); // before the application connects to it

KLV_TEST_MAIN(tst_SceneViewPlaceholder)
#include "tst_SceneViewPlaceholder.moc"
