#pragma once

#include <QColor>
#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <cstdint>
#include <functional>
#include <memory>

class CameraRule;
class GlMessages;
class QOpenGLFramebufferObject;
class SoNode;
class SoRenderManager;
class ViewRenderAction;

/// Draws a scene into an image, with an OpenGL context of its own that no window and no docking takes away.
///
/// What OpenGL finds wrong meanwhile is reported as `SoGLError`.
class SceneRenderer
{
public:
    /// Tries to make the context. The rule must outlive the renderer.
    explicit SceneRenderer(CameraRule& rule);
    ~SceneRenderer();
    SceneRenderer(const SceneRenderer&) = delete;
    SceneRenderer& operator=(const SceneRenderer&) = delete;

    /// Whether there is an OpenGL context. Without one nothing is drawn and no scene is followed.
    bool isValid() const { return m_manager != nullptr; }
    /// The graph to draw, referenced from now on. `changed` is called, by way of the sensor queue, when a new
    /// picture is due.
    void setScene(SoNode* scene, std::function<void()> changed);
    /// Draws the scene over a background that goes from one colour at the top to another at the bottom. Gives
    /// an opaque image of `size` device pixels, or a null image when drawing is not possible. `overlay` is
    /// called when the scene has been drawn, with the context and its depth buffer as the scene left them.
    ///
    /// A context that was current before is current afterwards.
    QImage render(const QSize& size, const QColor& top, const QColor& bottom,
                  const std::function<void()>& overlay);

private:
    QSize prepare(const QSize& size);

    QOpenGLContext m_context;
    QOffscreenSurface m_surface;
    std::unique_ptr<GlMessages> m_messages;
    std::unique_ptr<QOpenGLFramebufferObject> m_target;
    std::unique_ptr<ViewRenderAction> m_action;
    std::unique_ptr<SoRenderManager> m_manager;
    std::function<void()> m_changed;
    std::uint32_t m_cacheContext = 0;
};
