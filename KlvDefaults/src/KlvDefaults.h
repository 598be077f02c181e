#pragma once

#include "FieldEditors/SFWidgets/DvSFLineWidget.h"
#include "FieldEditors/SFWidgets/DvSFNameWidget.h"
#include "FieldEditors/SFWidgets/DvSFStringWidget.h"
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
    DvSFLineWidget m_sfLineWidget{nullptr};
    DvSFNameWidget m_sfNameWidget{nullptr};
    DvSFStringWidget m_sfStringWidget{nullptr};
    KlvFieldEditorDockWin m_fieldEditorDockWin;
};
