#include "SceneView.h"

#include "ViewBoxAction.h"
#include "ViewPickAction.h"

#include <Inventor/SoPickedPoint.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QAction>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 frameInterval = 16; // ms: a display shows no more
constexpr float pickRadius = 5.0f;   // pixels around the pointer, so that lines and points are hit

QColor blend(const QColor& a, const QColor& b, float share)
{
    return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * share,
                            a.greenF() + (b.greenF() - a.greenF()) * share,
                            a.blueF() + (b.blueF() - a.blueF()) * share);
}

} // namespace

SceneView::SceneView(QWidget* parent)
    : QWidget(parent)
    , m_navigation(m_camera, {[this] { return QSizeF(size()); }, [this] { takeOverSceneCamera(); },
                              [this] { scheduleFrame(); }, [this](QPointF p) { return pointAt(p); }})
    , m_renderer(m_rule)
{
    ViewBoxAction::initClass();
    ViewPickAction::initClass();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("3D view"));
    m_frameTimer.setSingleShot(true);
    m_frameTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_frameTimer, &QTimer::timeout, this, qOverload<>(&QWidget::update));
    makeActions();
    makeStage();
}

SceneView::~SceneView()
{
    m_renderer.setScene(nullptr, [] {});
    m_stage->unref();
}

void SceneView::makeActions()
{
    const auto add = [this](const QString& text, const QString& tip, bool checkable) {
        auto* const action = new QAction(text, this);
        action->setToolTip(tip);
        action->setStatusTip(tip);
        action->setCheckable(checkable);
        action->setShortcutContext(Qt::WidgetShortcut);
        addAction(action);
        return action;
    };
    m_viewAllAction = add(tr("View &All"), tr("Move back until the whole scene is seen"), false);
    m_viewAllAction->setShortcuts({QKeySequence(Qt::Key_Home), QKeySequence(Qt::Key_A)});
    connect(m_viewAllAction, &QAction::triggered, this, &SceneView::viewAll);

    m_lookThroughAction =
        add(tr("Look through Scene &Camera"), tr("Show what the scene's own camera sees"), true);
    m_lookThroughAction->setEnabled(false);
    connect(m_lookThroughAction, &QAction::triggered, this, &SceneView::lookThroughScene);

    m_headlightAction = add(tr("&Headlight"), tr("Light the scene from where it is seen"), true);
    m_headlightAction->setChecked(true);
    connect(m_headlightAction, &QAction::toggled, this, [this](bool on) {
        m_headlight->on = on;
        scheduleFrame();
    });

    m_orthographicAction = add(tr("&Orthographic"), tr("Draw without perspective"), true);
    connect(m_orthographicAction, &QAction::triggered, this, [this](bool on) {
        takeOverSceneCamera();
        m_camera.setOrthographic(on);
        m_orthographicAction->setChecked(on);
        scheduleFrame();
    });
}

void SceneView::makeStage()
{
    m_stage = new SoSeparator;
    m_stage->ref();
    m_stage->renderCaching = SoSeparator::OFF;
    m_stage->boundingBoxCaching = SoSeparator::OFF;
    m_stage->renderCulling = SoSeparator::OFF;
    // A light above all cameras stands where the eye is, whichever camera is in use.
    m_headlight = new SoDirectionalLight;
    m_headlight->direction = SbVec3f(0.0f, 0.0f, -1.0f);
    m_stage->addChild(m_headlight);
    m_stage->addChild(m_camera.node());
    m_renderer.setScene(m_stage, [this] { scheduleFrame(); });
}

void SceneView::setRoot(SoNode* root)
{
    if (root == m_root)
        return;
    if (root)
        m_stage->addChild(root); // first, should it be a part of the old one
    if (m_root)
        m_stage->removeChild(m_root);
    m_root = root;
    m_navigation.cancel();
    m_looksThroughScene = m_root != nullptr;
    m_lookThroughAction->setEnabled(false);
    m_isCameraPlaced = false;
    m_isFirstFrame = true;
    scheduleFrame();
}

void SceneView::setHighlight(const std::optional<QList<int>>&) {}

QImage SceneView::grabFrame()
{
    drawFrame();
    return m_image;
}

QSize SceneView::sizeHint() const
{
    return QSize(640, 480);
}

QSize SceneView::minimumSizeHint() const
{
    return QSize(80, 60);
}

void SceneView::scheduleFrame()
{
    m_isStale = true;
    if (!isVisible() || m_frameTimer.isActive())
        return;
    const qint64 elapsed = m_sinceFrame.isValid() ? m_sinceFrame.elapsed() : frameInterval;
    m_frameTimer.start(static_cast<int>(std::clamp<qint64>(frameInterval - elapsed, 0, frameInterval)));
}

void SceneView::drawFrame()
{
    m_isStale = false;
    m_isAnnounced = false;
    m_sinceFrame.start();
    const QSize pixels = m_pixels = size() * devicePixelRatioF();
    m_viewport = SbViewportRegion(static_cast<short>(std::clamp(pixels.width(), 1, 32000)),
                                  static_cast<short>(std::clamp(pixels.height(), 1, 32000)));
    if (!canDraw())
        return;
    if (!drawThroughSceneCamera())
        drawThroughFreeCamera();
    m_lookThroughAction->setChecked(m_looksThroughScene);
    m_orthographicAction->setChecked(m_rule.placement().volume.getProjectionType() ==
                                     SbViewVolume::ORTHOGRAPHIC);
}

