#pragma once

class QWidget;

/// Shows the dock that a widget lies in, in front of others and in the active window.
void revealInDock(QWidget* widget);
