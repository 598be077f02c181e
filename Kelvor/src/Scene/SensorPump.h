#pragma once

#include <QObject>
#include <QTimer>

#include <atomic>

/// Drives the scene graph's sensor queues from Qt's event loop: timer sensors fire when they are due, delay
/// sensors as soon as the event loop is idle. While no sensor is queued nothing runs.
///
/// Coin tells only one listener of changes in its queues, and does not say who it is. So at most one pump may
/// exist in a process: this one for the program of its own, none of ours in an application that has one
/// already. Nothing else of the inspector relies on this class.
///
/// Make and destroy it in the thread that runs the scene graph; sensors may be scheduled from any thread.
class SensorPump : public QObject
{
    Q_OBJECT

public:
    explicit SensorPump(QObject* parent = nullptr);
    /// Leaves the queues without a listener.
    ~SensorPump() override;

private:
    static void queuesChanged(void* pump);
    void arm();
    void process();

    QTimer m_timer{this};
    std::atomic<bool> m_armRequested = false;
    bool m_processing = false;
};
