#pragma once

#include <QLabel>

class SceneView;

/// Says, in a view without a scene, how to get one.
class SceneHint : public QLabel
{
    Q_OBJECT

public:
    /// Fills the view, whose clicks and drops stay its own.
    explicit SceneHint(SceneView* view);
};
