#include "KlvDefaults.h"

KlvDefaults::KlvDefaults()
{
    m_name = "KlvDefaults";
    m_author = "QRV";
    m_description = "Plug-in which loads Kelvor default extensions.";
    m_version = "1.0.0";
}

void KlvDefaults::load()
{
    // One a line, so that a new editor is a new line.
    // clang-format off
    KlvExtension* const extensions[] = {
        &m_profileSelectorExtension,
        &m_console,
        &m_mfDefaultFieldWidget,
        &m_mfDoubleWidget,
        &m_mfFloatWidget,
        &m_mfInt32Widget,
        &m_mfShortWidget,
        &m_mfStringWidget,
        &m_mfUInt32Widget,
        &m_mfUShortWidget,
        &m_sfBitMaskWidget,
        &m_sfBoolWidget,
        &m_sfEnumWidget,
        &m_sfDoubleWidget,
        &m_sfFloatWidget,
        &m_sfInt32Widget,
        &m_sfLineWidget,
        &m_sfNameWidget,
        &m_sfPlaneWidget,
        &m_sfRotationWidget,
        &m_sfShortWidget,
        &m_sfStringWidget,
        &m_sfUInt32Widget,
        &m_sfUShortWidget,
        &m_sfVec2fWidget,
        &m_sfVec2i32Widget,
        &m_sfVec2sWidget,
        &m_sfVec3fWidget,
        &m_sfVec4fWidget,
        &m_fieldEditorDockWin,
        &m_nodeEditor,
    };
    // clang-format on
    for (KlvExtension* extension : extensions)
        addExtension(extension);
    KlvPlugin::load();
}
