#pragma once

#include <KlvExtender/KlvCommand.h>

/// Gives a field of one value, an `SoSFVec3f` or an `SoSFRotation` say, another value.
///
/// It tells the base class which field it changes: the history then keeps the field's node alive, names the
/// step after it, and joins edits that follow each other closely.
template <typename Field, typename Value>
class SetValueCommand : public KlvCommand
{
public:
    SetValueCommand(Field* field, const Value& value)
        : KlvCommand(field)
        , m_field(field)
        , m_before(field->getValue())
        , m_after(value)
    {
    }

    void execute() override { m_field->setValue(m_after); }
    void undo() override { m_field->setValue(m_before); }
    void redo() override { execute(); }

private:
    Field* m_field;
    Value m_before;
    Value m_after;
};
