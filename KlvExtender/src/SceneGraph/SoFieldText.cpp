#include <KlvExtender/SceneGraph/SoFieldText.h>

#include "FieldKind.h"
#include "FieldReadError.h"

#include <Inventor/SbString.h>
#include <Inventor/fields/SoMField.h>

namespace {

std::string_view view(const SbString& string)
{
    return {string.getString(), static_cast<std::size_t>(string.getLength())};
}

} // namespace

SbBool setFieldFromText(SoField* field, const SbString& text)
{
    if (!field)
        return FALSE;
    if (FieldKind::of(*field).setValue(*field, view(text)))
        return TRUE;
    FieldReadError::post(*field, view(text));
    return FALSE;
}

SbBool setElementFromText(SoMField* field, int index, const SbString& text, SbBool report)
{
    if (!field || index < 0)
        return FALSE;
    if (FieldKind::of(*field).setElement(*field, index, view(text)))
        return TRUE;
    if (report)
        FieldReadError::post(*field, index, view(text));
    return FALSE;
}
