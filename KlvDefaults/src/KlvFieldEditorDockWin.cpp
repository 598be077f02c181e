#include "KlvFieldEditorDockWin.h"

KlvFieldEditorDockWin::KlvFieldEditorDockWin()
    : KlvEditorDock(tr("Field Editor"), SIGNAL(selectedFieldChanged(SoField*)),
                    SLOT(s_selectedFieldChanged(SoField*)))
{
    m_description = "Field Editor for Kelvor.";
    m_name = "Field Editor";
}

KlvFieldEditorDockWin::~KlvFieldEditorDockWin() = default;

void KlvFieldEditorDockWin::s_selectedFieldChanged(SoField* field)
{
    showEditorFor(field);
}
