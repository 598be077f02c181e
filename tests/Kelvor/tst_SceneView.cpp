#include "Scene/SceneWriter.h"
#include "Scene/SensorPump.h"
#include "TestMain.h"
#include "View/SceneView.h"

#include <KlvExtender/SceneGraph/SoGLError.h>

#include <Inventor/actions/SoGLRenderAction.h>

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

// The same cube to the left and to the right; a kit and an inlined shape above and below.
const char* const occurrences =
    "Separator { PerspectiveCamera { position 0 0 20 } Material { diffuseColor 1 0 0 }"
    " Separator { Translation { translation -4 0 0 }"
    " Switch { whichChild 0 DEF Shared Separator { RotationXYZ { axis Z angle 0.5 } Cube {} } } }"
    " Separator { Translation { translation 4 0 0 } USE Shared }"
    " ShapeKit { transform Transform { translation 0 4 0 } shape Sphere {} }"
    " Separator { Translation { translation 0 -4 0 } PickStyle { style UNPICKABLE }"
    " VRMLShape { appearance VRMLAppearance { material VRMLMaterial {} } geometry VRMLBox {} } }"
    " Separator { DrawStyle { style INVISIBLE } Cube {} } }";

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

QRect where(const QImage& image, const std::function<bool(QRgb)>& matches)
{
    QRect found;
    for (int i = 0; i < image.width() * image.height(); ++i)
        if (matches(image.pixel(i % image.width(), i / image.width())))
            found |= QRect(i % image.width(), i / image.width(), 1, 1);
    return found;
}

QRect redIn(const QImage& image)
{
    return where(image, isRed);
}

/// The mark is as green as its pen, or half as green where it is faint or thin.
QRect markIn(const QImage& image)
{
    return where(image, [](QRgb pixel) { return qGreen(pixel) > 1.5 * std::max(qRed(pixel), qBlue(pixel)); });
}

/// Flights are over at once.
struct Calm : QProxyStyle
{
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

QPoint onScreen(QPointF point) // of the plane z = 0, as the camera of `occurrences` shows it
{
    return (QPointF(200, 150) + QPointF(point.x(), -point.y()) * 150 / (20 * std::tan(M_PI / 8))).toPoint();
}

} // namespace

using Action = std::function<void()>;

