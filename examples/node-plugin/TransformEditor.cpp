#include "TransformEditor.h"

#include "EulerAngles.h"
#include "SetValueCommand.h"
#include "VectorInput.h"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/nodes/SoTransform.h>

#include <QFormLayout>

namespace {

/// Changes a field as one step of the history. The scope has the history copy the field before and after, so
/// that undo puts everything back as it was, also that the field had its default value.
template <typename Field, typename Value>
void change(Field& field, const Value& value)
{
    const KlvEditScope scope(&field);
    KlvServices::getInstance()->pushCommand(new SetValueCommand(&field, value));
}

bool isFree(const SoField& field)
{
    // A field that an engine or another field drives would not keep what is entered.
    return !field.isConnected();
}

} // namespace

TransformEditor::TransformEditor()
    : m_sensor([](void* editor, SoSensor*) { static_cast<TransformEditor*>(editor)->refresh(); }, this)
{
    m_name = "Transform Editor";
    m_description = "Edits translation, rotation and scale of a transform node together.";
    m_author = "An example";
    m_version = "1.0.0";
    m_handledType = SoTransform::getClassTypeId();
    m_sensor.setDeleteCallback(
        [](void* editor, SoSensor*) { static_cast<TransformEditor*>(editor)->loseNode(); }, this);
}

TransformEditor::~TransformEditor()
{
    delete m_widget;
}

void TransformEditor::load()
{
    KlvEditor::load();
    m_widget = new QWidget;
    m_translation = new VectorInput(tr("Translation"), 0.1);
    m_rotation = new VectorInput(tr("Rotation in degrees about"), 5);
    m_scale = new VectorInput(tr("Scale"), 0.1);
    auto* form = new QFormLayout(m_widget);
    form->addRow(tr("&Translation"), m_translation);
    form->addRow(tr("&Rotation (°)"), m_rotation);
    form->addRow(tr("&Scale"), m_scale);
    connect(m_translation, &VectorInput::edited, this, [this](int column, float number) {
        if (node())
            change(node()->translation, enter(*m_translation, column, number));
    });
    connect(m_rotation, &VectorInput::edited, this, [this](int column, float number) {
        if (node())
            change(node()->rotation, rotationFromAngles(enter(*m_rotation, column, number)));
    });
    connect(m_scale, &VectorInput::edited, this, [this](int column, float number) {
        if (node())
            change(node()->scaleFactor, enter(*m_scale, column, number));
    });
}

void TransformEditor::activate()
{
    KlvEditor::activate();
    if (!node())
        return;
    m_sensor.attach(node());
    refresh();
}

void TransformEditor::deactivate()
{
    // What is being typed still counts: an input commits it when it loses the focus.
    if (QWidget* input = m_widget ? m_widget->focusWidget() : nullptr)
        input->clearFocus();
    m_sensor.detach();
    KlvEditor::deactivate();
}

void TransformEditor::unload()
{
    delete m_widget;
    KlvEditor::unload();
}

SoTransform* TransformEditor::node() const
{
    return static_cast<SoTransform*>(getEditedObject().toFieldContainer());
}

void TransformEditor::refresh()
{
    // A sensor that was scheduled before its node was taken away still comes.
    if (!node())
        return;
    m_translation->setNumbers(node()->translation.getValue());
    m_scale->setNumbers(node()->scaleFactor.getValue());
    // Many angles make the same rotation: those that were entered stay as long as they do.
    const SbRotation rotation = node()->rotation.getValue();
    const SbVec3f angles = m_rotation->numbers();
    m_rotation->setNumbers(rotationFromAngles(angles) == rotation ? angles : anglesOf(rotation));

    m_translation->setEnabled(isFree(node()->translation));
    m_rotation->setEnabled(isFree(node()->rotation));
    m_scale->setEnabled(isFree(node()->scaleFactor));
}

void TransformEditor::loseNode()
{
    m_sensor.detach();
    setEditedObject(nullptr);
    Q_EMIT editedObjectLost();
}

SbVec3f TransformEditor::enter(VectorInput& input, int column, float number)
{
    // The other two as they are now: the node may have changed since, and inputs show rounded numbers.
    refresh();
    SbVec3f numbers = input.numbers();
    numbers[column] = number;
    input.setNumbers(numbers);
    return numbers;
}
