#include "SensorFallback.h"

#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QScopedValueRollback>

namespace {

constexpr int lookInterval = 50;    // ms
constexpr int processInterval = 16; // ms: as often as a display shows anything
constexpr int looksUntilStuck = 40; // each in a turn of the event loop of its own

} // namespace

SensorFallback::SensorFallback(QObject* parent)
    : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &SensorFallback::look);
    m_timer.start(lookInterval);
}

void SensorFallback::trialFired(void* fallback, SoSensor*)
{
    auto* self = static_cast<SensorFallback*>(fallback);
    self->m_stuckLooks = 0;
    if (self->m_processing || !self->m_isPump)
        return;
    self->m_isPump = false;
    self->m_timer.setInterval(lookInterval);
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
    if (m_isPump) {
        process();
        m_trial.schedule();
        return;
    }
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
    m_isPump = !isStuck();
    if (m_isPump)
        m_timer.setInterval(processInterval);
}

void SensorFallback::process()
{
    const QScopedValueRollback<bool> processing(m_processing, true);
    SoSensorManager* sensors = SoDB::getSensorManager();
    sensors->processTimerQueue();
    sensors->processDelayQueue(TRUE);
}
