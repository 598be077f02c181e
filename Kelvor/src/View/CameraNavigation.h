#pragma once

#include <Inventor/SbVec3f.h>

#include <QPointF>
#include <QSizeF>

#include <functional>
#include <optional>

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
class ViewCamera;

/// Turns what a person does with mouse and keyboard into motions of a free camera.
///
/// Left drag orbits, middle drag or Shift and left drag pans, right drag or Ctrl and left drag dollies, the
/// wheel zooms towards the pointer. Arrow keys orbit, with Shift they pan; + and - zoom.
class CameraNavigation
{
public:
    /// What navigation needs of the view that it works in.
    struct View
    {
        /// Size in the units of the events.
        std::function<QSizeF()> size;
        /// Called before each motion: from here on the free camera must be the one in use.
        std::function<void()> beginMotion;
        std::function<void()> endMotion;
        /// The visible point of the scene at a position, if there is one.
        std::function<std::optional<SbVec3f>(QPointF)> pointAt;
    };

    /// The camera must outlive the navigation.
    CameraNavigation(ViewCamera& camera, View view);

    void mousePress(const QMouseEvent& event);
    void mouseMove(const QMouseEvent& event);
    /// Ends the gesture that is under way. Gives whether it was a click: of the left button, without Shift or
    /// Ctrl, and in one place.
    bool mouseRelease(const QMouseEvent& event);
    /// Ends the gesture that is under way.
    void cancel();
    void wheel(const QWheelEvent& event);
    /// Whether the key means something here.
    bool keyPress(const QKeyEvent& event);

private:
    enum class Gesture
    {
        None,
        Orbit,
        Pan,
        Dolly
    };

    static Gesture gestureOf(const QMouseEvent& event);
    float aspect() const;
    SbVec3f onPlaneOf(const SbVec3f& point, QPointF position) const;
    void orbitBy(QPointF pixels);
    void panBy(QPointF pixels);

    ViewCamera& m_camera;
    View m_view;
    Gesture m_gesture = Gesture::None;
    QPointF m_pressed;
    QPointF m_last;
    bool m_moving = false; // the pointer has left the place where it was pressed
    SbVec3f m_grabbed;     // the point that a pan holds under the pointer
    QPointF m_wheelPosition;
    std::optional<SbVec3f> m_wheelPoint; // what the wheel zooms towards as long as the pointer rests
};
