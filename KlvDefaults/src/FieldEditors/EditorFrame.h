#pragma once

#include <QString>

class QFrame;
class QLabel;
class QLayout;
class QWidget;

/// The look that the frames of all field editors share.

/// Gives a frame a plain box; `lineWidth` names the layout constant of its width.
void setBox(QFrame* frame, const char* lineWidth);

/// Gives a layout its object name, and its four margins and its spacing from the layout constants of those
/// names.
void setUpLayout(QLayout* layout, const char* name, const char* margin, const char* spacing);

/// Text in the middle of its label.
QString centered(const QString& text);

/// Has a label name the kind of field that an editor is for; one that is null is made, as a child of
/// `container`. The text is written once: a label that has one keeps it.
void nameKind(QLabel*& label, QWidget* container, const QString& kind);

/// Gives the label that names the kind its object name, font and frame.
void setUpKindLabel(QLabel* label);
