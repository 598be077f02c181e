#pragma once

#include <QMessageBox>
#include <QString>

class QDialog;
class QWidget;

/// Shows a dialog until it is answered. Only the window that it belongs to waits meanwhile: in an application
/// that is inspected, the application's own windows go on.
int execForWindow(QDialog& dialog);

/// Asks a question; the button that was chosen.
QMessageBox::StandardButton ask(QWidget* parent, const QString& title, const QString& question,
                                QMessageBox::StandardButtons buttons, QMessageBox::StandardButton preset);

/// Shows one sentence about something that went wrong.
void warn(QWidget* parent, const QString& title, const QString& sentence);

/// Lets a person choose a file that exists, beginning at a file or folder; empty when nothing was chosen.
QString chooseFile(QWidget* parent, const QString& title, const QString& start, const QString& filter);
