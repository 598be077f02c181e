#pragma once

#include <Inventor/SbTime.h>
#include <Inventor/sensors/SoOneShotSensor.h>

#include <QObject>
#include <QTimer>

/// Processes the scene graph's sensor queues where the application does not.
///
/// Coin tells nobody whether somebody looks after its queues, and listening to them would displace whoever
/// does. So it is tried out: while something is queued, a sensor of our own is queued with it. When that, or
/// the same timer sensor that is due, is still there several turns of the event loop later, and processing
/// the queues helps, the queues are processed from here as long as the object lives. Otherwise nothing is
/// ever touched.
class SensorFallback : public QObject
{
    Q_OBJECT

public:
    explicit SensorFallback(QObject* parent = nullptr);

private:
    void look();
    void process();
    bool isStuck();

    QTimer m_timer{this};
    SoOneShotSensor m_trial;
    SbTime m_due = SbTime::zero(); ///< of the timer sensor that was overdue at the last look
    int m_stuckLooks = 0;
};
