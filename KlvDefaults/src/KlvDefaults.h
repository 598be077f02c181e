#pragma once

#include "FieldEditors/MFWidgets/DvMFDefaultFieldWidget.h"
#include "FieldEditors/MFWidgets/DvMFDoubleWidget.h"
#include "FieldEditors/MFWidgets/DvMFFloatWidget.h"
#include "FieldEditors/MFWidgets/DvMFInt32Widget.h"
#include "FieldEditors/MFWidgets/DvMFShortWidget.h"
#include "FieldEditors/MFWidgets/DvMFStringWidget.h"
#include "FieldEditors/MFWidgets/DvMFUInt32Widget.h"
#include "FieldEditors/MFWidgets/DvMFUShortWidget.h"
#include "FieldEditors/SFWidgets/DvSFBitMaskWidget.h"
#include "FieldEditors/SFWidgets/DvSFBoolWidget.h"
#include "FieldEditors/SFWidgets/DvSFDoubleWidget.h"
#include "FieldEditors/SFWidgets/DvSFEnumWidget.h"
#include "FieldEditors/SFWidgets/DvSFFloatWidget.h"
#include "FieldEditors/SFWidgets/DvSFInt32Widget.h"
#include "FieldEditors/SFWidgets/DvSFLineWidget.h"
#include "FieldEditors/SFWidgets/DvSFNameWidget.h"
#include "FieldEditors/SFWidgets/DvSFPlaneWidget.h"
#include "FieldEditors/SFWidgets/DvSFRotationWidget.h"
#include "FieldEditors/SFWidgets/DvSFShortWidget.h"
#include "FieldEditors/SFWidgets/DvSFStringWidget.h"
#include "FieldEditors/SFWidgets/DvSFUInt32Widget.h"
#include "FieldEditors/SFWidgets/DvSFUShortWidget.h"
#include "FieldEditors/SFWidgets/DvSFVec2fWidget.h"
#include "FieldEditors/SFWidgets/DvSFVec2i32Widget.h"
#include "FieldEditors/SFWidgets/DvSFVec2sWidget.h"
#include "FieldEditors/SFWidgets/DvSFVec3fWidget.h"
#include "FieldEditors/SFWidgets/DvSFVec4fWidget.h"
#include "KlvConsole.h"
#include "KlvFieldEditorDockWin.h"
#include "KlvNodeEditor.h"
#include "KlvProfileSelectorExtension.h"

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
    KlvProfileSelectorExtension m_profileSelectorExtension;
    KlvConsole m_console;
    DvMFDefaultFieldWidget m_mfDefaultFieldWidget{nullptr};
    DvMFDoubleWidget m_mfDoubleWidget{nullptr};
    DvMFFloatWidget m_mfFloatWidget{nullptr};
    DvMFInt32Widget m_mfInt32Widget{nullptr};
    DvMFShortWidget m_mfShortWidget{nullptr};
    DvMFStringWidget m_mfStringWidget{nullptr};
    DvMFUInt32Widget m_mfUInt32Widget{nullptr};
    DvMFUShortWidget m_mfUShortWidget{nullptr};
    DvSFBitMaskWidget m_sfBitMaskWidget{nullptr};
    DvSFBoolWidget m_sfBoolWidget{nullptr};
    DvSFEnumWidget m_sfEnumWidget{nullptr};
    DvSFDoubleWidget m_sfDoubleWidget{nullptr};
    DvSFFloatWidget m_sfFloatWidget{nullptr};
    DvSFInt32Widget m_sfInt32Widget{nullptr};
    DvSFLineWidget m_sfLineWidget{nullptr};
    DvSFNameWidget m_sfNameWidget{nullptr};
    DvSFPlaneWidget m_sfPlaneWidget{nullptr};
    DvSFRotationWidget m_sfRotationWidget{nullptr};
    DvSFShortWidget m_sfShortWidget{nullptr};
    DvSFStringWidget m_sfStringWidget{nullptr};
    DvSFUInt32Widget m_sfUInt32Widget{nullptr};
    DvSFUShortWidget m_sfUShortWidget{nullptr};
    DvSFVec2fWidget m_sfVec2fWidget{nullptr};
    DvSFVec2i32Widget m_sfVec2i32Widget{nullptr};
    DvSFVec2sWidget m_sfVec2sWidget{nullptr};
    DvSFVec3fWidget m_sfVec3fWidget{nullptr};
    DvSFVec4fWidget m_sfVec4fWidget{nullptr};
    KlvFieldEditorDockWin m_fieldEditorDockWin;
    KlvNodeEditor m_nodeEditor;
};