/// Whether the scene's camera is to be looked through, and the scene has one.
bool SceneView::drawThroughSceneCamera()
{
    if (!m_looksThroughScene)
        return false;
    m_camera.setEnabled(false);
    m_rule.beginSceneFrame(sceneBox());
    m_image = render();
    m_looksThroughScene = m_rule.hasMetSceneCamera();
    m_lookThroughAction->setEnabled(m_looksThroughScene);
    return m_looksThroughScene;
}

void SceneView::drawThroughFreeCamera()
{
    m_camera.setEnabled(true);
    const SbBox3f box = sceneBox();
    if (!m_isCameraPlaced)
        m_camera.viewAll(box, aspect());
    m_isCameraPlaced = true;
    m_rule.beginFreeFrame(m_camera.camera(), m_camera.placement(box, aspect()));
    m_image = render();
    // A scene that is out of sight may be left out together with its camera: that says nothing.
    if (m_rule.hasMetSceneCamera())
        m_lookThroughAction->setEnabled(true);
}

QImage SceneView::render()
{
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    QImage image = m_renderer.render(QSize(m_viewport.getWindowSize()[0], m_viewport.getWindowSize()[1]),
                                     blend(window, text, 0.35f), blend(window, text, 0.1f));
    image.setDevicePixelRatio(devicePixelRatioF());
    return image;
}

float SceneView::aspect() const
{
    return m_viewport.getViewportAspectRatio();
}

SbBox3f SceneView::sceneBox()
{
    return ViewBoxAction(m_viewport, m_rule).measure(m_stage);
}

std::optional<SbVec3f> SceneView::pointAt(QPointF position)
{
    const qreal ratio = devicePixelRatioF();
    ViewPickAction pick(m_viewport, m_rule);
    pick.setPoint(SbVec2s(static_cast<short>(position.x() * ratio),
                          static_cast<short>((height() - 1 - position.y()) * ratio)));
    pick.setRadius(pickRadius * static_cast<float>(ratio));
    pick.apply(m_stage);
    const SoPickedPoint* const picked = pick.getPickedPoint();
    return picked ? std::optional(picked->getPoint()) : std::nullopt;
}

void SceneView::lookThroughScene(bool on)
{
    if (on)
        m_looksThroughScene = true;
    else
        takeOverSceneCamera();
    scheduleFrame();
}

/// The free camera continues where the scene's camera stands now.
void SceneView::takeOverSceneCamera()
{
    if (!m_looksThroughScene || !m_rule.hasMetSceneCamera())
        return;
    m_looksThroughScene = false;
    m_isCameraPlaced = true;
    const SbViewVolume volume = m_rule.placement().volume;
    float distance = m_rule.sceneFocalDistance();
    const SbBox3f box = sceneBox();
    if (!(distance > 0.0f) && !box.isEmpty()) {
        SbVec3f direction = volume.getProjectionDirection(); // a scaled one below a scaling transformation
        direction.normalize();
        distance = (box.getCenter() - volume.getProjectionPoint()).dot(direction);
    }
    m_camera.takeOver(volume, aspect(), distance > 0.0f ? distance : 5.0f);
    m_camera.setEnabled(true);
    m_rule.beginFreeFrame(m_camera.camera(), m_camera.placement(box, aspect()));
}

void SceneView::viewAll()
{
    takeOverSceneCamera();
    m_camera.viewAll(sceneBox(), aspect());
    scheduleFrame();
}

void SceneView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        scheduleFrame();
}

void SceneView::keyPressEvent(QKeyEvent* event)
{
    if (!m_navigation.keyPress(*event))
        QWidget::keyPressEvent(event);
}

void SceneView::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_navigation.mouseDoubleClick(*event);
}

void SceneView::mouseMoveEvent(QMouseEvent* event)
{
    m_navigation.mouseMove(*event);
}

void SceneView::mousePressEvent(QMouseEvent* event)
{
    m_navigation.mousePress(*event);
}

void SceneView::mouseReleaseEvent(QMouseEvent*)
{
    m_navigation.cancel();
}

void SceneView::wheelEvent(QWheelEvent* event)
{
    m_navigation.wheel(*event);
    event->accept();
}

void SceneView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    scheduleFrame();
}

void SceneView::paintEvent(QPaintEvent*)
{
    if (m_isStale || m_pixels != size() * devicePixelRatioF())
        drawFrame();
    QPainter painter(this);
    if (m_image.isNull())
        paintPlaceholder(painter);
    else
        painter.drawImage(0, 0, m_image);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawRect(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0));
    }
    if (std::exchange(m_isAnnounced, true))
        return;
    // Not from here: whoever listens may want to paint this view.
    const bool isFirst = std::exchange(m_isFirstFrame, false);
    const auto tell = [this, isFirst] {
        if (isFirst)
            Q_EMIT firstFrameDrawn();
        Q_EMIT frameDrawn();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void SceneView::paintPlaceholder(QPainter& painter)
{
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("No OpenGL here: the scene is not drawn"));
}
