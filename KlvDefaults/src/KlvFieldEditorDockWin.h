#pragma once

#include <KlvExtender/KlvEditor.h>

#include <QDockWidget>
#include <QPointer>

class SoField;

/// The dock that shows the editor of the selected field.
///
/// On each selection it looks among the editors that the active profile lets it control for the one made for
/// the field, hands it the field and shows its widget; without a field or an editor for it the dock is empty
/// and hidden.
class KlvFieldEditorDockWin : public KlvExtension
{
    Q_OBJECT

public:
    KlvFieldEditorDockWin();

    /// Starts to follow the selection and places the dock at the right of the host's window.
    void activate() override;
    /// Lets go of the editor, stops following the selection and takes the dock out of the host's window.
    void deactivate() override;
    void hide() override;
    /// Creates the dock, hidden.
    void load() override;
    void show() override;
    /// Deletes the dock; an editor that it still shows is given back first.
    void unload() override;

    ~KlvFieldEditorDockWin() override;

public Q_SLOTS:
    /// Shows the editor for a field; null empties and hides the dock.
    void s_selectedFieldChanged(SoField* field);

private:
    /// The controlled editor whose handled type is the most derived one that `type` is derived from; the last
    /// of several for the same type. Null when there is none.
    KlvEditor* findEditor(SoType type) const;
    /// Empties and hides the dock. Does nothing when it shows no editor.
    void releaseEditor();

    QPointer<QDockWidget> m_dock;
    QPointer<KlvEditor> m_editor;
};
