#include "ViewCamera.h"

#include "ClipRange.h"

#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSwitch.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace {

constexpr float pi = std::numbers::pi_v<float>;
constexpr float pole = 89.0f / 180.0f * pi;
constexpr float nearestFocus = 1e-9f; // focal distances that floats can still calculate with
constexpr float farthestFocus = 1e15f;
constexpr float nearestSeen = 0.02f; // of the focal distance
constexpr float frame = 1.08f;       // of the box: a little space around it

const SbVec3f right(1.0f, 0.0f, 0.0f);
constexpr float defaultHeightAngle = pi / 4.0f;
const SbVec3f upright(0.0f, 1.0f, 0.0f);
const SbVec3f ahead(0.0f, 0.0f, -1.0f);

/// The coordinate axis, with its sign, that is nearest to a vector.
SbVec3f nearestAxis(const SbVec3f& vector)
{
    int largest = 0;
    for (int i = 1; i < 3; ++i)
        if (std::abs(vector[i]) > std::abs(vector[largest]))
            largest = i;
    SbVec3f axis(0.0f, 0.0f, 0.0f);
    axis[largest] = std::copysign(1.0f, vector[largest]);
    return axis;
}

} // namespace

ViewCamera::ViewCamera()
    : m_node(new SoSwitch)
    , m_perspective(new SoPerspectiveCamera)
    , m_orthographic(new SoOrthographicCamera)
    , m_up(upright)
{
    m_node->ref();
    m_node->addChild(m_perspective);
    m_node->addChild(m_orthographic);
    reset();
}

void ViewCamera::reset()
{
    m_isOrthographic = false;
    m_perspective->heightAngle = defaultHeightAngle;
    m_up = upright;
    setOrientation(SbRotation(right, -0.4f) * SbRotation(upright, 0.6f));
    place(SbVec3f(0.0f, 0.0f, 0.0f), 5.0f);
    setEnabled(m_isEnabled);
}

ViewCamera::~ViewCamera()
{
    m_node->unref();
}

SoNode* ViewCamera::node() const
{
    return m_node;
}

const SoCamera* ViewCamera::camera() const
{
    return m_isOrthographic ? static_cast<const SoCamera*>(m_orthographic) : m_perspective;
}

void ViewCamera::setEnabled(bool on)
{
    m_isEnabled = on;
    const int child = !on ? SO_SWITCH_NONE : m_isOrthographic ? 1 : 0;
    if (m_node->whichChild.getValue() != child) // a field tells its auditors even when its value stays
        m_node->whichChild = child;
}

void ViewCamera::setOrthographic(bool on)
{
    if (on == m_isOrthographic)
        return;
    const Pose here = pose();
    m_isOrthographic = on;
    setPose(here);
    setEnabled(m_isEnabled);
}

void ViewCamera::takeOver(const SbViewVolume& volume, float aspect, float focalDistance)
{
    // A camera's height spans the shorter side of the view.
    const float height = aspect < 1.0f ? volume.getWidth() : volume.getHeight();
    SbVec3f back = -volume.getProjectionDirection();
    SbVec3f up = volume.getViewUp();
    const SbVec3f eye = volume.getProjectionPoint();
    if (!(height > 0.0f) || !std::isfinite(height + eye.dot(eye) + back.normalize() + up.normalize()))
        return;
    m_isOrthographic = volume.getProjectionType() == SbViewVolume::ORTHOGRAPHIC;
    if (m_isOrthographic)
        m_orthographic->height = height;
    else
        m_perspective->heightAngle = 2.0f * std::atan(height / (2.0f * volume.getNearDist()));

    const SbVec3f side = up.cross(back);
    setOrientation(SbRotation(SbMatrix(side[0], side[1], side[2], 0.0f, up[0], up[1], up[2], 0.0f, back[0],
                                       back[1], back[2], 0.0f, 0.0f, 0.0f, 0.0f, 1.0f)));
    m_up = nearestAxis(up);
    place(eye - back * focalDistance, focalDistance);
    setEnabled(m_isEnabled);
}

void ViewCamera::orbit(float yaw, float pitch)
{
    const SbVec3f focus = focalPoint();
    const float distance = camera()->focalDistance.getValue();
    const SbRotation yawed = camera()->orientation.getValue() * SbRotation(m_up, yaw);
    const float elevation = std::asin(std::clamp(direction().dot(m_up), -1.0f, 1.0f));
    const float limit = std::max(pole, std::abs(elevation));
    const float climb = std::clamp(elevation + pitch, -limit, limit) - elevation;
    SbVec3f side;
    yawed.multVec(right, side);
    setOrientation(yawed * SbRotation(side, climb));
    place(focus, distance);
}

void ViewCamera::move(const SbVec3f& by)
{
    place(focalPoint() + by, camera()->focalDistance.getValue());
}

