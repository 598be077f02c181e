#pragma once

class SoField;

/// Gives the focus to the editor that shows a field, if one does: to where values are typed, before its
/// buttons and sliders. Its dock is shown in front of others.
void enterEditorOf(const SoField* field);
