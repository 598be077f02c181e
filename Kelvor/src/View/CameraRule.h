#pragma once

#include <Inventor/SbBox3f.h>
#include <Inventor/SbMatrix.h>
#include <Inventor/SbViewVolume.h>
#include <Inventor/SbViewportRegion.h>

class SoCamera;
class SoNode;
class SoState;

/// What a camera shows: its view volume in world space, and the matrices that draw it.
struct CameraPlacement
{
    SbViewVolume volume;
    SbMatrix viewing;
    SbMatrix projection;

    /// Puts the placement into a traversal's state, except for the viewing matrix of a drawing traversal.
    void apply(SoState* state, SoNode* node) const;
};

/// Which cameras count when a view draws, picks in or measures a scene.
///
/// A view looks either through a free camera of its own, and then every camera of the scene is passed over,
/// or through the first camera of the scene that the traversal meets; the scene's further cameras then work
/// as they are. The rule is kept apart from the scene's nodes: nothing in the graph is changed.
class CameraRule
{
public:
    CameraRule();

    /// Starts a frame that is drawn through the free camera `camera`.
    void beginFreeFrame(const SoCamera* camera, const CameraPlacement& placement);
    /// Starts a frame that is drawn through the scene's camera. Its clipping planes are those of its fields
    /// where they have been set, and otherwise enclose `box`, the scene's bounding box, which may be empty.
    void beginSceneFrame(const SbBox3f& box);

    /// To be called by the drawing traversal for each camera it meets, with that camera's own viewing matrix
    /// (world to camera) and the transformation it stands under. Gives what to draw with instead, or null for
    /// the camera as it is.
    const CameraPlacement* meet(const SoCamera& camera, const SbMatrix& viewing, const SbMatrix& model,
                                const SbViewportRegion& viewport);
    /// For other traversals: what that camera showed in the last frame, or null for the camera as it is.
    const CameraPlacement* placementOf(const SoCamera& camera) const;

    bool looksThroughScene() const { return m_freeCamera == nullptr; }
    /// Whether a camera of the scene was met in this frame.
    bool hasMetSceneCamera() const { return m_met != nullptr; }
    /// The focal distance of the scene's camera in world units, or 0 when it has none of its own.
    float sceneFocalDistance() const { return m_focalDistance; }
    /// What the frame was drawn with.
    const CameraPlacement& placement() const { return m_placement; }
    /// What it was drawn into, which a camera may have cropped.
    const SbViewportRegion& viewport() const { return m_viewport; }

private:
    CameraPlacement m_placement;
    SbViewportRegion m_viewport;
    SbBox3f m_box;
    const SoCamera* m_freeCamera = nullptr;
    const SoCamera* m_met = nullptr; // compared, never dereferenced: it may be gone since
    float m_focalDistance = 0.0f;
};
