#pragma once

#include "FieldEditors/SFWidgets/DvSFDoubleWidget.h"
#include "FieldEditors/SFWidgets/DvSFFloatWidget.h"
#include "FieldEditors/SFWidgets/DvSFInt32Widget.h"
#include "FieldEditors/SFWidgets/DvSFLineWidget.h"
#include "FieldEditors/SFWidgets/DvSFNameWidget.h"
#include "FieldEditors/SFWidgets/DvSFShortWidget.h"
#include "FieldEditors/SFWidgets/DvSFStringWidget.h"
#include "FieldEditors/SFWidgets/DvSFUInt32Widget.h"
#include "FieldEditors/SFWidgets/DvSFUShortWidget.h"
#include "KlvFieldEditorDockWin.h"

#include <KlvExtender/KlvPlugin.h>

/// The plug-in object: it owns the host's default extensions and editors as members.
class KlvDefaults : public KlvPlugin
{
public:
    KlvDefaults();

    /// Registers every member, in the order of their declaration, and loads them. The order matters: among
    /// equally specific editors the one registered last is chosen.
    void load() override;

private:
    DvSFDoubleWidget m_sfDoubleWidget{nullptr};
    DvSFFloatWidget m_sfFloatWidget{nullptr};
    DvSFInt32Widget m_sfInt32Widget{nullptr};
    DvSFLineWidget m_sfLineWidget{nullptr};
    DvSFNameWidget m_sfNameWidget{nullptr};
    DvSFShortWidget m_sfShortWidget{nullptr};
    DvSFStringWidget m_sfStringWidget{nullptr};
    DvSFUInt32Widget m_sfUInt32Widget{nullptr};
    DvSFUShortWidget m_sfUShortWidget{nullptr};
    KlvFieldEditorDockWin m_fieldEditorDockWin;
};
