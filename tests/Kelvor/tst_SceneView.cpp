#include "CoinHelpers.h"
#include "Scene/SceneWriter.h"
#include "Scene/SensorPump.h"
#include "TestMain.h"
#include "View/SceneView.h"

#include <KlvExtender/SceneGraph/SoGLError.h>

#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/nodes/SoCallback.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTranslation.h>

#include <QAction>
#include <QOpenGLFunctions>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWheelEvent>

#include <functional>

namespace {

const char* const redCube = "Separator { Material { diffuseColor 1 0 0 } Cube {} }";
// The green cube comes later in the graph, but stands behind the red one.
const char* const cubes = "Separator { BaseColor { rgb 1 0 0 } Cube {}"
                          " Translation { translation 0.5 0.5 -4 } BaseColor { rgb 0 1 0 } Cube {} }";
const char* const smallCubes =
    "Separator { Separator { Material { diffuseColor 1 0 0 } Cube { width 0.1 height 0.1 depth 0.1 } }"
    " PointSet { vertexProperty VertexProperty { vertex [ 1 1 1, -1 -1 -1 ] } } }";
const char* const withCamera = "Separator { RotationXYZ { axis Y angle 0.7 } Scale { scaleFactor 2 2 2 } "
                               "Translation { translation 1 2 3 }"
                               " Separator { DEF Cam PerspectiveCamera { position 0 0 5 heightAngle 0.6 }"
                               " Material { diffuseColor 1 0 0 } Cube {} } }";

QByteArray textOf(SoNode* root)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("scene.iv"));
    return SceneWriter::write(*root, file.fileName()).isEmpty() && file.open(QIODevice::ReadOnly)
               ? file.readAll()
               : QByteArray();
}

bool isRed(QRgb pixel)
{
    return qRed(pixel) > 8 && qRed(pixel) > 2 * qGreen(pixel) && qRed(pixel) > 2 * qBlue(pixel);
}

QRect redIn(const QImage& image)
{
    QRect red;
    for (int i = 0; i < image.width() * image.height(); ++i)
        if (isRed(image.pixel(i % image.width(), i / image.width())))
            red |= QRect(i % image.width(), i / image.width(), 1, 1);
    return red;
}

} // namespace

using Action = std::function<void()>;

