#pragma once

#include "CameraControl.h"
#include "CameraNavigation.h"
#include "GeometryWatch.h"
#include "SceneHighlight.h"
#include "SceneRenderer.h"
#include "ViewActions.h"
#include "ViewStage.h"

#include <QElapsedTimer>
#include <QImage>
#include <QList>
#include <QTimer>
#include <QWidget>

#include <Inventor/SbViewportRegion.h>

class SoPickedPoint;
class ViewPickAction;

/// Shows a scene and lets a person look around in it and select what is seen.
///
/// A scene with a camera is seen through it, so that a change of the camera shows, until a person navigates:
/// from there on a free camera of the view's own continues, and cameras of the scene are passed over. The
/// graph is not changed: headlight and free camera stand beside it, what marks the selection is drawn over
/// it. The headlight is on at first when the scene has no light of its own.
///
/// A click selects what is under the pointer, a drag navigates (`CameraNavigation`), a double click goes to
/// the point that was hit.
///
/// A scene with a shape that Coin would not survive is neither drawn nor measured nor picked in. A sentence
/// that names the shape stands in place of the picture until its numbers fit together again.
///
/// A change of the scene gives a new picture: at most one in a sixtieth of a second, fewer where drawing
/// takes long, and none while the view is not visible. The view draws with an OpenGL context of its own and
/// survives docking and a second view of the same scene. Where no context can be made, it shows a sentence
/// instead.
///
/// The view's actions (`QWidget::actions()`) belong into menus and tool bars; their shortcuts work while the
/// view has the focus.
class SceneView : public QWidget
{
    Q_OBJECT

public:
    enum class Look
    {
        Anew,
        Kept
    };

    explicit SceneView(QWidget* parent = nullptr);
    ~SceneView() override;

    /// The graph to show, or nothing (null). It is referenced while it is shown.
    ///
    /// With `Look::Kept` it is seen from where the one before was, in the same light: it is the same scene,
    /// read again.
    void setRoot(SoNode* root, Look look = Look::Anew);
    SoNode* root() const { return m_stage.root(); }

    /// Marks one occurrence of a node, given by the child indices that lead to it from the root, with an
    /// overlay: the edges of its box, dashed around what it may affect when it shows nothing by itself. No
    /// value marks nothing, nor does a path that leads nowhere. When the scene changes so that the path leads
    /// to another node, the mark goes.
    void setHighlight(const std::optional<QList<int>>& childPath);

    /// Whether scenes can be drawn here.
    bool canDraw() const { return m_renderer.isValid(); }
    /// The picture of the scene as it is now, in device pixels; null when it cannot be drawn.
    QImage grabFrame();

    const ViewActions& viewActions() const { return m_actions; }

    QSize sizeHint() const override { return QSize(640, 480); }
    QSize minimumSizeHint() const override { return QSize(80, 60); }

Q_SIGNALS:
    /// A person has clicked on the scene: the child indices that lead from the root to the shape that was
    /// hit.
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
    void connectActions();
    void scheduleFrame();
    void drawFrame();
    QImage render();
    void paintOverlay();
    std::optional<SceneHighlight::Mark> findHighlight();
    SbBox3f sceneBox();
    const SoPickedPoint* pick(ViewPickAction& action, QPointF position);
    std::optional<SbVec3f> pointAt(QPointF position);
    void select(QPointF position);
    void seek(QPointF position);
    QString hindrance();
    void paintPlaceholder(QPainter& painter);

    CameraRule m_rule;
    ViewCamera m_camera;
    CameraControl m_control;
    CameraNavigation m_navigation;
    ViewStage m_stage;
    GeometryWatch m_geometry;
    SceneRenderer m_renderer;
    SceneHighlight m_highlight;
    ViewActions m_actions;

    QImage m_image;
    QSize m_pixels; // that the image was drawn for
    SbViewportRegion m_viewport;
    QTimer m_frameTimer;
    QElapsedTimer m_sinceFrame;
    qint64 m_frameCost = 0;    // ms that the last frame took
    bool m_isStale = true;     // the scene is no longer what the image shows
    bool m_isAnnounced = true; // the image's signals have been sent
    bool m_isFirstFrame = true;
    bool m_clickSought = false; // the last click was for a seek
};
