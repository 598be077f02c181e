#pragma once

#include <KlvExtender/KlvCommand.h>

#include <Inventor/SbString.h>

#include <QCoreApplication>

/// A value that was put into a field as text, with the text from before.
class FieldTextCommand : public KlvCommand
{
    Q_DECLARE_TR_FUNCTIONS(FieldTextCommand)

public:
    /// The whole value of a field in Coin's text form. Its cost grows with the value.
    static QString textOf(SoField& field);
    /// Sets a field from text as one step of the history: from Coin's text form, or, for strings, from plain
    /// text without quotation marks, each line of which is one string of a list. A text that the field does
    /// not take gives false and changes nothing. The field is in a container.
    static bool paste(SoField& field, const QString& text);

    /// Nothing: the field is set already.
    void execute() override {}
    void undo() override;
    void redo() override;

private:
    FieldTextCommand(SoField& field, const SbString& before, const SbString& after);

    SbString m_before;
    SbString m_after;
};
