#include "SceneView.h"

#include "HighlightPainter.h"
#include "ViewBoxAction.h"
#include "ViewPickAction.h"

#include <Inventor/SoPickedPoint.h>

#include <QAction>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 frameInterval = 16; // ms: a display shows no more
constexpr qint64 longestPause = 50;  // ms between costly frames, in which the rest of the window has its turn
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
    , m_control(m_rule, m_camera,
                {[this] { return sceneBox(); }, [this] { return m_viewport.getViewportAspectRatio(); },
                 [this] { return style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this); },
                 [this] { scheduleFrame(); }})
    , m_navigation(m_camera, {[this] { return QSizeF(size()); }, [this] { m_control.takeOver(); },
                              [this] { scheduleFrame(); }, [this](QPointF p) { return pointAt(p); }})
    , m_stage(m_camera.node())
    , m_geometry(m_stage.node())
    , m_renderer(m_rule)
    , m_actions(this)
{
    ViewBoxAction::initClass();
    ViewPickAction::initClass();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("3D view"));
    setAccessibleDescription(
        tr("Click to select, drag to turn, Shift and drag to move, turn the wheel to zoom. "
           "The arrow keys turn, with Shift they move; + and - zoom."));
    m_frameTimer.setSingleShot(true);
    m_frameTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_frameTimer, &QTimer::timeout, this, qOverload<>(&QWidget::update));
    connectActions();
    m_renderer.setScene(m_stage.node(), [this] { scheduleFrame(); });
}

SceneView::~SceneView()
{
    m_renderer.setScene(nullptr, [] {});
}

void SceneView::connectActions()
{
    const auto onTrigger = [this](const QAction* action, auto slot) {
        connect(action, &QAction::triggered, this, slot);
    };
    onTrigger(m_actions.viewAll, [this] { m_control.viewAll(); });
    onTrigger(m_actions.frame, [this] {
        if (const std::optional<SceneHighlight::Mark> mark = findHighlight())
            m_control.frame(mark->box);
    });
    onTrigger(m_actions.home, [this] { m_control.goHome(); });
    onTrigger(m_actions.setHome, [this] { m_control.setHome(); });
    onTrigger(m_actions.lookThrough, [this](bool on) { m_control.lookThroughScene(on); });
    onTrigger(m_actions.orthographic, [this](bool on) { m_control.setOrthographic(on); });
    onTrigger(m_actions.clearSelection, [this] {
        if (m_actions.seek->isChecked())
            m_actions.seek->setChecked(false);
        else
            Q_EMIT pickedNothing();
    });
    connect(m_actions.seek, &QAction::toggled, this,
            [this](bool on) { on ? setCursor(Qt::CrossCursor) : unsetCursor(); });
    connect(m_actions.headlight, &QAction::toggled, this, [this](bool on) {
        m_stage.setHeadlight(on);
        scheduleFrame();
    });
}

void SceneView::setRoot(SoNode* root, Look look)
{
    if (root == m_stage.root())
        return;
    m_stage.setRoot(root);
    m_navigation.cancel();
    setHighlight(std::nullopt);
    if (look == Look::Anew) {
        m_control.reset(root != nullptr);
        m_actions.headlight->setChecked(!m_stage.hasOwnLight());
    }
    m_actions.seek->setChecked(false);
    m_actions.lookThrough->setEnabled(false);
    m_isFirstFrame = true;
}

void SceneView::setHighlight(const std::optional<QList<int>>& childPath)
{
    if (childPath)
        m_highlight.set(m_stage.root(), *childPath);
    else
        m_highlight.clear();
    m_actions.frame->setEnabled(m_highlight.isSet());
    scheduleFrame();
}

QImage SceneView::grabFrame()
{
    drawFrame();
    return m_image;
}

void SceneView::scheduleFrame()
{
    m_isStale = true;
    if (!isVisible() || m_frameTimer.isActive())
        return;
    const qint64 interval = std::max(frameInterval, m_frameCost + std::min(m_frameCost, longestPause));
    const qint64 elapsed = m_sinceFrame.isValid() ? m_sinceFrame.elapsed() : interval;
    m_frameTimer.start(static_cast<int>(std::clamp<qint64>(interval - elapsed, 0, interval)));
}

