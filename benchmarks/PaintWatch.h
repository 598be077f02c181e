#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <chrono>
#include <functional>

/// Notices when a widget is painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* watched) { watched->installEventFilter(this); }

    /// Forgets what has been painted.
    void reset() { m_isPainted = false; }
    /// Runs the event loop until the widget has been painted since `reset()` and `also` is true; false when
    /// that takes more than a minute.
    bool wait(const std::function<bool()>& also = [] { return true; })
    {
        const auto latest = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (!(m_isPainted && also())) {
            if (std::chrono::steady_clock::now() > latest)
                return false;
            QApplication::processEvents();
        }
        return true;
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_isPainted |= event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_isPainted = false;
};
