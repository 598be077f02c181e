#pragma once

#include "CameraRule.h"
#include "OrientedBox.h"

#include <Inventor/SbRotation.h>
#include <Inventor/SbVec3f.h>

class SoCamera;
class SoOrthographicCamera;
class SoPerspectiveCamera;
class SoSwitch;

/// A view's free camera: it stands beside the scene, in perspective or orthographic projection, and moves
/// around a focal point. Angles are in radians, positions in world space, and an aspect is width by height of
/// the view.
class ViewCamera
{
public:
    /// A place to look from, whatever the projection.
    struct Pose
    {
        SbRotation orientation;
        SbVec3f up;         // the axis to turn around
        SbVec3f focalPoint; // in the middle of the picture
        float extent;       // how much is seen there along the shorter side of the picture

        /// A place on the way from one to another (share 0 to 1).
        static Pose between(const Pose& from, const Pose& to, float share);
    };

    /// Looks at the origin from the front right and above.
    ViewCamera();
    ~ViewCamera();
    ViewCamera(const ViewCamera&) = delete;
    ViewCamera& operator=(const ViewCamera&) = delete;

    /// Goes back to where a new one is, in perspective.
    void reset();

    /// The node to put above the scene. It holds the camera in use, or no camera while that is switched off.
    SoNode* node() const;
    const SoCamera* camera() const;
    void setEnabled(bool on);

    /// Keeps what is at the focal point as large as it is.
    void setOrthographic(bool on);
    bool isOrthographic() const { return m_isOrthographic; }

    /// Goes where another camera stands, unless that is nowhere (not a number). `focalDistance` must be
    /// greater than 0.
    void takeOver(const SbViewVolume& volume, float aspect, float focalDistance);
    /// Turns around the focal point: about the upright axis, and up or down as far as the poles.
    void orbit(float yaw, float pitch);
    void move(const SbVec3f& by);
    /// Brings the camera nearer to a point (factor below 1) or away from it. The point stays where it is in
    /// the picture, and the focal point comes to its depth.
    void zoom(float factor, const SbVec3f& towards);
    /// Puts a point into the middle of the picture, at half its distance, and makes it the focal point.
    void seek(const SbVec3f& point);
    /// Moves back or forward, without turning, until the box fills the picture. A single point comes into the
    /// middle.
    void viewAll(const OrientedBox& box, float aspect);
    Pose pose() const;
    void setPose(const Pose& pose);

    SbVec3f position() const;
    SbVec3f direction() const;
    SbVec3f focalPoint() const;
    /// What the camera shows, with clipping planes that enclose the box.
    CameraPlacement placement(const SbBox3f& box, float aspect) const;

private:
    SbVec3f turned(const SbVec3f& axis) const;
    void place(const SbVec3f& focalPoint, float focalDistance);
    void setOrientation(const SbRotation& orientation);
    float slope() const;

    SoSwitch* m_node;
    SoPerspectiveCamera* m_perspective;
    SoOrthographicCamera* m_orthographic;
    SbVec3f m_up;
    bool m_isOrthographic = false;
    bool m_isEnabled = true;
};
