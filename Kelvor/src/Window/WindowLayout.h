#pragma once

class QMainWindow;

/// Keeps the layout of a main window, with its docks and tool bars, in the user's settings from one run to
/// the next.
class WindowLayout
{
public:
    /// One that is not kept is the same in each run and leaves nothing in the settings. The window outlives
    /// it.
    WindowLayout(QMainWindow* window, bool isKept);

    /// Gives the window the layout of the last run; docks that are added later find their places in it.
    void restore() const;
    /// Puts the tool bars that were added since `restore()` into their places.
    void restoreToolBars() const;
    void keep() const;

private:
    QMainWindow* m_window;
    bool m_isKept;
};
