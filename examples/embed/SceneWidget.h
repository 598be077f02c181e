#pragma once

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QWidget>

#include <Inventor/SoRenderManager.h>

/// Draws a scene through its camera, whenever something in it changes.
class SceneWidget : public QWidget
{
    Q_OBJECT

public:
    explicit SceneWidget(QWidget* parent = nullptr);
    ~SceneWidget() override;

    void setScene(SoNode* root, SoCamera* camera);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage render(QSize pixels);

    QOpenGLContext m_context;
    QOffscreenSurface m_surface;
    SoRenderManager m_manager;
};
