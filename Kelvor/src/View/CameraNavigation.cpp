#include "CameraNavigation.h"

#include "ViewCamera.h"

#include <Inventor/SbLine.h>
#include <Inventor/SbPlane.h>
#include <Inventor/SbVec2f.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace {

constexpr float pi = std::numbers::pi_v<float>;
constexpr double clickSlack = 3.0;      // pixels that a click may move without being a drag
constexpr float wheelNotch = 0.85f;     // zoom factor
constexpr float keyZoom = 0.9f;         // zoom factor
constexpr float dollyPerHeight = 5.0f;  // exponent of the zoom factor for a drag over the height of the view
constexpr double keyStep = 5.0 / 180.0; // of the shorter side of the view; orbits 5 degrees

struct KeyDirection
{
    int key;
    QPointF direction;
};

const KeyDirection keyDirections[] = {{Qt::Key_Left, {-1.0, 0.0}},
                                      {Qt::Key_Right, {1.0, 0.0}},
                                      {Qt::Key_Up, {0.0, -1.0}},
                                      {Qt::Key_Down, {0.0, 1.0}}};

struct KeyZoom
{
    int key;
    float factor;
};

constexpr KeyZoom keyZooms[] = {
    {Qt::Key_Plus, keyZoom}, {Qt::Key_Equal, keyZoom}, {Qt::Key_Minus, 1.0f / keyZoom}};

template <class Entry, std::size_t count>
const Entry* entryOf(const Entry (&table)[count], int key)
{
    const Entry* const found = std::find_if(std::begin(table), std::end(table),
                                            [key](const Entry& entry) { return entry.key == key; });
    return found == std::end(table) ? nullptr : found;
}

double shorterSide(QSizeF size)
{
    return std::max(1.0, std::min(size.width(), size.height()));
}

} // namespace

CameraNavigation::CameraNavigation(ViewCamera& camera, View view)
    : m_camera(camera)
    , m_view(std::move(view))
{
}

CameraNavigation::Gesture CameraNavigation::gestureOf(const QMouseEvent& event)
{
    static const struct
    {
        Qt::MouseButton button;
        Qt::KeyboardModifiers modifiers;
        Gesture gesture;
    } gestures[] = {{Qt::LeftButton, Qt::NoModifier, Gesture::Orbit},
                    {Qt::LeftButton, Qt::ShiftModifier, Gesture::Pan},
                    {Qt::LeftButton, Qt::ControlModifier, Gesture::Dolly},
                    {Qt::MiddleButton, Qt::NoModifier, Gesture::Pan},
                    {Qt::RightButton, Qt::NoModifier, Gesture::Dolly}};
    const Qt::KeyboardModifiers modifiers = event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    for (const auto& entry : gestures)
        if (entry.button == event.button() && entry.modifiers == modifiers)
            return entry.gesture;
    return Gesture::None;
}

void CameraNavigation::mousePress(const QMouseEvent& event)
{
    m_gesture = gestureOf(event);
    m_pressed = m_last = event.position();
    m_moving = false;
}

void CameraNavigation::mouseMove(const QMouseEvent& event)
{
    const QPointF position = event.position();
    if (m_gesture == Gesture::None)
        return;
    if (!m_moving && (position - m_pressed).manhattanLength() < clickSlack)
        return;
    m_view.beginMotion();
    if (!m_moving && m_gesture == Gesture::Pan)
        m_grabbed = m_view.pointAt(m_pressed).value_or(onPlaneOf(m_camera.focalPoint(), m_pressed));
    m_moving = true;
    const QPointF delta = position - m_last;
    m_last = position;
    if (m_gesture == Gesture::Orbit)
        orbitBy(delta);
    else if (m_gesture == Gesture::Pan)
        m_camera.move(m_grabbed - onPlaneOf(m_grabbed, position));
    else
        m_camera.zoom(std::exp(dollyPerHeight * float(delta.y() / std::max(1.0, m_view.size().height()))),
                      m_camera.focalPoint());
    m_view.endMotion();
}

bool CameraNavigation::mouseRelease(const QMouseEvent& event)
{
    const bool isClick = m_gesture == Gesture::Orbit && !m_moving && event.button() == Qt::LeftButton;
    cancel();
    return isClick;
}

void CameraNavigation::cancel()
{
    m_gesture = Gesture::None;
    m_wheelPoint.reset();
}

void CameraNavigation::wheel(const QWheelEvent& event)
{
    if (event.angleDelta().y() == 0)
        return;
    m_view.beginMotion();
    if (!m_wheelPoint || m_wheelPosition != event.position()) {
        m_wheelPosition = event.position();
        m_wheelPoint = m_view.pointAt(m_wheelPosition);
    }
    const float notches = float(event.angleDelta().y()) / 120.0f;
    m_camera.zoom(std::pow(wheelNotch, notches),
                  m_wheelPoint.value_or(onPlaneOf(m_camera.focalPoint(), m_wheelPosition)));
    m_view.endMotion();
}

bool CameraNavigation::keyPress(const QKeyEvent& event)
{
    const KeyDirection* const arrow = entryOf(keyDirections, event.key());
    const KeyZoom* const zoom = entryOf(keyZooms, event.key());
    if ((!arrow && !zoom) || (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        return false;
    m_view.beginMotion();
    if (zoom)
        m_camera.zoom(zoom->factor, m_camera.focalPoint());
    else if (event.modifiers() & Qt::ShiftModifier)
        panBy(arrow->direction * keyStep * shorterSide(m_view.size()));
    else
        orbitBy(arrow->direction * keyStep * shorterSide(m_view.size()));
    m_view.endMotion();
    return true;
}

float CameraNavigation::aspect() const
{
    const QSizeF size = m_view.size();
    return size.isEmpty() ? 1.0f : float(size.width() / size.height());
}

/// The point under a position of the pointer, in the plane through `point` that faces the camera.
SbVec3f CameraNavigation::onPlaneOf(const SbVec3f& point, QPointF position) const
{
    const QSizeF size = m_view.size();
    SbLine line;
    m_camera.placement(SbBox3f(), aspect())
        .volume.projectPointToLine(SbVec2f(float(position.x() / std::max(1.0, size.width())),
                                           1.0f - float(position.y() / std::max(1.0, size.height()))),
                                   line);
    SbVec3f result = point;
    SbPlane(m_camera.direction(), point).intersect(line, result);
    return result;
}

/// A drag over the shorter side of the view turns the scene by half a turn.
void CameraNavigation::orbitBy(QPointF pixels)
{
    const QPointF turn = pixels / shorterSide(m_view.size());
    m_camera.orbit(-pi * float(turn.x()), -pi * float(turn.y()));
}

void CameraNavigation::panBy(QPointF pixels)
{
    const QSizeF size = m_view.size();
    const QPointF middle(size.width() / 2.0, size.height() / 2.0);
    m_camera.move(m_camera.focalPoint() - onPlaneOf(m_camera.focalPoint(), middle + pixels));
}
