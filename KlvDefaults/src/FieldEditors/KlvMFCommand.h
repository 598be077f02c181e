#pragma once

#include <KlvExtender/KlvCommand.h>

class SoMField;

/// Base of the commands on the elements ("rows") of a multi-value field, which are counted from 0. No index
/// is checked: what becomes of one beyond the end or below 0 is as with the element functions of the
/// framework. The field must outlive the command; with a null one a command does nothing.
class KlvMFCommand : public KlvCommand
{
protected:
    explicit KlvMFCommand(SoMField* field, Kind kind = Kind::ValueEdit, const QString& text = QString());

    SoMField* getMField() const { return m_field; }

private:
    SoMField* m_field;
};
