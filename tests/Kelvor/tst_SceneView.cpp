#include "Scene/SensorPump.h"
#include "TestMain.h"
#include "View/SceneView.h"

#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/fields/SoSFVec3f.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QAction>
#include <QMainWindow>
#include <QSignalSpy>
#include <QWheelEvent>

#include <functional>

namespace {

const char* const redCube = "Separator { Material { diffuseColor 1 0 0 } Cube {} }";
// The green cube comes later in the graph, but stands behind the red one.
const char* const cubes = "Separator { BaseColor { rgb 1 0 0 } DEF Front Cube {}"
                          " Translation { translation 0.5 0.5 -4 } BaseColor { rgb 0 1 0 } Cube {} }";
const char* const smallCubes =
    "Separator { Separator { Material { diffuseColor 1 0 0 } Cube { width 0.1 height 0.1 depth 0.1 } }"
    " Translation { translation 1 1 1 } Sphere { radius 0.1 } Translation { translation -2 -2 -2 } Sphere { radius 0.1 } }";
const char* const withCamera =
    "Separator { RotationXYZ { axis Y angle 0.7 } Scale { scaleFactor 2 2 2 } Translation { translation 1 2 3 }"
    " Separator { DEF Cam PerspectiveCamera { position 0 0 5 heightAngle 0.6 }"
    " Material { diffuseColor 1 0 0 } Cube {} } }";

SoSeparator* sceneOf(const QByteArray& text)
{
    const QByteArray file = "#Inventor V2.1 ascii\n" + text;
    SoInput input;
    input.setBuffer(file.constData(), size_t(file.size()));
    return SoDB::readAll(&input);
}

QByteArray textOf(SoNode* root)
{
    SoOutput output;
    output.setBuffer(std::malloc(1024), 1024, std::realloc);
    SoWriteAction(&output).apply(root);
    void* text = nullptr;
    size_t size = 0;
    output.getBuffer(text, size);
    const QByteArray copy(static_cast<const char*>(text), qsizetype(size));
    std::free(text);
    return copy;
}

bool isRed(QRgb pixel)
{
    return qRed(pixel) > 8 && qRed(pixel) > 2 * qGreen(pixel) && qRed(pixel) > 2 * qBlue(pixel);
}

QRect redIn(const QImage& image)
{
    QRect red;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (isRed(image.pixel(x, y)))
                red |= QRect(x, y, 1, 1);
    return red;
}

/// Mean difference of the channels of two pictures of one size.
double difference(const QImage& a, const QImage& b)
{
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int i = 0; i < 4 * a.width(); ++i)
            sum += std::abs(a.constScanLine(y)[i] - b.constScanLine(y)[i]);
    return double(sum) / (4.0 * a.width() * a.height());
}

} // namespace

using Action = std::function<void(SceneView&)>;

class tst_SceneView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void drawsWhatIsInFront();
    void navigates_data();
    void navigates();
    void pansWithThePointer();
    void looksThroughTheScenesCamera();
    void continuesFromTheScenesCamera();
    void clipsAsTheCameraSays();
    void drawsOnlyWhenNeeded();
    void survivesItsSurroundings();
    void survivesOddScenes_data();
    void survivesOddScenes();

private:
    void show(const char* scene);
    void drag(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint from, QPoint to);
    QImage picture() { return m_view->grabFrame(); }

    std::unique_ptr<SensorPump> m_pump;
    std::unique_ptr<SceneView> m_view;
    SoSeparator* m_root = nullptr;
};

void tst_SceneView::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_pump = std::make_unique<SensorPump>();
    m_view = std::make_unique<SceneView>();
    m_view->resize(400, 300);
    QVERIFY(m_view->canDraw());
}

void tst_SceneView::cleanup()
{
    m_view.reset();
    if (m_root) {
        QCOMPARE(m_root->getRefCount(), 1);
        m_root->unref();
    }
    m_root = nullptr;
}

void tst_SceneView::show(const char* scene)
{
    m_root = sceneOf(scene);
    m_root->ref();
    QSignalSpy first(m_view.get(), &SceneView::firstFrameDrawn);
    m_view->setRoot(m_root);
    m_view->show();
    m_view->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    QTRY_VERIFY(m_view->hasFocus());
    QTRY_COMPARE(first.count(), 1);
}

