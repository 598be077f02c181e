#pragma once

#include <QMenu>
#include <QPointer>

class KeysDialog;
class QMainWindow;

/// The Help menu: the keys of the window, and what the program is.
class HelpMenu : public QMenu
{
    Q_OBJECT

public:
    /// The window is the parent of the dialogs.
    explicit HelpMenu(QMainWindow* window);

private:
    void showKeys();
    void showAbout();

    QMainWindow* m_window;
    QPointer<KeysDialog> m_keys;
};
