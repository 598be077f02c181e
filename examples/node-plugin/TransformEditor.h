#pragma once

#include <KlvExtender/KlvEditor.h>

#include <Inventor/SbVec3f.h>
#include <Inventor/sensors/SoNodeSensor.h>

class SoTransform;
class VectorInput;

/// Edits where a transform node puts things: translation, rotation and scale factor together.
///
/// The dock calls `setEditedObject()`, places the widget and calls `activate()`; to let go, it calls
/// `deactivate()` and takes the node away.
class TransformEditor : public KlvEditor
{
    Q_OBJECT

public:
    TransformEditor();
    ~TransformEditor() override;

    /// Makes the widget.
    void load() override;
    /// Shows the node and follows its changes.
    void activate() override;
    void deactivate() override;
    void unload() override;

private:
    SoTransform* node() const;
    /// Shows the present values of the node.
    void refresh();
    /// The node goes although it is shown.
    void loseNode();

    /// The numbers of an input with one of them entered anew.
    SbVec3f enter(VectorInput& input, int column, float number);

    VectorInput* m_translation = nullptr; ///< the three are in m_widget
    VectorInput* m_rotation = nullptr;
    VectorInput* m_scale = nullptr;
    SoNodeSensor m_sensor;
};
