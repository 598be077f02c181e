#pragma once

#include <QTimer>

/// Has the scene graph's sensors processed by Qt's event loop, as every application with Coin does in one way
/// or another.
class SensorQueue
{
public:
    SensorQueue();
    ~SensorQueue();

private:
    static void changed(void* queue);
    void process();

    QTimer m_timer;
};
