#pragma once

#include "KlvEditorDock.h"

class SoField;

/// The dock that shows the editor of the selected field.
class KlvFieldEditorDockWin : public KlvEditorDock
{
    Q_OBJECT

public:
    KlvFieldEditorDockWin();

    ~KlvFieldEditorDockWin() override;

public Q_SLOTS:
    /// Shows the editor for a field; null empties and hides the dock.
    void s_selectedFieldChanged(SoField* field);
};
