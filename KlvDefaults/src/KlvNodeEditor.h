#pragma once

#include "KlvEditorDock.h"

class SoFieldContainer;

/// The dock that shows the editor of the selected node. This plug-in has none: the dock shows those that
/// other plug-ins bring.
class KlvNodeEditor : public KlvEditorDock
{
    Q_OBJECT

public:
    KlvNodeEditor();

    ~KlvNodeEditor() override;

public Q_SLOTS:
    /// Shows the editor for a node or another container; null empties and hides the dock.
    void s_selectedNodeChanged(SoFieldContainer* node);
};