void ViewCamera::zoom(float factor, const SbVec3f& towards)
{
    const float depth = (towards - position()).dot(direction());
    const float distance = (depth > 0.0f ? depth : camera()->focalDistance.getValue()) * factor;
    if (!(distance > nearestFocus && distance < farthestFocus))
        return;
    const SbVec3f eye = towards + (position() - towards) * factor;
    m_orthographic->height = m_orthographic->height.getValue() * factor;
    place(eye + direction() * distance, distance);
}

void ViewCamera::seek(const SbVec3f& point)
{
    const float depth = (point - position()).dot(direction());
    const float distance = (depth > 0.0f ? depth : camera()->focalDistance.getValue()) / 2.0f;
    if (!(distance > nearestFocus && distance < farthestFocus))
        return;
    m_orthographic->height = m_orthographic->height.getValue() / 2.0f;
    place(point, distance);
}

void ViewCamera::viewAll(const OrientedBox& box, float aspect)
{
    const float wide = std::max(aspect, 1.0f);
    const float high = std::max(1.0f / aspect, 1.0f);
    const SbRotation toCamera = camera()->orientation.getValue().inverse();
    float distance = 0.0f;
    float height = 0.0f;
    for (const SbVec3f& corner : box.corners()) {
        SbVec3f seen;
        toCamera.multVec(corner - box.center, seen);
        const float extent = frame * std::max(std::abs(seen[0]) / wide, std::abs(seen[1]) / high);
        distance = std::max(distance, seen[2] + extent / slope());
        height = std::max(height, 2.0f * extent);
    }
    if (height < nearestFocus) { // a single point
        height = pose().extent;
        distance = height / (2.0f * slope());
    }
    m_orthographic->height = height;
    place(box.center, std::max(distance, nearestFocus));
}

ViewCamera::Pose ViewCamera::Pose::between(const Pose& from, const Pose& to, float share)
{
    return {SbRotation::slerp(from.orientation, to.orientation, share), to.up,
            from.focalPoint + (to.focalPoint - from.focalPoint) * share,
            from.extent * std::pow(to.extent / from.extent, share)};
}

ViewCamera::Pose ViewCamera::pose() const
{
    const float distance = camera()->focalDistance.getValue();
    return {camera()->orientation.getValue(), m_up, focalPoint(),
            m_isOrthographic ? m_orthographic->height.getValue() : 2.0f * distance * slope()};
}

void ViewCamera::setPose(const Pose& pose)
{
    m_up = pose.up;
    setOrientation(pose.orientation);
    m_orthographic->height = pose.extent;
    place(pose.focalPoint, pose.extent / (2.0f * slope()));
}

SbVec3f ViewCamera::position() const
{
    return camera()->position.getValue();
}

SbVec3f ViewCamera::direction() const
{
    return turned(ahead);
}

SbVec3f ViewCamera::focalPoint() const
{
    return position() + direction() * camera()->focalDistance.getValue();
}

CameraPlacement ViewCamera::placement(const SbBox3f& box, float aspect) const
{
    SbViewVolume volume = camera()->getViewVolume(aspect);
    if (aspect < 1.0f)
        volume.scale(1.0f / aspect);
    CameraPlacement placement;
    volume.getMatrices(placement.viewing, placement.projection);
    const SbViewVolume::ProjectionType projection = volume.getProjectionType();
    const float focus = camera()->focalDistance.getValue();
    ClipRange range = ClipRange::around(box, placement.viewing, projection, focus);
    // What is looked at is seen, however large the scene around it.
    if (projection == SbViewVolume::PERSPECTIVE)
        range.nearDistance = std::min(range.nearDistance, focus * nearestSeen);
    placement.volume =
        range.isUsable(projection) ? range.volume(volume, placement.viewing.inverse()) : volume;
    placement.volume.getMatrices(placement.viewing, placement.projection);
    return placement;
}

SbVec3f ViewCamera::turned(const SbVec3f& axis) const
{
    SbVec3f result;
    camera()->orientation.getValue().multVec(axis, result);
    return result;
}

void ViewCamera::place(const SbVec3f& focalPoint, float focalDistance)
{
    for (SoCamera* const camera :
         {static_cast<SoCamera*>(m_perspective), static_cast<SoCamera*>(m_orthographic)}) {
        camera->focalDistance = focalDistance;
        camera->position = focalPoint - direction() * focalDistance;
    }
}

void ViewCamera::setOrientation(const SbRotation& orientation)
{
    m_perspective->orientation = orientation;
    m_orthographic->orientation = orientation;
}

/// Of the rays along the edge of a perspective picture, against the middle one.
float ViewCamera::slope() const
{
    return std::tan(m_perspective->heightAngle.getValue() / 2.0f);
}
