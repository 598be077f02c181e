#pragma once

class QAction;
class QWidget;

/// The actions of a 3D view, with their keys, which work while the view has the focus.
struct ViewActions
{
    /// Makes the actions, which belong to the view and are added to it.
    explicit ViewActions(QWidget* view);

    QAction* viewAll;
    /// To be enabled while an occurrence is highlighted.
    QAction* frame;
    QAction* home;
    QAction* setHome;
    /// Checked while the next click goes to a point.
    QAction* seek;
    /// Checked while the scene's camera is looked through; disabled when the scene has none.
    QAction* lookThrough;
    /// Checked while the picture is drawn without perspective.
    QAction* orthographic;
    QAction* headlight;
    QAction* clearSelection;

    /// Enables what does something whenever a scene is shown.
    void setSceneShown(bool shown) const;
};
