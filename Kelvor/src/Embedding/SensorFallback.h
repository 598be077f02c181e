#pragma once

#include <Inventor/SbTime.h>
#include <Inventor/sensors/SoOneShotSensor.h>

#include <QObject>
#include <QTimer>

/// Processes the scene graph's sensor queues where the application does not.
///
/// Coin tells nobody whether somebody looks after its queues, and listening to them would displace whoever
/// does. So it is tried out: while something is queued, a sensor of our own is queued with it. When that, or
/// the same timer sensor that is due, is still there after two seconds in which the event loop turned, and
/// processing the queues helps, they are processed from here, until the sensor of our own is found to have
/// been processed by somebody else. Otherwise nothing is ever touched.
class SensorFallback : public QObject
{
    Q_OBJECT

public:
    explicit SensorFallback(QObject* parent = nullptr);

private:
    static void trialFired(void* fallback, SoSensor* sensor);
    void look();
    void process();
    bool isStuck();

    QTimer m_timer{this};
    SoOneShotSensor m_trial{trialFired, this};
    SbTime m_due = SbTime::zero(); ///< of the timer sensor that was overdue at the last look
    int m_stuckLooks = 0;
    bool m_isPump = false; ///< nobody else looks after the queues
    bool m_processing = false;
};