void tst_SceneView::drag(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint from, QPoint to)
{
    QTest::mousePress(m_view.get(), button, modifiers, from);
    for (int step = 1; step <= 10; ++step) {
        const QPointF at = from + (to - from) * step / 10.0;
        QMouseEvent move(QEvent::MouseMove, at, m_view->mapToGlobal(at), Qt::NoButton, button, modifiers);
        QApplication::sendEvent(m_view.get(), &move);
    }
    QTest::mouseRelease(m_view.get(), button, modifiers, to);
}

void tst_SceneView::drawsWhatIsInFront()
{
    show(cubes);
    QCOMPARE(m_view->root(), m_root);
    QVERIFY(!m_view->lookThroughSceneCameraAction()->isEnabled());
    m_view->viewAllAction()->trigger();
    const QImage image = picture();
    QCOMPARE(image.size(), m_view->size() * m_view->devicePixelRatioF());
    const QRect red = redIn(image);
    QVERIFY(isRed(image.pixel(red.center())));
    QVERIFY(red.width() > 50 && red.width() < 300);
    QVERIFY(!isRed(image.pixel(2, 2)));
    // Shown on the screen as it is, apart from the frame of the focus.
    const QImage shown = m_view->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(shown.copy(4, 4, 300, 200), image.copy(4, 4, 300, 200));
    QVERIFY(shown.pixel(0, 150) != image.pixel(0, 150));
}

void tst_SceneView::navigates_data()
{
    QTest::addColumn<Action>("action");
    const auto dragBy = [this](Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
        return Action([=, this](SceneView&) { drag(button, modifiers, {200, 150}, {230, 190}); });
    };
    const auto press = [](int key) { return Action([=](SceneView& view) { QTest::keyClick(&view, Qt::Key(key)); }); };
    const auto wheel = [](int delta) {
        return Action([=](SceneView& view) {
            QWheelEvent event({150, 100}, view.mapToGlobal(QPointF(150, 100)), {}, {0, delta}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&view, &event);
        });
    };
    const auto trigger = [](QAction* (SceneView::*action)() const) {
        return Action([=](SceneView& view) { (view.*action)()->trigger(); });
    };
    QTest::newRow("orbit") << dragBy(Qt::LeftButton, Qt::NoModifier);
    QTest::newRow("pan") << dragBy(Qt::MiddleButton, Qt::NoModifier);
    QTest::newRow("pan, shift") << dragBy(Qt::LeftButton, Qt::ShiftModifier);
    QTest::newRow("dolly") << dragBy(Qt::RightButton, Qt::NoModifier);
    QTest::newRow("dolly, ctrl") << dragBy(Qt::LeftButton, Qt::ControlModifier);
    QTest::newRow("wheel in") << wheel(120);
    QTest::newRow("wheel out") << wheel(-240);
    QTest::newRow("seek") << Action([](SceneView& view) {
        QTest::mouseDClick(&view, Qt::LeftButton, {}, QPoint(200, 150));
    });
    for (const int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Home, Qt::Key_A})
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << press(key);
    QTest::newRow("headlight") << trigger(&SceneView::headlightAction);
    QTest::newRow("orthographic") << trigger(&SceneView::orthographicAction);
}

void tst_SceneView::navigates()
{
    QFETCH(Action, action);
    show(withCamera);
    const QByteArray graph = textOf(m_root);
    const QImage before = picture();
    QSignalSpy frames(m_view.get(), &SceneView::frameDrawn);
    QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, QPoint(200, 150)); // by itself no motion
    QVERIFY(m_view->lookThroughSceneCameraAction()->isChecked());
    action(*m_view);
    QTRY_VERIFY(frames.count() > 0); // by itself
    QVERIFY(difference(picture(), before) > 0.5);
    QVERIFY(!redIn(picture()).isEmpty());
    QCOMPARE(textOf(m_root), graph);
}

