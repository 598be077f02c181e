#include "CameraControl.h"

#include <utility>

CameraControl::CameraControl(CameraRule& rule, ViewCamera& camera, View view)
    : m_rule(rule)
    , m_camera(camera)
    , m_view(std::move(view))
    , m_from(camera.pose())
    , m_to(m_from)
{
    m_flight.setStartValue(0.0);
    m_flight.setEndValue(1.0);
    m_flight.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&m_flight, &QVariantAnimation::valueChanged, &m_flight, [this](const QVariant& share) {
        m_camera.setPose(ViewCamera::Pose::between(m_from, m_to, share.toFloat()));
        m_view.changed();
    });
}

void CameraControl::reset(bool hasScene)
{
    m_flight.stop();
    m_camera.reset();
    m_looksThroughScene = hasScene;
    m_sceneHasCamera = false;
    m_isPlaced = false;
    m_home.reset();
}

void CameraControl::draw(const std::function<void()>& frame)
{
    if (m_looksThroughScene) {
        m_camera.setEnabled(false);
        m_rule.beginSceneFrame(m_view.sceneBox());
        frame();
        m_looksThroughScene = m_sceneHasCamera = m_rule.hasMetSceneCamera();
        if (m_looksThroughScene)
            return;
    }
    m_camera.setEnabled(true);
    const SbBox3f box = m_view.sceneBox();
    if (!m_isPlaced && !box.isEmpty()) {
        m_camera.viewAll(OrientedBox(box), m_view.aspect());
        m_home = m_camera.pose();
        m_isPlaced = true;
    }
    m_rule.beginFreeFrame(m_camera.camera(), m_camera.placement(box, m_view.aspect()));
    frame();
    // A scene that is out of sight may be left out together with its camera: that says nothing.
    m_sceneHasCamera = m_sceneHasCamera || m_rule.hasMetSceneCamera();
}

void CameraControl::takeOver()
{
    m_flight.stop();
    takeOverSceneCamera();
}

void CameraControl::takeOverSceneCamera()
{
    if (!m_looksThroughScene || !m_rule.hasMetSceneCamera())
        return;
    m_looksThroughScene = false;
    m_isPlaced = true;
    const SbViewVolume volume = m_rule.placement().volume;
    float distance = m_rule.sceneFocalDistance();
    const SbBox3f box = m_view.sceneBox();
    if (!(distance > 0.0f) && !box.isEmpty()) {
        SbVec3f direction = volume.getProjectionDirection(); // a scaled one below a scaling transformation
        direction.normalize();
        distance = (box.getCenter() - volume.getProjectionPoint()).dot(direction);
    }
    m_camera.takeOver(volume, m_view.aspect(), distance > 0.0f ? distance : 5.0f);
    m_camera.setEnabled(true);
    m_rule.beginFreeFrame(m_camera.camera(), m_camera.placement(box, m_view.aspect()));
}

void CameraControl::lookThroughScene(bool on)
{
    if (on) {
        m_flight.stop();
        m_looksThroughScene = true;
    } else {
        takeOver();
    }
    m_view.changed();
}

void CameraControl::setOrthographic(bool on)
{
    takeOverSceneCamera(); // a flight goes on
    m_camera.setOrthographic(on);
    m_view.changed();
}

void CameraControl::viewAll()
{
    const SbBox3f box = m_view.sceneBox();
    if (!box.isEmpty())
        frame(OrientedBox(box));
}

void CameraControl::frame(const OrientedBox& box)
{
    fly([this, &box] { m_camera.viewAll(box, m_view.aspect()); });
}

void CameraControl::seek(const SbVec3f& point)
{
    fly([this, &point] { m_camera.seek(point); });
}

void CameraControl::goHome()
{
    if (m_home) {
        fly([this] { m_camera.setPose(*m_home); });
        return;
    }
    m_isPlaced = false; // the scene's camera may be gone
    lookThroughScene(true);
}

void CameraControl::setHome()
{
    if (m_looksThroughScene)
        m_home.reset();
    else
        m_home = m_flight.state() == QAbstractAnimation::Running ? m_to : m_camera.pose();
}

/// Carries out a motion of the free camera at the pace of a flight.
void CameraControl::fly(const std::function<void()>& motion)
{
    takeOver();
    m_from = m_camera.pose();
    motion();
    const int time = m_view.flightTime();
    if (time > 0) {
        m_to = m_camera.pose();
        m_camera.setPose(m_from);
        m_flight.setDuration(time);
        m_flight.start();
    }
    m_view.changed();
}
