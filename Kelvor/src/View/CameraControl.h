#pragma once

#include "ViewCamera.h"

#include <QVariantAnimation>

#include <functional>
#include <optional>

/// Where a view is seen from: through the scene's camera until a person navigates, then through the free
/// camera, which flies from place to place.
class CameraControl
{
public:
    /// What the control needs of the view.
    struct View
    {
        /// The bounding box of the scene in world space; may be empty.
        std::function<SbBox3f()> sceneBox;
        /// Width by height.
        std::function<float()> aspect;
        /// How long a flight takes, in milliseconds; 0 for none.
        std::function<int()> flightTime;
        /// Called when a new picture is due.
        std::function<void()> changed;
    };

    /// Rule and camera must outlive the control.
    CameraControl(CameraRule& rule, ViewCamera& camera, View view);

    /// Begins with another scene, or with none: looks through its camera, or where there is none from far
    /// enough to see all of it, and that is its home.
    void reset(bool hasScene);
    /// Prepares the rule for a frame and has it drawn: once, or twice when it turns out that the scene has no
    /// camera.
    void draw(const std::function<void()>& frame);

    bool looksThroughScene() const { return m_looksThroughScene; }
    /// Whether there is a camera to look through, as far as the frames so far have shown.
    bool sceneHasCamera() const { return m_sceneHasCamera; }

    /// Puts the free camera to use: it continues where the scene's camera, or a flight, is now.
    void takeOver();
    void lookThroughScene(bool on);
    void setOrthographic(bool on);
    void viewAll();
    /// Fills the picture with a box, without turning.
    void frame(const OrientedBox& box);
    void seek(const SbVec3f& point);
    void goHome();
    void setHome();

private:
    void takeOverSceneCamera();
    void fly(const std::function<void()>& motion);

    CameraRule& m_rule;
    ViewCamera& m_camera;
    View m_view;
    QVariantAnimation m_flight;
    ViewCamera::Pose m_from;
    ViewCamera::Pose m_to;
    std::optional<ViewCamera::Pose> m_home; // nothing: the scene's camera
    bool m_looksThroughScene = false;
    bool m_sceneHasCamera = false;
    bool m_isPlaced = false; // the free camera has been somewhere in this scene
};
