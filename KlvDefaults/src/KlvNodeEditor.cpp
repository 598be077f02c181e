#include "KlvNodeEditor.h"

KlvNodeEditor::KlvNodeEditor()
    : KlvEditorDock(tr("Node Editor"), SIGNAL(selectedNodeChanged(SoFieldContainer*)),
                    SLOT(s_selectedNodeChanged(SoFieldContainer*)))
{
    m_description = "Node Editor for Kelvor.";
    m_name = "Node Editor";
}

KlvNodeEditor::~KlvNodeEditor() = default;

void KlvNodeEditor::s_selectedNodeChanged(SoFieldContainer* node)
{
    showEditorFor(node);
}