void tst_SceneView::pansWithThePointer()
{
    show(smallCubes);
    for (const bool orthographic : {false, true}) {
        m_view->orthographicAction()->setChecked(!orthographic);
        m_view->orthographicAction()->trigger();
        m_view->viewAllAction()->trigger();
        const QRect before = redIn(picture());
        drag(Qt::MiddleButton, {}, before.center(), before.center() + QPoint(40, -30));
        const QPoint moved = redIn(picture()).center() - before.center();
        QVERIFY2((moved - QPoint(40, -30)).manhattanLength() <= 3,
                 qPrintable(QString("%1 %2").arg(moved.x()).arg(moved.y())));
    }
}

void tst_SceneView::looksThroughTheScenesCamera()
{
    show(withCamera);
    QAction* const look = m_view->lookThroughSceneCameraAction();
    QVERIFY(look->isEnabled() && look->isChecked());
    const QRect before = redIn(picture());
    QVERIFY((before.center() - QPoint(200, 150)).manhattanLength() <= 4);

    SoNode* const camera = SoNode::getByName("Cam");
    QSignalSpy frames(m_view.get(), &SceneView::frameDrawn);
    camera->set("position 0.5 0 5");
    QTRY_VERIFY(frames.count() > 0); // a change of the scene shows without our doing
    const QRect after = redIn(picture());
    QVERIFY(after.center().x() < before.center().x() - 10);

    QTest::keyClick(m_view.get(), Qt::Key_Left);
    QVERIFY(!picture().isNull() && look->isEnabled() && !look->isChecked());
    const QImage free = picture();
    camera->set("position 0 0 9");
    QVERIFY(difference(picture(), free) < 0.01);
    look->trigger();
    QVERIFY(redIn(picture()).width() < before.width());

    m_root->removeAllChildren();
    QVERIFY(!picture().isNull());
    QVERIFY(!look->isEnabled() && !look->isChecked());
}

void tst_SceneView::continuesFromTheScenesCamera()
{
    show(withCamera);
    // Caches made while the scene's camera was looked through must not keep it.
    for (int i = 0; i < 5; ++i)
        picture();
    const QRect before = redIn(picture());
    m_view->lookThroughSceneCameraAction()->trigger();
    QVERIFY(!m_view->lookThroughSceneCameraAction()->isChecked());
    const QRect after = redIn(picture());
    QVERIFY2((after.topLeft() - before.topLeft()).manhattanLength() <= 2
                 && (after.bottomRight() - before.bottomRight()).manhattanLength() <= 2,
             qPrintable(QDebug::toString(before) + QDebug::toString(after)));
    for (int i = 0; i < 5; ++i)
        picture();
    drag(Qt::LeftButton, {}, {200, 150}, {300, 150});
    QVERIFY(redIn(picture()) != after);
}

void tst_SceneView::clipsAsTheCameraSays()
{
    show("Separator { DEF Cam PerspectiveCamera { position 0 0 500 heightAngle 0.01 }"
         " BaseColor { rgb 1 0 0 } Cube {} }");
    QVERIFY(!redIn(picture()).isEmpty()); // beyond the default of the far plane, which nobody has set
    SoNode* const camera = SoNode::getByName("Cam");
    camera->set("farDistance 400");
    QVERIFY(redIn(picture()).isEmpty());
    camera->set("farDistance 600");
    QVERIFY(!redIn(picture()).isEmpty());
}

void tst_SceneView::drawsOnlyWhenNeeded()
{
    show("Separator { DEF Turn RotationXYZ { axis Y } Cube {} }");
    SoNode* const turn = SoNode::getByName("Turn");
    QTest::qWait(200);
    QSignalSpy frames(m_view.get(), &SceneView::frameDrawn);
    QTest::qWait(200);
    QCOMPARE(frames.count(), 0);
    for (int i = 0; i < 100; ++i)
        turn->set(qPrintable(QString("angle 0.%1").arg(i)));
    QTRY_VERIFY(frames.count() > 0);
    QTest::qWait(100);
    QVERIFY(frames.count() <= 2);

    turn->set("angle = ElapsedTime {} . timeOut"); // an animation keeps drawing by itself
    frames.clear();
    QTRY_VERIFY(frames.count() > 10);
    m_view->hide();
    QTest::qWait(50);
    frames.clear();
    QTest::qWait(200);
    QCOMPARE(frames.count(), 0);
    m_view->show();
    QTRY_VERIFY(frames.count() > 3);
}