void SceneView::drawFrame()
{
    m_isStale = false;
    m_isAnnounced = false;
    m_sinceFrame.start();
    const QSize pixels = m_pixels = size() * devicePixelRatioF();
    m_viewport = SbViewportRegion(static_cast<short>(std::clamp(pixels.width(), 1, 32000)),
                                  static_cast<short>(std::clamp(pixels.height(), 1, 32000)));
    if (!hindrance().isEmpty()) {
        m_image = QImage();
        return;
    }
    m_control.draw([this] { m_image = render(); });
    m_actions.lookThrough->setEnabled(m_control.sceneHasCamera());
    m_actions.lookThrough->setChecked(m_control.looksThroughScene());
    m_actions.orthographic->setChecked(m_rule.placement().volume.getProjectionType() ==
                                       SbViewVolume::ORTHOGRAPHIC);
    m_actions.frame->setEnabled(m_highlight.isSet());
    m_frameCost = m_sinceFrame.elapsed();
}

QImage SceneView::render()
{
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    QImage image =
        m_renderer.render(QSize(m_viewport.getWindowSize()[0], m_viewport.getWindowSize()[1]),
                          blend(window, text, 0.35f), blend(window, text, 0.1f), [this] { paintOverlay(); });
    image.setDevicePixelRatio(devicePixelRatioF());
    return image;
}

void SceneView::paintOverlay()
{
    if (const std::optional<SceneHighlight::Mark> mark = findHighlight())
        HighlightPainter::paint(*mark, m_rule, palette().color(QPalette::Highlight),
                                static_cast<float>(devicePixelRatioF()));
}

std::optional<SceneHighlight::Mark> SceneView::findHighlight()
{
    if (!m_highlight.isSet() || !m_geometry.fault().isEmpty())
        return std::nullopt;
    ViewBoxAction action(m_viewport, m_rule);
    return m_highlight.find(m_stage, action);
}

SbBox3f SceneView::sceneBox()
{
    return m_geometry.fault().isEmpty() ? ViewBoxAction(m_viewport, m_rule).measure(m_stage.node())
                                        : SbBox3f();
}

/// Valid as long as the action.
const SoPickedPoint* SceneView::pick(ViewPickAction& action, QPointF position)
{
    const qreal ratio = devicePixelRatioF();
    return action.pick(m_stage.node(), position * ratio, pickRadius * static_cast<float>(ratio));
}

std::optional<SbVec3f> SceneView::pointAt(QPointF position)
{
    if (!hindrance().isEmpty())
        return std::nullopt;
    ViewPickAction action(m_viewport, m_rule);
    const SoPickedPoint* const picked = pick(action, position);
    return picked ? std::optional(picked->getPoint()) : std::nullopt;
}

void SceneView::select(QPointF position)
{
    std::optional<QList<int>> childPath;
    {
        ViewPickAction action(m_viewport, m_rule);
        if (const SoPickedPoint* const hit = pick(action, position))
            childPath = ViewStage::childPath(*hit->getPath());
    } // what was picked holds its nodes: whoever listens must not find them held
    if (childPath)
        Q_EMIT picked(*childPath);
    else
        Q_EMIT pickedNothing();
}

/// Goes to the point at a position; waits for another click where there is none.
void SceneView::seek(QPointF position)
{
    if (const std::optional<SbVec3f> point = pointAt(position)) {
        m_control.seek(*point);
        m_actions.seek->setChecked(false);
    }
}

void SceneView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // The palette's colours differ between active and other windows.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ActivationChange)
        scheduleFrame();
}

void SceneView::keyPressEvent(QKeyEvent* event)
{
    if (!m_navigation.keyPress(*event))
        QWidget::keyPressEvent(event);
}

void SceneView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The first click of two may have been the one that a seek waited for.
    if (event->button() == Qt::LeftButton && !std::exchange(m_clickSought, false))
        seek(event->position());
}

void SceneView::mouseMoveEvent(QMouseEvent* event)
{
    m_navigation.mouseMove(*event);
}

void SceneView::mousePressEvent(QMouseEvent* event)
{
    m_navigation.mousePress(*event);
}

void SceneView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_navigation.mouseRelease(*event) || !hindrance().isEmpty())
        return;
    m_clickSought = m_actions.seek->isChecked();
    if (m_clickSought)
        seek(event->position());
    else
        select(event->position());
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

/// Why the scene can neither be drawn nor picked in, as a sentence; empty when it can.
QString SceneView::hindrance()
{
    if (!canDraw()) // some shapes need OpenGL to be picked, too
        return tr("No OpenGL here: the scene is not drawn");
    const QString fault = m_geometry.fault();
    return fault.isEmpty() ? fault : tr("The scene is not drawn: %1.").arg(fault);
}

void SceneView::paintPlaceholder(QPainter& painter)
{
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, hindrance());
}
