#pragma once

#include <KlvExtender/KlvEditor.h>

#include <QDockWidget>
#include <QPointer>

/// A dock at the right of the host's window that shows the editor of what is selected.
///
/// On each selection it looks among the editors that the active profile lets it control for the one made for
/// the selected object, hands it the object and shows its widget; without an object or an editor for it the
/// dock is empty and hidden. A leaf says which selection it follows, and has the slot that the host's signal
/// is connected to.
class KlvEditorDock : public KlvExtension
{
    Q_OBJECT

public:
    /// Starts to follow the selection and places the dock at the right of the host's window.
    void activate() override;
    /// Lets go of the editor, stops following the selection and takes the dock out of the host's window.
    void deactivate() override;
    void hide() override;
    /// Creates the dock, hidden. Its object name, by which the host keeps its place, is that of the class.
    void load() override;
    void show() override;
    /// Deletes the dock; an editor that it still shows is given back first.
    void unload() override;

    ~KlvEditorDock() override;

protected:
    /// `title` is the dock's, `signal` a signal of `KlvServices` and `slot` a slot of the leaf, as the macros
    /// `SIGNAL` and `SLOT` give them.
    KlvEditorDock(const QString& title, const char* signal, const char* slot);

    /// Shows the editor for an object in place of the present one; nothing empties and hides the dock.
    void showEditorFor(SoTypedObject object);

private:
    /// The controlled editor whose handled type is the most derived one that `type` is derived from; the last
    /// of several for the same type. Null when there is none.
    KlvEditor* findEditor(SoType type) const;
    /// Puts the editor for the object, if there is one, into the empty dock.
    void activateEditorFor(SoTypedObject object);
    /// Empties and hides the dock. Does nothing when it shows no editor.
    void releaseEditor();

    const QString m_title;
    const char* const m_signal;
    const char* const m_slot;
    QPointer<QDockWidget> m_dock;
    QPointer<KlvEditor> m_editor;
    SoTypedObject m_wanted; ///< the selection as last heard of; only compared, it may be gone
    bool m_isSwitching = false;
};
