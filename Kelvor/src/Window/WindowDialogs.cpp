#include "WindowDialogs.h"

#include <QFileDialog>
#include <QFileInfo>

int execForWindow(QDialog& dialog)
{
    dialog.setWindowModality(Qt::WindowModal);
    return dialog.exec();
}

QMessageBox::StandardButton ask(QWidget* parent, const QString& title, const QString& question,
                                QMessageBox::StandardButtons buttons, QMessageBox::StandardButton preset)
{
    QMessageBox box(QMessageBox::Question, title, question, buttons, parent);
    box.setDefaultButton(preset);
    execForWindow(box);
    return box.standardButton(box.clickedButton());
}

void warn(QWidget* parent, const QString& title, const QString& sentence)
{
    QMessageBox box(QMessageBox::Warning, title, sentence, QMessageBox::Ok, parent);
    execForWindow(box);
}

QString chooseFile(QWidget* parent, const QString& title, const QString& start, const QString& filter)
{
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (!start.isEmpty()) {
        dialog.setDirectory(QFileInfo(start).path());
        dialog.selectFile(QFileInfo(start).fileName());
    }
    return execForWindow(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
