#include <KlvExtender/KlvEditor.h>

KlvEditor::KlvEditor()
    : m_handledType(SoType::badType())
{
}

KlvEditor::~KlvEditor() = default;

SoType KlvEditor::getHandledType()
{
    return m_handledType;
}

void KlvEditor::setEditedObject(SoTypedObject object)
{
    m_editedObject = object;
}

SoTypedObject KlvEditor::getEditedObject() const
{
    return m_editedObject;
}

QWidget* KlvEditor::getWidget() const
{
    return m_widget;
}
