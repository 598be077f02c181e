#include "SensorFallback.h"

#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

namespace {

constexpr int lookInterval = 50;    // ms
constexpr int processInterval = 16; // ms: as often as a display shows anything
constexpr int looksUntilStuck = 4;  // each in a turn of the event loop of its own

} // namespace

SensorFallback::SensorFallback(QObject* parent)
    : QObject(parent)
    , m_trial([](void*, SoSensor*) {}, nullptr)
{
    connect(&m_timer, &QTimer::timeout, this, &SensorFallback::look);
    m_timer.start(lookInterval);
}

bool SensorFallback::isStuck()
{
    SoSensorManager* sensors = SoDB::getSensorManager();
    SbTime due;
    const bool overdue = sensors->isTimerSensorPending(due) && due < SbTime::getTimeOfDay();
    const bool sameOverdue = overdue && due == m_due;
    m_due = overdue ? due : SbTime::zero();
    return sameOverdue || m_trial.isScheduled();
}

void SensorFallback::look()
{
    SoSensorManager* sensors = SoDB::getSensorManager();
    if (!isStuck()) {
        m_stuckLooks = 0;
        if (sensors->isDelaySensorPending())
            m_trial.schedule();
        return;
    }
    if (++m_stuckLooks < looksUntilStuck)
        return;
    process();
    // From within a sensor's callback that runs an event loop of its own nothing can be processed, by
    // anybody.
    m_stuckLooks = 0;
    if (isStuck())
        return;
    m_timer.disconnect(this);
    connect(&m_timer, &QTimer::timeout, this, &SensorFallback::process);
    m_timer.start(processInterval);
}

void SensorFallback::process()
{
    SoSensorManager* sensors = SoDB::getSensorManager();
    sensors->processTimerQueue();
    sensors->processDelayQueue(TRUE);
}