class tst_SceneView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void cleanup()
    {
        m_view.reset();
        QCOMPARE(m_root->getRefCount(), 1);
        m_root->unref();
    }

    void reportsWhatOpenGlFindsWrong()
    {
        const PostedErrors<SoGLError> errors;
        show(redCube);
        auto* const callback = new SoCallback;
        callback->setCallback([](void*, SoAction* action) {
            if (action->isOfType(SoGLRenderAction::getClassTypeId()))
                glEnable(GL_PROJECTION);
        });
        m_root->addChild(callback);
        picture();
        callback->touch();
        picture();
        QCOMPARE(errors.messages.size(), 1);
        QVERIFY2(errors.messages[0].contains("glEnable"), qPrintable(errors.messages[0]));
    }

    void drawsWhatIsInFront()
    {
        show(cubes);
        QVERIFY(!m_view->lookThroughSceneCameraAction()->isEnabled());
        const QImage image = picture();
        const QRect red = redIn(image);
        QVERIFY(isRed(image.pixel(red.center())) && red.width() > 50 && red.width() < 300);
        // Shown on the screen as it is, apart from the frame of the focus.
        const QImage shown = m_view->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QCOMPARE(shown.copy(4, 4, 300, 200), image.copy(4, 4, 300, 200));
        QVERIFY(shown.pixel(0, 150) != image.pixel(0, 150));
    }

    void navigates_data()
    {
        QTest::addColumn<Action>("action");
        const auto dragBy = [this](Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
            return Action([=, this] { drag(button, modifiers, {200, 150}, {230, 190}); });
        };
        QTest::newRow("orbit") << dragBy(Qt::LeftButton, Qt::NoModifier);
        QTest::newRow("pan") << dragBy(Qt::LeftButton, Qt::ShiftModifier);
        QTest::newRow("dolly") << dragBy(Qt::RightButton, Qt::NoModifier);
        QTest::newRow("wheel") << Action([this] {
            QWheelEvent event({150, 100}, m_view->mapToGlobal(QPointF(150, 100)), {}, {0, 120}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(m_view.get(), &event);
        });
        QTest::newRow("seek") << Action([this] {
            QTest::mouseDClick(m_view.get(), Qt::LeftButton, {}, {200, 150});
        });
        for (const Qt::Key key :
             {Qt::Key_Left, Qt::Key_Up, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Home, Qt::Key_A})
            QTest::newRow(qPrintable(QKeySequence(key).toString()))
                << Action([=, this] { QTest::keyClick(m_view.get(), key); });
        QTest::newRow("headlight") << Action([this] { m_view->headlightAction()->trigger(); });
        QTest::newRow("orthographic") << Action([this] { m_view->orthographicAction()->trigger(); });
    }

    void navigates()
    {
        QFETCH(Action, action);
        show(withCamera);
        const QByteArray graph = textOf(m_root);
        const QImage before = picture();
        QSignalSpy frames(m_view.get(), &SceneView::frameDrawn);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, QPoint(200, 150)); // by itself no motion
        QVERIFY(m_view->lookThroughSceneCameraAction()->isChecked());
        action();
        QTRY_VERIFY(frames.count() > 0); // by itself
        QVERIFY(picture() != before);
        QVERIFY(!redIn(picture()).isEmpty() || !m_view->headlightAction()->isChecked());
        QCOMPARE(textOf(m_root), graph);
    }

    void pansWithThePointer()
    {
        show(smallCubes);
        for (const bool orthographic : {false, true}) {
            m_view->orthographicAction()->setChecked(!orthographic);
            m_view->orthographicAction()->trigger();
            m_view->viewAllAction()->trigger();
            const QRect before = redIn(picture());
            drag(Qt::MiddleButton, {}, before.center(), before.center() + QPoint(40, -30));
            const QPoint moved = redIn(picture()).center() - before.center();
            QVERIFY((moved - QPoint(40, -30)).manhattanLength() <= 3);
        }
    }

    void looksThroughTheScenesCamera()
    {
        show(withCamera);
        QAction* const look = m_view->lookThroughSceneCameraAction();
        QVERIFY(look->isEnabled() && look->isChecked());
        const QRect before = redIn(picture());
        QVERIFY((before.center() - QPoint(200, 150)).manhattanLength() <= 4);
        for (int i = 0; i < 5; ++i)
            picture(); // makes caches, which must not keep the scene's camera
        look->trigger();
        QVERIFY(!look->isChecked());
        const QRect after = redIn(picture()); // the free camera starts where the scene's camera stands
        QVERIFY(before.adjusted(-1, -1, 1, 1).contains(after) &&
                after.adjusted(-1, -1, 1, 1).contains(before));

        SoNode* const camera = SoNode::getByName("Cam");
        camera->set("position 0 0 9");
        QCOMPARE(redIn(picture()), after);
        look->trigger();
        QVERIFY(redIn(picture()).width() < before.width() * 0.7);
        QSignalSpy frames(m_view.get(), &SceneView::frameDrawn);
        camera->set("position 0.5 0 5");
        QTRY_VERIFY(frames.count() > 0); // a change of the scene shows without our doing
        QVERIFY(redIn(picture()).center().x() < before.center().x() - 10);

        m_root->removeAllChildren();
        QVERIFY(!picture().isNull());
        QVERIFY(!look->isEnabled() && !look->isChecked());
    }

    void clipsAsTheCameraSays()
    {
        show("Separator { DEF Cam PerspectiveCamera { position 0 0 500 heightAngle 0.01 }"
             " BaseColor { rgb 1 0 0 } Cube {} }");
        QVERIFY(!redIn(picture()).isEmpty()); // beyond the default of the far plane, which nobody has set
        SoNode::getByName("Cam")->set("farDistance 400");
        QVERIFY(redIn(picture()).isEmpty());
    }

    void drawsOnlyWhenNeeded()
    {
        show("Separator { DEF Turn RotationXYZ { axis Y } Cube {} }");
        QTest::qWait(200);
        QSignalSpy frames(m_view.get(), &SceneView::frameDrawn);
        QTest::qWait(200);
        QCOMPARE(frames.count(), 0);
        for (int i = 0; i < 100; ++i)
            SoNode::getByName("Turn")->set(qPrintable(QString("angle 0.%1").arg(i)));
        QTRY_VERIFY(frames.count() > 0);
        QTest::qWait(100);
        QVERIFY(frames.count() <= 2);

        SoNode::getByName("Turn")->set("angle = ElapsedTime {} . timeOut"); // an animation goes on by itself
        QTRY_VERIFY(frames.count() > 10);
        m_view->hide();
        QTest::qWait(50);
        frames.clear();
        QTest::qWait(200);
        QCOMPARE(frames.count(), 0);
    }

    void survivesItsSurroundings()
    {
        show(redCube);
        QWidget window;
        auto* const second = new SceneView(&window);
        second->setRoot(m_root);
        window.show();
        QVERIFY(!redIn(second->grabFrame()).isEmpty());
        for (QWidget* const parent : {static_cast<QWidget*>(&window), static_cast<QWidget*>(nullptr)}) {
            m_view->setParent(parent); // like a dock that is attached and floated
            m_view->show();
            QVERIFY(!redIn(picture()).isEmpty());
        }
        delete second;
        m_view->setMinimumSize(0, 0);
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        for (const QSize size : {QSize(500, 120), QSize(1, 1), QSize(0, 0), QSize(90, 400)}) {
            m_view->resize(size);
            // The window manager has its say, in its own time.
            QTRY_COMPARE(picture().size(), size.expandedTo(QSize(1, 1)));
        }
        SoSeparator* const part = sceneOf("Separator { BaseColor { rgb 0 0 1 } Sphere {} }");
        m_root->addChild(part);
        m_view->setRoot(part);
        m_root->removeAllChildren();
        QVERIFY(redIn(picture()).isEmpty());
        QCOMPARE(part->getRefCount(), 1); // the view's
        m_view->setRoot(nullptr);
    }

    void survivesOddScenes()
    {
        show(redCube);
        for (const char* const scene : {"Separator {}", "Separator { Cube { width 1e30 } Cube {} }",
                                        "PointSet { vertexProperty VertexProperty {} }",
                                        "Separator { PerspectiveCamera { heightAngle 0 } Cube {} }",
                                        "Separator { FrustumCamera { position 0 0 5 } Cube {} }",
                                        "Separator { OrthographicCamera { viewportMapping "
                                        "CROP_VIEWPORT_FILL_FRAME position 0 0 5 } Cube {} }",
                                        "Separator { PerspectiveCamera { position 0 0 5 } Material { "
                                        "transparency 0.5 } Cube {} Sphere {} }"}) {
            m_view->setRoot(sceneOf(scene));
            for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_Plus}) {
                QVERIFY(!picture().isNull());
                QTest::keyClick(m_view.get(), key);
                m_view->orthographicAction()->trigger();
                QTest::mouseDClick(m_view.get(), Qt::LeftButton, {}, QPoint(200, 150));
            }
            auto* const nowhere = new SoTranslation;
            nowhere->translation = SbVec3f(1.0f, 1.0f, 1.0f) * std::numeric_limits<float>::quiet_NaN();
            static_cast<SoGroup*>(m_view->root())->insertChild(nowhere, 0);
            QVERIFY(!picture().isNull());
        }
        m_view->setRoot(m_root);
        QVERIFY(!redIn(picture()).isEmpty());
    }

private:
    void show(const char* scene)
    {
        m_view = std::make_unique<SceneView>();
        m_view->resize(400, 300);
        QVERIFY(m_view->canDraw());
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

    void drag(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint from, QPoint to)
    {
        QTest::mousePress(m_view.get(), button, modifiers, from);
        for (const QPointF at : {QPointF(from + (to - from) / 2), QPointF(to)}) {
            QMouseEvent move(QEvent::MouseMove, at, m_view->mapToGlobal(at), Qt::NoButton, button, modifiers);
            QApplication::sendEvent(m_view.get(), &move);
        }
        QTest::mouseRelease(m_view.get(), button, modifiers, to);
    }

    QImage picture() { return m_view->grabFrame(); }

    SensorPump m_pump;
    std::unique_ptr<SceneView> m_view;
    SoSeparator* m_root = nullptr;
};

KLV_TEST_MAIN(tst_SceneView)
#include "tst_SceneView.moc"
