#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include "FieldAccess.h"
#include "FieldChange.h"
#include "FieldKind.h"

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/fields/SoMField.h>

#include <algorithm>

SbString getElementText(SoMField* field, int index)
{
    SbString text;
    if (field && index >= 0 && index < field->getNum())
        field->get1(index, text);
    return text;
}

void insertElements(SoMField* field, int start, int count)
{
    if (!field || start < 0 || count < 1)
        return;
    const int end = field->getNum();
    const int first = std::min(start, end);
    const std::int64_t added = std::int64_t(start) - first + count;
    if (!canHold(*field, end + added)) {
        SoDebugError::post("insertElements", "a field of type %s cannot hold %lld more elements",
                           field->getTypeId().getName().getString(), static_cast<long long>(added));
        return;
    }
    const FieldChange change(*field, first, static_cast<int>(end - first + added));
    FieldKind::of(*field).insertElements(*field, first, static_cast<int>(added));
}

void deleteElements(SoMField* field, int start, int count)
{
    if (!field || start < 0 || count < 1)
        return;
    const int end = field->getNum();
    if (start < end)
        field->deleteValues(start, std::min(count, end - start));
}

void valueChanged(SoMField* field, int start, int count, SbBool numChanged)
{
    if (!field)
        return;
    // Auditors are told of single elements only while the others stay where they are.
    if (!numChanged)
        FieldAccess::setChangedElements(*field, start, count);
    field->touch();
    FieldAccess::setChangedElements(*field, -1, 0);
}
