#pragma once

#include <QMenu>

class QMainWindow;

/// The menu that shows and hides the docks and tool bars of a window.
class PanelsMenu : public QMenu
{
    Q_OBJECT

public:
    explicit PanelsMenu(QMainWindow* window);

private:
    void fill();

    QMainWindow* m_window;
};
