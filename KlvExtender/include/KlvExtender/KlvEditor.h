#pragma once

#include <KlvExtender/KlvExtension.h>
#include <KlvExtender/SceneGraph/SoTypedObject.h>

#include <QPointer>
#include <QWidget>

/// An extension that edits one object of the scene graph at a time: a field or a field container.
///
/// A dock picks the editor whose handled type fits the selection best, gives it the object, places its widget
/// and activates it. To let go it deactivates the editor and sets the edited object to nothing.
class KLV_EXTENDER_EXPORT KlvEditor : public KlvExtension
{
    Q_OBJECT

public:
    KlvEditor();

    /// The type of objects it edits; objects of derived types are edited too, unless a more specific editor
    /// exists.
    virtual SoType getHandledType();
    /// Says what to edit, or nothing. The editor does not own it; it acts on it from the next `activate()`
    /// on.
    virtual void setEditedObject(SoTypedObject object);
    /// What was set last, or nothing.
    virtual SoTypedObject getEditedObject() const;
    /// The widget that shows it. It belongs to the editor; a dock that shows it gives it back without a
    /// parent.
    virtual QWidget* getWidget() const;

    ~KlvEditor() override;

Q_SIGNALS:
    /// Sent when the edited object was destroyed under the editor. The editor has let go of it already, its
    /// edited object is nothing; who shows the editor takes it away.
    void editedObjectLost();

protected:
    SoType m_handledType;
    SbString m_handledTypeName;
    QPointer<QWidget> m_widget;

private:
    SoTypedObject m_editedObject;
};
