#include "Models/FieldTextCommand.h"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoSFString.h>

QString FieldTextCommand::textOf(SoField& field)
{
    SbString text;
    field.get(text);
    return toUtf16(text);
}

bool FieldTextCommand::paste(SoField& field, const QString& text)
{
    SbString after = fromUtf16(text);
    // What comes from elsewhere has no quotation marks.
    if (field.isOfType(SoSFString::getClassTypeId()) && !text.trimmed().startsWith(QLatin1Char('"'))) {
        SoSFString plain;
        plain.setValue(after);
        plain.get(after);
    }
    SbString before;
    field.get(before);
    const KlvEditScope scope(&field, tr("Paste into %1"));
    if (!setFieldFromText(&field, after))
        return false;
    KlvServices::getInstance()->pushCommand(new FieldTextCommand(field, before, after));
    return true;
}

FieldTextCommand::FieldTextCommand(SoField& field, const SbString& before, const SbString& after)
    : KlvCommand(&field, Kind::Action)
    , m_before(before)
    , m_after(after)
{
}

void FieldTextCommand::undo()
{
    setFieldFromText(getField(), m_before);
}

void FieldTextCommand::redo()
{
    setFieldFromText(getField(), m_after);
}
