#pragma once

#include <QDialog>

class QMainWindow;

/// A table of the keys of the inspector's window: those of its actions, as they are when the dialog is made,
/// and those that its panels understand by themselves.
class KeysDialog : public QDialog
{
    Q_OBJECT

public:
    explicit KeysDialog(QMainWindow* window);
};
