#include "CameraRule.h"

#include "ClipRange.h"

#include <Inventor/elements/SoProjectionMatrixElement.h>
#include <Inventor/elements/SoViewVolumeElement.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include <numbers>

void CameraPlacement::apply(SoState* state, SoNode* node) const
{
    SoViewVolumeElement::set(state, node, volume);
    SoProjectionMatrixElement::set(state, node, projection);
}

CameraRule::CameraRule()
{
    m_placement.volume.perspective(std::numbers::pi_v<float> / 4.0f, 1.0f, 1.0f, 10.0f);
    m_placement.volume.getMatrices(m_placement.viewing, m_placement.projection);
}

void CameraRule::beginFreeFrame(const SoCamera* camera, const CameraPlacement& placement)
{
    m_freeCamera = camera;
    m_placement = placement;
    m_met = nullptr;
}

void CameraRule::beginSceneFrame(const SbBox3f& box)
{
    m_freeCamera = nullptr;
    m_box = box;
    m_met = nullptr;
}

const CameraPlacement* CameraRule::meet(const SoCamera& camera, const SbMatrix& viewing,
                                        const SbMatrix& model, const SbViewportRegion& viewport)
{
    if (!looksThroughScene()) {
        m_viewport = viewport;
        if (&camera != m_freeCamera)
            m_met = &camera;
        return &m_placement;
    }
    if (m_met)
        return &camera == m_met ? &m_placement : nullptr;

    m_met = &camera;
    SbViewportRegion cropped = viewport;
    SbViewVolume volume = camera.getViewVolume(viewport, cropped);
    if (!(volume.getWidth() > 0.0f) || !(volume.getHeight() > 0.0f))
        return nullptr;
    m_viewport = cropped;
    m_placement.viewing = viewing;
    SbMatrix unused;
    volume.getMatrices(unused, m_placement.projection);
    m_placement.volume = volume;
    m_placement.volume.transform(model);
    // The planes of other kinds of cameras are part of their shape.
    const SoType type = camera.getTypeId();
    if (type == SoPerspectiveCamera::getClassTypeId() || type == SoOrthographicCamera::getClassTypeId()) {
        ClipRange range =
            ClipRange::around(m_box, viewing, volume.getProjectionType(), camera.focalDistance.getValue());
        if (!camera.nearDistance.isDefault())
            range.nearDistance = camera.nearDistance.getValue();
        if (!camera.farDistance.isDefault())
            range.farDistance = camera.farDistance.getValue();
        if (range.isUsable(volume.getProjectionType())) {
            range.volume(volume, SbMatrix::identity()).getMatrices(unused, m_placement.projection);
            m_placement.volume = range.volume(volume, viewing.inverse());
        }
    }
    SbVec3f focus;
    model.multDirMatrix(SbVec3f(0.0f, 0.0f, camera.focalDistance.getValue()), focus);
    m_focalDistance = camera.focalDistance.isDefault() ? 0.0f : focus.length();
    return &m_placement;
}

const CameraPlacement* CameraRule::placementOf(const SoCamera& camera) const
{
    return !looksThroughScene() || &camera == m_met ? &m_placement : nullptr;
}
