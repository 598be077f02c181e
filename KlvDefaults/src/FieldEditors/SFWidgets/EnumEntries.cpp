#include "FieldEditors/SFWidgets/EnumEntries.h"

#include <Inventor/SbName.h>
#include <Inventor/fields/SoSFEnum.h>

std::vector<EnumEntry> enumEntries(const SoSFEnum& field)
{
    std::vector<EnumEntry> entries(field.getNumEnums());
    for (size_t i = 0; i < entries.size(); ++i) {
        SbName name;
        entries[i].value = field.getEnum(int(i), name);
        entries[i].name = QString::fromLatin1(name.getString());
    }
    return entries;
}
