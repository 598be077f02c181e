#include "TestMain.h"
#include "View/SceneView.h"

#include <Inventor/nodes/SoCube.h>

#include <QAction>
#include <QSignalSpy>

/// Without an X server there is no OpenGL on the offscreen platform.
class tst_SceneViewPlaceholder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goesOnWithoutOpenGl();
};

void tst_SceneViewPlaceholder::goesOnWithoutOpenGl()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    auto* const cube = new SoCube;
    cube->ref();
    {
        SceneView view;
        QVERIFY(!view.canDraw());
        QSignalSpy first(&view, &SceneView::firstFrameDrawn);
        view.setRoot(cube);
        view.resize(300, 200);
        view.show();
        QTRY_COMPARE(first.count(), 1); // whoever waits for a picture goes on, too
        QVERIFY(view.grabFrame().isNull());
        const QImage shown = view.grab().toImage();
        QSet<QRgb> colours;
        for (int x = 20; x < 280; ++x)
            colours.insert(shown.pixel(x, 100));
        QVERIFY(colours.size() > 1); // there is a text
        QTest::keyClick(&view, Qt::Key_Left);
        QTest::mouseDClick(&view, Qt::LeftButton);
        for (QAction* const action : view.actions())
            action->trigger();
    }
    QCOMPARE(cube->getRefCount(), 1);
    cube->unref();
}

static const bool noDisplay = qunsetenv("DISPLAY"); // before the application connects to it

KLV_TEST_MAIN(tst_SceneViewPlaceholder)
#include "tst_SceneViewPlaceholder.moc"
