#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <QMetaType>
#include <QObject>

#include <memory>

class KlvChanges;
class KlvCommand;
class QUndoStack;
class SoField;
class SoFieldContainer;

// Signals carry these pointers to receivers that do not know the classes (queued calls, spies).
Q_DECLARE_OPAQUE_POINTER(SoField*)
Q_DECLARE_OPAQUE_POINTER(SoFieldContainer*)

/// The selection and the history, shared by the host and all extensions.
///
/// **Selection.** At most one container and one of its fields are selected. The selected container is
/// referenced, so what editors show stays alive; when everybody else has let go of it (its node was deleted),
/// the selection is cleared as soon as the event loop comes round. A container with a reference count of 0 is
/// kept as long as it is selected and deleted, as is usual with Coin, when it is no longer.
///
/// **History.** Commands restore values as far as their own means go, often text. The history adds typed
/// copies of the edited field, value, default and ignored flags, from before and after each command, so that
/// undo and redo are exact: see `pushCommand()`. The copies of "before" come from the selected field, whose
/// copy is kept fresh while the event loop is idle; that of a large field is made then, too, and lists of
/// more than 4 MiB have none. Of a field that is not selected, "before" is known only when the command
/// changes it in `execute()`. Whoever announces a change with a `KlvEditScope` does not depend on it.
///
/// The one instance is made on first use and goes with the application object. User-interface thread only.
class KLV_EXTENDER_EXPORT KlvServices : public QObject
{
    Q_OBJECT

public:
    static KlvServices* getInstance();

    ~KlvServices() override;

    /// Selects a container, or nothing. A selected field of another container is deselected first.
    void setSelectedNode(SoFieldContainer* node);
    /// Selects a field and its container. Null deselects the field and keeps the container.
    void setSelectedField(SoField* field);
    SoFieldContainer* getSelectedNode() const;
    SoField* getSelectedField() const;
    /// Sends both selection signals again for what is selected now.
    void announceSelection();

    /// Takes ownership of a command, calls its `execute()` once and records it as a step of the history, with
    /// a reference to the container of its field for as long as the step lives.
    ///
    /// - A command that changed nothing leaves no step, where it can be told: of fields that are not selected
    ///   it can within a `KlvEditScope` only.
    /// - Value edits of one field that follow each other within a second, or while one mouse button is held,
    ///   become one step.
    /// - Undo calls the command's `undo()`. If the field was as the command had left it, or that call changed
    ///   nothing, the copy of before is then put into place; if somebody else changed the field in between,
    ///   the command's own result stands. Redo likewise.
    void pushCommand(KlvCommand* command);
    /// The history. Owned by this object.
    QUndoStack* getUndoStack() const;
    /// What has been changed since the scene was opened. Owned by this object.
    KlvChanges* getChanges() const;

    /// Bytes that the history's copies may take (256 MiB at first). Beyond it the oldest copies are let go,
    /// and the commands' own undo remains; a field that is larger than the budget is not copied at all. The
    /// originals that `getChanges()` keeps may take as many bytes again.
    void setCopyBudget(qint64 bytes);
    qint64 getCopyBudget() const;
    /// Bytes that the history's copies take now.
    qint64 getCopyBytes() const;

Q_SIGNALS:
    /// Another container, or nothing (null), is selected.
    void selectedNodeChanged(SoFieldContainer* node);
    /// Another field, or nothing (null), is selected.
    void selectedFieldChanged(SoField* field);

private:
    KlvServices();

    class Private;
    std::unique_ptr<Private> d;
};
