#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <QString>

class SoField;

/// One change to the scene graph that the host's history can undo and redo.
///
/// An editor makes the change, creates the command with `new` and hands it to `KlvServices::pushCommand()`,
/// which owns it from then on and calls `execute()` once. A command that says which field it changes gets
/// exact undo from the history, whatever its own `undo()` can restore: see `KlvServices`.
class KLV_EXTENDER_EXPORT KlvCommand
{
public:
    /// How the history treats commands that follow each other closely.
    enum class Kind
    {
        Action,   ///< always a step of its own
        ValueEdit ///< joins a value edit of the same field made just before
    };

    /// Called once, when the history takes the command. The change may have been made before.
    virtual void execute() = 0;
    /// Takes the change back.
    virtual void undo() = 0;
    /// Makes the change again.
    virtual void redo() = 0;

    virtual ~KlvCommand();

    KlvCommand(const KlvCommand&) = delete;
    KlvCommand& operator=(const KlvCommand&) = delete;

    /// The field that it changes, or null when it did not say.
    SoField* getField() const { return m_field; }
    Kind getKind() const { return m_kind; }
    /// What the step is called in the history, with "%1" where the name of the field goes ("Add 2 rows to
    /// %1"); empty to let the history choose a name.
    const QString& getText() const { return m_text; }

protected:
    /// A command that does not say what it changes. If the selected field has another value after the command
    /// than before, the history takes it for a value edit of that field.
    KlvCommand();
    /// A command that changes `field` and nothing else. The field must be in a container that can be
    /// referenced, or outlive the history; it may be null, which is as above.
    explicit KlvCommand(SoField* field, Kind kind = Kind::ValueEdit, const QString& text = QString());

private:
    SoField* m_field = nullptr;
    Kind m_kind = Kind::ValueEdit;
    QString m_text;
};
