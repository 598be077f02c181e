#include "SceneWidget.h"

#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/elements/SoGLCacheContextElement.h>
#include <Inventor/misc/SoContextHandler.h>
#include <Inventor/nodes/SoCamera.h>

#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QPainter>

SceneWidget::SceneWidget(QWidget* parent)
    : QWidget(parent)
{
    m_context.create(); // fails without OpenGL: then there is no picture
    m_surface.setFormat(m_context.format());
    m_surface.create();
    m_manager.getGLRenderAction()->setCacheContext(SoGLCacheContextElement::getUniqueCacheContext());
    m_manager.setRenderCallback([](void* self, SoRenderManager*) { static_cast<QWidget*>(self)->update(); },
                                static_cast<QWidget*>(this));
    m_manager.activate();
}

SceneWidget::~SceneWidget()
{
    m_manager.setSceneGraph(nullptr);
    if (m_context.makeCurrent(&m_surface))
        SoContextHandler::destructingContext(m_manager.getGLRenderAction()->getCacheContext());
}

void SceneWidget::setScene(SoNode* root, SoCamera* camera)
{
    m_manager.setCamera(camera);
    m_manager.setSceneGraph(root);
    update();
}

QImage SceneWidget::render(QSize pixels)
{
    if (!m_context.isValid() || !m_context.makeCurrent(&m_surface))
        return QImage();
    QOpenGLFramebufferObject buffer(pixels, QOpenGLFramebufferObject::CombinedDepthStencil);
    buffer.bind();
    const SbVec2s size(static_cast<short>(pixels.width()), static_cast<short>(pixels.height()));
    m_manager.setWindowSize(size);
    m_manager.setSize(size);
    m_manager.setViewportRegion(SbViewportRegion(size));
    m_context.functions()->glEnable(GL_DEPTH_TEST);
    m_manager.render();
    const QImage image = buffer.toImage();
    buffer.release();
    m_context.doneCurrent();
    return image;
}

void SceneWidget::paintEvent(QPaintEvent*)
{
    const QImage image = render(size() * devicePixelRatioF());
    QPainter painter(this);
    painter.drawImage(rect(), image);
}
