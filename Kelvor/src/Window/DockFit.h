#pragma once

#include <QHash>
#include <QList>
#include <QObject>

#include <utility>

class QDockWidget;
class QMainWindow;

/// Gives docks of a window the height that their content wants, also when it changes.
///
/// Content that can grow, like a table, gets one height for all of its kind: at first what it wants, at most
/// half of what there is. Other content gets what it wants. A height that a person gives a dock by its
/// separator is kept for that kind of content from then on. The neighbour above or below that can grow best
/// makes room and takes what is left over; docks that have none, float or are tabs keep their height. Nothing
/// moves while a mouse button is held.
class DockFit : public QObject
{
    Q_OBJECT

public:
    /// The window outlives it.
    explicit DockFit(QMainWindow* window);

    /// Follows the content of a dock as long as this lives.
    void watch(QDockWidget* dock);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Dock
    {
        bool grows = false;        ///< what it was last fitted to can
        int wanted = 0;            ///< the height that it wanted
        std::pair<int, int> asked; ///< the height that was asked for, and that of both docks
        int grown = 0;             ///< the height for content that can grow; 0 while no person has given one
        int plain = 0;             ///< the one for other content
        int before = 0;            ///< the height when a separator was taken hold of
    };

    void fitAll();
    void fit(QDockWidget* dock, Dock& state);
    void keepHeights();
    QList<QDockWidget*> neighbours(QDockWidget* dock) const;

    QMainWindow* m_window;
    QHash<QDockWidget*, Dock> m_docks;
    bool m_isDragging = false;
    int m_columnBefore = 0; ///< the height beside the window's central widget, as `Dock::before`
    bool m_isScheduled = false;
};