void tst_SceneView::survivesItsSurroundings()
{
    show(redCube);
    QMainWindow window;
    auto* const second = new SceneView;
    window.setCentralWidget(second);
    window.resize(300, 300);
    second->setRoot(m_root);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(!redIn(second->grabFrame()).isEmpty());
    for (QWidget* const parent : {static_cast<QWidget*>(&window), static_cast<QWidget*>(nullptr)}) {
        m_view->setParent(parent); // like a dock that is attached and floated
        m_view->show();
        QVERIFY(!redIn(picture()).isEmpty());
    }
    delete window.takeCentralWidget();
    for (const QSize size : {QSize(500, 120), QSize(90, 400), QSize(1, 1), QSize(0, 0), QSize(400, 300)}) {
        m_view->setMinimumSize(0, 0);
        m_view->resize(size);
        QTest::qWait(20);
        QCOMPARE(picture().size(), size.expandedTo(QSize(1, 1)));
    }
    m_view->viewAllAction()->trigger();
    QVERIFY(!redIn(picture()).isEmpty());

    SoSeparator* const other = sceneOf("Separator { BaseColor { rgb 0 0 1 } Sphere {} }");
    m_root->addChild(other);
    m_view->setRoot(other); // a part of the old one
    m_root->removeAllChildren();
    QVERIFY(redIn(picture()).isEmpty());
    QCOMPARE(other->getRefCount(), 1); // only the view's
    m_view->setRoot(m_root);
    m_root->addChild(sceneOf(redCube));
    m_view->viewAllAction()->trigger();
    QVERIFY(!redIn(picture()).isEmpty());
    m_view->setRoot(nullptr);
    QVERIFY(redIn(picture()).isEmpty());
}

void tst_SceneView::survivesOddScenes_data()
{
    QTest::addColumn<QByteArray>("scene");
    QTest::newRow("empty") << QByteArray("Separator {}");
    QTest::newRow("huge") << QByteArray("Separator { Cube { width 1e30 } Cube {} }");
    QTest::newRow("flat camera") << QByteArray("Separator { PerspectiveCamera { heightAngle 0 } Cube {} }");
    QTest::newRow("planes") << QByteArray("Separator { PerspectiveCamera { nearDistance 9 farDistance 2 } Cube {} }");
    QTest::newRow("frustum") << QByteArray("Separator { FrustumCamera { position 0 0 5 } Cube {} }");
    QTest::newRow("cropped") << QByteArray(
        "Separator { OrthographicCamera { viewportMapping CROP_VIEWPORT_FILL_FRAME position 0 0 5 } Cube {} }");
    QTest::newRow("transparent") << QByteArray("Separator { PerspectiveCamera { position 0 0 5 }"
                                               " Material { transparency 0.5 } Cube {} Sphere {} }");
}

void tst_SceneView::survivesOddScenes()
{
    QFETCH(QByteArray, scene);
    show(scene.constData());
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Left, Qt::Key_Plus}) {
        QTest::keyClick(m_view.get(), key);
        QVERIFY(!picture().isNull());
        m_view->orthographicAction()->trigger();
        QTest::mouseDClick(m_view.get(), Qt::LeftButton, {}, QPoint(200, 150));
    }
    const float nan = std::numeric_limits<float>::quiet_NaN();
    auto* const cube = static_cast<SoSeparator*>(sceneOf("Separator { Translation {} Cube {} }"));
    static_cast<SoSFVec3f*>(cube->getChild(0)->getField("translation"))->setValue(nan, nan, nan);
    m_root->addChild(cube);
    QTest::keyClick(m_view.get(), Qt::Key_Home);
    QVERIFY(!picture().isNull());
    m_root->removeAllChildren();
    m_root->addChild(sceneOf(redCube));
    m_view->viewAllAction()->trigger();
    QVERIFY(!redIn(picture()).isEmpty());
}

KLV_TEST_MAIN(tst_SceneView)
#include "tst_SceneView.moc"