class tst_SceneView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new Calm); }
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
        QVERIFY(!m_view->viewActions().lookThrough->isEnabled());
        const QImage image = picture();
        const QRect red = redIn(image);
        QVERIFY(isRed(image.pixel(red.center())) && red.width() > 50 && red.width() < 300);
        // Shown on the screen as it is, apart from the frame of the focus.
        const QImage shown = m_view->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QCOMPARE(shown.copy(4, 4, 300, 200), image.copy(4, 4, 300, 200));
        QVERIFY(shown.pixel(0, 150) != image.pixel(0, 150));
    }

    void keepsColorsOfLitShapesBesideUnlitOnes()
    {
        show("Separator { Material { diffuseColor 1 0 0 } Cube {}"
             " LightModel { model BASE_COLOR } Translation { translation 9 0 0 } Cube {} }");
        const QRect red = redIn(picture());
        m_root->touch();
        QCOMPARE(redIn(picture()), red);
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
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_A})
            QTest::newRow(qPrintable(QKeySequence(key).toString()))
                << Action([=, this] { QTest::keyClick(m_view.get(), key); });
        QTest::newRow("headlight") << Action([this] { m_view->viewActions().headlight->trigger(); });
        QTest::newRow("orthographic") << Action([this] { m_view->viewActions().orthographic->trigger(); });
    }

    void navigates()
    {
        QFETCH(Action, action);
        show(withCamera);
        const QByteArray graph = textOf(m_root);
        const QImage before = picture();
        QSignalSpy frames(m_view.get(), &SceneView::frameDrawn);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, QPoint(200, 150)); // by itself no motion
        QVERIFY(m_view->viewActions().lookThrough->isChecked());
        action();
        QTRY_VERIFY(frames.count() > 0); // by itself
        QVERIFY(picture() != before);
        QVERIFY(!redIn(picture()).isEmpty() || !m_view->viewActions().headlight->isChecked());
        QCOMPARE(textOf(m_root), graph);
    }

    void pansWithThePointer()
    {
        show(smallCubes);
        for (const bool orthographic : {false, true}) {
            m_view->viewActions().orthographic->setChecked(!orthographic);
            m_view->viewActions().orthographic->trigger();
            m_view->viewActions().viewAll->trigger();
            const QRect before = redIn(picture());
            drag(Qt::MiddleButton, {}, before.center(), before.center() + QPoint(40, -30));
            const QPoint moved = redIn(picture()).center() - before.center();
            QVERIFY((moved - QPoint(40, -30)).manhattanLength() <= 3);
        }
    }

    void selectsTheOccurrenceThatIsClicked_data()
    {
        QTest::addColumn<QPointF>("at");
        QTest::addColumn<QList<int>>("childPath"); // nothing when empty
        QTest::newRow("left") << QPointF(-4, 0) << QList<int>{2, 1, 0, 1};
        QTest::newRow("right") << QPointF(4, 0) << QList<int>{3, 1, 1};
        QTest::newRow("edge") << QPointF(-4 - 1.3, 0.55) << QList<int>{2, 1, 0, 1};
        QTest::newRow("beside its edge") << QPointF(-4 - 1.1, 1.1) << QList<int>{};
        QTest::newRow("in a kit") << QPointF(0, 4) << QList<int>{4, 0, 1, 0};
        QTest::newRow("not for picking") << QPointF(0, -4) << QList<int>{5, 2, 1};
        QTest::newRow("invisible") << QPointF(0, 0) << QList<int>{};
    }

    void selectsTheOccurrenceThatIsClicked()
    {
        QFETCH(QPointF, at);
        QFETCH(QList<int>, childPath);
        show(occurrences);
        QSignalSpy picked(m_view.get(), &SceneView::picked);
        QSignalSpy nothing(m_view.get(), &SceneView::pickedNothing);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, onScreen(at));
        QCOMPARE(picked.count(), childPath.isEmpty() ? 0 : 1);
        QCOMPARE(nothing.count(), childPath.isEmpty() ? 1 : 0);
        if (!childPath.isEmpty())
            QCOMPARE(picked[0][0].value<QList<int>>(), childPath);
        drag(Qt::LeftButton, Qt::NoModifier, onScreen(at), onScreen(at) + QPoint(9, 0));
        QTest::mouseClick(m_view.get(), Qt::LeftButton, Qt::ShiftModifier, onScreen(at));
        QTest::mouseClick(m_view.get(), Qt::RightButton, {}, onScreen(at));
        QCOMPARE(picked.count() + nothing.count(), 1);
        QTest::keyClick(m_view.get(), Qt::Key_Escape);
        QCOMPARE(nothing.count(), childPath.isEmpty() ? 2 : 1);
    }

    void marksTheOccurrence_data()
    {
        QTest::addColumn<QList<int>>("childPath");
        QTest::addColumn<QRectF>("box"); // at z = 0
        const double wide = std::cos(0.5) + std::sin(0.5);
        const QRectF left(-4 - wide, -wide, 2 * wide, 2 * wide);
        QTest::newRow("cube") << QList<int>{2, 1, 0, 1} << left;
        QTest::newRow("separator") << QList<int>{3, 1} << left.translated(8, 0);
        QTest::newRow("its rotation") << QList<int>{2, 1, 0, 0} << left;
        QTest::newRow("kit") << QList<int>{4} << QRectF(-1, 3, 2, 2);
        QTest::newRow("no shape itself") << QList<int>{5, 2, 1} << QRectF(-1, -5, 2, 2);
        QTest::newRow("nowhere") << QList<int>{2, 1, 0, 7} << QRectF();
    }

    void marksTheOccurrence()
    {
        QFETCH(QList<int>, childPath);
        QFETCH(QRectF, box);
        show(occurrences);
        const QByteArray graph = textOf(m_root);
        const QImage before = picture();
        QAction* const frame = m_view->viewActions().frame;
        QVERIFY(markIn(before).isEmpty() && !frame->isEnabled());
        m_view->setHighlight(childPath);
        const QRect mark = markIn(picture());
        QCOMPARE(mark.isEmpty(), box.isEmpty());
        QCOMPARE(frame->isEnabled(), !box.isEmpty());
        if (!box.isEmpty()) { // the front of the box is nearer, so larger
            const QRectF shown(onScreen(box.bottomLeft()), onScreen(box.topRight()));
            QVERIFY(QRectF(mark).contains(shown) && shown.adjusted(-14, -14, 14, 14).contains(mark));
            QTest::keyClick(m_view.get(), Qt::Key_F);
            const QRect framed = markIn(picture());
            QVERIFY(framed.height() > 200 && QRect(0, 0, 400, 300).contains(framed));
            QVERIFY((framed.center() - QPoint(200, 150)).manhattanLength() < 20);
            QTest::keyClick(m_view.get(), Qt::Key_H); // back to the scene's camera
        }
        m_view->setHighlight(std::nullopt);
        QCOMPARE(picture(), before);
        QCOMPARE(textOf(m_root), graph);
    }

    void forgetsWhatIsGone()
    {
        show(occurrences);
        auto* const part = static_cast<SoSeparator*>(m_root->getChild(2));
        auto* const choice = static_cast<SoSwitch*>(part->getChild(1));
        part->ref();
        m_view->setHighlight(QList<int>{2, 1, 0, 1});
        picture();
        QCOMPARE(part->getRefCount(), 2);
        choice->whichChild = SO_SWITCH_NONE;
        QVERIFY(markIn(picture()).isEmpty());
        choice->whichChild = 0;
        QVERIFY(!markIn(picture()).isEmpty());
        static_cast<SoSeparator*>(choice->getChild(0))->removeChild(0);
        QVERIFY(markIn(picture()).isEmpty());
        part->unref();
        for (const QList<int>& childPath : {QList<int>{4}, QList<int>{}}) {
            m_view->setHighlight(childPath);
            m_root->removeChild(childPath.value(0));
            QVERIFY(!picture().isNull());
            QTest::keyClick(m_view.get(), Qt::Key_F);
        }
    }

    void goesHomeAndSeeks()
    {
        show(occurrences);
        const QRect atFirst = redIn(picture());
        QTest::keyClick(m_view.get(), Qt::Key_S);
        QCOMPARE(m_view->cursor().shape(), Qt::CrossCursor);
        QSignalSpy nothing(m_view.get(), &SceneView::pickedNothing);
        QTest::keyClick(m_view.get(), Qt::Key_Escape);
        QCOMPARE(m_view->cursor().shape(), Qt::ArrowCursor);
        QTest::keyClick(m_view.get(), Qt::Key_S);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, QPoint(10, 10));
        QCOMPARE(redIn(picture()), atFirst);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, onScreen({4, 0}));
        QVERIFY(isRed(picture().pixel(200, 150)) && !isRed(picture().pixel(onScreen({-4, 0}))));
        QCOMPARE(nothing.count(), 0);
        const QRect sought = redIn(picture());
        QTest::keyClick(m_view.get(), Qt::Key_H, Qt::ShiftModifier);
        QTest::keyClick(m_view.get(), Qt::Key_A);
        QVERIFY(redIn(picture()) != sought);
        QTest::keyClick(m_view.get(), Qt::Key_Home);
        QCOMPARE(redIn(picture()), sought);
        QTest::keyClick(m_view.get(), Qt::Key_C);
        QCOMPARE(redIn(picture()), atFirst);
    }

    void lightsWhatHasNoLight_data()
    {
        QTest::addColumn<QByteArray>("light");
        QTest::addColumn<bool>("headlight");
        QTest::newRow("none") << QByteArray() << true;
        QTest::newRow("own") << QByteArray("Separator { PointLight {} }") << false;
        QTest::newRow("off") << QByteArray("PointLight { on FALSE }") << true;
        QTest::newRow("left out") << QByteArray("Switch { PointLight {} }") << true;
        QTest::newRow("kit") << QByteArray("LightKit {}") << false;
    }

    void lightsWhatHasNoLight()
    {
        QFETCH(QByteArray, light);
        show("Separator { " + light + " Cube {} }");
        QTEST(m_view->viewActions().headlight->isChecked(), "headlight");
    }

    void looksThroughTheScenesCamera()
    {
        show(withCamera);
        QAction* const look = m_view->viewActions().lookThrough;
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
                m_view->viewActions().orthographic->trigger();
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
    void show(const QByteArray& scene)
    {
        m_view = std::make_unique<SceneView>();
        m_view->resize(400, 300);
        QPalette colors = m_view->palette();
        colors.setColor(QPalette::Highlight, Qt::green);
        m_view->setPalette(colors);
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
