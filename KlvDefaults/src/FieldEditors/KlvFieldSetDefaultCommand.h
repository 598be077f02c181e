#pragma once

#include <KlvExtender/KlvCommand.h>

#include <Inventor/SbString.h>

#include <QCoreApplication>

#include <memory>

/// Sets a field, single- or multi-value, to its default value; both values are kept as text.
class KlvFieldSetDefaultCommand : public KlvCommand
{
    Q_DECLARE_TR_FUNCTIONS(KlvFieldSetDefaultCommand)

public:
    /// `defaultField` holds the default value of `field`; it is read here and may go afterwards. The field
    /// must outlive the command. With either of them null the command does nothing.
    KlvFieldSetDefaultCommand(SoField* field, SoField* defaultField);
    ~KlvFieldSetDefaultCommand() override;

    /// Sets the default value, and marks the field as default if the text restores it exactly (for some
    /// doubles and rotations it does not) or, for multi-value fields, gives the same text.
    void execute() override;
    /// Sets the value that the field had when the command was made.
    void undo() override;
    void redo() override;

    /// True when the field is a multi-value field.
    bool isMultiValue() const { return m_multiValue; }

private:
    bool hasDefaultValue() const;

    bool m_multiValue = false;
    SbString m_defaultValue;
    SbString m_previousValue;
    /// For the comparison only. Null where texts are compared instead: for multi-value fields (copying a list
    /// of nodes or paths would damage it) and for kinds that cannot be copied.
    std::unique_ptr<SoField> m_defaultCopy;
};
