#include "SceneRenderer.h"

#include "GlAttributes.h"
#include "GlMessages.h"
#include "ViewRenderAction.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/SoRenderManager.h>
#include <Inventor/elements/SoGLCacheContextElement.h>
#include <Inventor/misc/SoContextHandler.h>

#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QSurfaceFormat>

#include <algorithm>

namespace {

constexpr int largestSide = 8192;
constexpr int samples = 4;
constexpr int maxQueuedErrors = 100; // a lost context gives errors for ever

/// Makes a context current, and at the end again the one that was current before.
class CurrentContext
{
public:
    CurrentContext(QOpenGLContext& context, QSurface& surface)
        : m_before(QOpenGLContext::currentContext())
        , m_surfaceBefore(m_before ? m_before->surface() : nullptr)
        , m_context(context)
        , m_isCurrent(context.makeCurrent(&surface))
    {
    }
    ~CurrentContext()
    {
        if (m_before && m_before != &m_context)
            m_before->makeCurrent(m_surfaceBefore);
        else if (!m_before)
            m_context.doneCurrent();
    }
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;

    explicit operator bool() const { return m_isCurrent; }

private:
    QOpenGLContext* m_before;
    QSurface* m_surfaceBefore;
    QOpenGLContext& m_context;
    bool m_isCurrent;
};

QSurfaceFormat compatibleFormat()
{
    // The scene graph draws with the fixed pipeline, which a core profile lacks.
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setVersion(2, 1);
    return format;
}

void paintBackground(const QColor& top, const QColor& bottom)
{
    const GlAttributes attributes;
    for (const GLenum mode : {GL_LIGHTING, GL_DEPTH_TEST, GL_TEXTURE_2D, GL_BLEND, GL_CULL_FACE, GL_FOG})
        glDisable(mode);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glShadeModel(GL_SMOOTH);
    glBegin(GL_QUADS);
    glColor3f(bottom.redF(), bottom.greenF(), bottom.blueF());
    glVertex2f(-1.0f, -1.0f);
    glVertex2f(1.0f, -1.0f);
    glColor3f(top.redF(), top.greenF(), top.blueF());
    glVertex2f(1.0f, 1.0f);
    glVertex2f(-1.0f, 1.0f);
    glEnd();
}

} // namespace

SceneRenderer::SceneRenderer(CameraRule& rule)
{
    m_context.setFormat(compatibleFormat());
    if (!m_context.create())
        return;
    m_surface.setFormat(m_context.format());
    m_surface.create();
    const CurrentContext current(m_context, m_surface);
    if (!current)
        return;
    m_messages = std::make_unique<GlMessages>();
    m_cacheContext = SoGLCacheContextElement::getUniqueCacheContext();
    ViewRenderAction::initClass();
    m_action = std::make_unique<ViewRenderAction>(rule);
    m_action->setCacheContext(m_cacheContext);
    m_manager = std::make_unique<SoRenderManager>();
    m_manager->setGLRenderAction(m_action.get());
    m_manager->setRenderCallback(
        [](void* self, SoRenderManager*) { static_cast<SceneRenderer*>(self)->m_changed(); }, this);
}

SceneRenderer::~SceneRenderer()
{
    if (!isValid())
        return;
    // What the graph keeps in this context can only be freed while it is current.
    const CurrentContext current(m_context, m_surface);
    m_manager->setSceneGraph(nullptr);
    m_manager.reset();
    m_action.reset();
    SoContextHandler::destructingContext(m_cacheContext);
    m_target.reset();
    m_messages.reset();
}

void SceneRenderer::setScene(SoNode* scene, std::function<void()> changed)
{
    m_changed = std::move(changed);
    if (m_manager)
        m_manager->setSceneGraph(scene);
}

QImage SceneRenderer::render(const QSize& size, const QColor& top, const QColor& bottom,
                             const std::function<void()>& overlay)
{
    if (!isValid())
        return QImage();
    const CurrentContext current(m_context, m_surface);
    if (!current)
        return QImage();
    const QSize pixels = prepare(size);
    if (!m_target->bind())
        return QImage();

    glViewport(0, 0, pixels.width(), pixels.height());
    paintBackground(top, bottom);
    glEnable(GL_DEPTH_TEST);
    m_manager->render(FALSE, TRUE);
    overlay();
    // Errors of the scene's own must not be taken for errors of what comes next.
    for (int i = 0; i < maxQueuedErrors && glGetError() != GL_NO_ERROR; ++i) {
    }
    m_target->release();
    QImage image = m_target->toImage();
    image.convertTo(QImage::Format_RGB32);
    return pixels == size ? image : image.scaled(size);
}

/// Gives the size that can be drawn.
QSize SceneRenderer::prepare(const QSize& size)
{
    const QSize pixels = size.expandedTo(QSize(1, 1)).boundedTo(QSize(largestSide, largestSide));
    if (m_target && m_target->size() == pixels)
        return pixels;
    QOpenGLFramebufferObjectFormat format;
    format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
    format.setInternalTextureFormat(GL_RGB8); // blending leaves no holes in the picture
    format.setSamples(samples);
    m_target = std::make_unique<QOpenGLFramebufferObject>(pixels, format);

    const SbVec2s extent(static_cast<short>(pixels.width()), static_cast<short>(pixels.height()));
    m_manager->setWindowSize(extent);
    m_manager->setSize(extent);
    m_manager->setViewportRegion(SbViewportRegion(extent));
    return pixels;
}
