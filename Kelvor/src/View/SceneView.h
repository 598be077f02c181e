#pragma once

#include "CameraNavigation.h"
#include "CameraRule.h"
#include "SceneRenderer.h"
#include "ViewCamera.h"

#include <QElapsedTimer>
#include <QImage>
#include <QList>
#include <QTimer>
#include <QWidget>

#include <Inventor/SbViewportRegion.h>

class QAction;
class SoDirectionalLight;
class SoNode;
class SoSeparator;

/// Shows a scene and lets a person look around in it.
///
/// A scene with a camera is seen through it, so that a change of the camera shows, until a person navigates:
/// from there on a free camera of the view's own continues, and cameras of the scene are passed over. The
/// graph is not changed: headlight and free camera stand beside it.
///
/// A change of the scene gives a new picture, at most one in a sixtieth of a second and none while the view
/// is not visible. The view draws with an OpenGL context of its own and survives docking and a second view of
/// the same scene. Where no context can be made, it shows a sentence instead.
///
/// The view's actions (`QWidget::actions()`) belong into menus and tool bars; their shortcuts work while the
/// view has the focus.
class SceneView : public QWidget
{
    Q_OBJECT

public:
    explicit SceneView(QWidget* parent = nullptr);
    ~SceneView() override;

    /// The graph to show, or nothing (null). It is referenced while it is shown.
    void setRoot(SoNode* root);
    SoNode* root() const { return m_root; }

    /// Marks one occurrence of a node, given by the child indices that lead to it from the root, with an
    /// overlay; no value marks nothing. A path that leads nowhere shows nothing.
    void setHighlight(const std::optional<QList<int>>& childPath);

    /// Whether scenes can be drawn here.
    bool canDraw() const { return m_renderer.isValid(); }
    /// The picture of the scene as it is now, in device pixels; null when it cannot be drawn.
    QImage grabFrame();

    /// Checked while the scene's camera is looked through; disabled when the scene has none.
    QAction* lookThroughSceneCameraAction() const { return m_lookThroughAction; }
    QAction* viewAllAction() const { return m_viewAllAction; }
    QAction* headlightAction() const { return m_headlightAction; }
    /// Checked while the free camera is orthographic.
    QAction* orthographicAction() const { return m_orthographicAction; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A person has clicked on the scene: the child indices that lead from the root to the shape that was hit.
    void picked(const QList<int>& childPath);
    /// A person has clicked beside everything, or pressed Esc: nothing is to be selected.
    void pickedNothing();
    /// The first picture of a root has been shown, or the sentence that stands for it where nothing can be
    /// drawn.
    void firstFrameDrawn();
    /// A new picture has been shown.
    void frameDrawn();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void makeActions();
    void makeStage();
    void scheduleFrame();
    void drawFrame();
    bool drawThroughSceneCamera();
    void drawThroughFreeCamera();
    QImage render();
    float aspect() const;
    SbBox3f sceneBox();
    std::optional<SbVec3f> pointAt(QPointF position);
    void lookThroughScene(bool on);
    void takeOverSceneCamera();
    void viewAll();
    void paintPlaceholder(QPainter& painter);

    CameraRule m_rule;
    ViewCamera m_camera;
    CameraNavigation m_navigation;
    SceneRenderer m_renderer;

    SoSeparator* m_stage = nullptr; // headlight, free camera, the scene
    SoDirectionalLight* m_headlight = nullptr;
    SoNode* m_root = nullptr;

    QAction* m_lookThroughAction = nullptr;
    QAction* m_viewAllAction = nullptr;
    QAction* m_headlightAction = nullptr;
    QAction* m_orthographicAction = nullptr;

    QImage m_image;
    QSize m_pixels; // that the image was drawn for
    SbViewportRegion m_viewport;
    QTimer m_frameTimer;
    QElapsedTimer m_sinceFrame;
    bool m_isStale = true;     // the scene is no longer what the image shows
    bool m_isAnnounced = true; // the image's signals have been sent
    bool m_isFirstFrame = true;
    bool m_looksThroughScene = true;
    bool m_isCameraPlaced = false; // the free camera has been somewhere in this scene
};
