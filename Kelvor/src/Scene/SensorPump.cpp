#include "SensorPump.h"

#include <Inventor/SbTime.h>
#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QThread>

#include <algorithm>
#include <cmath>

namespace {

constexpr double longestWait = 24 * 3600 * 1000.0; // ms; a sensor that is due later is looked at again then

/// Rounded up: a timer that fires early would find nothing due and spin until the sensor's time has come.
int millisecondsUntil(const SbTime& due)
{
    const double wait = std::ceil((due - SbTime::getTimeOfDay()).getValue() * 1000.0);
    return static_cast<int>(std::clamp(wait, 0.0, longestWait));
}

} // namespace

SensorPump::SensorPump(QObject* parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &SensorPump::process);
    SoDB::getSensorManager()->setChangedCallback(queuesChanged, this);
    arm();
}

SensorPump::~SensorPump()
{
    SoDB::getSensorManager()->setChangedCallback(nullptr, nullptr);
}

void SensorPump::queuesChanged(void* data)
{
    auto* pump = static_cast<SensorPump*>(data);
    if (QThread::currentThread() == pump->thread())
        pump->arm();
    else if (!pump->m_armRequested.exchange(true)) {
        const auto armHere = [pump] {
            pump->m_armRequested = false;
            pump->arm();
        };
        QMetaObject::invokeMethod(pump, armHere, Qt::QueuedConnection);
    }
}

void SensorPump::arm()
{
    // Coin does not process a queue that is being processed, so an event loop run by a sensor's callback
    // would only spin; process() arms again when that callback has returned.
    if (m_processing)
        return;
    SoSensorManager* const sensors = SoDB::getSensorManager();
    SbTime due;
    if (sensors->isDelaySensorPending())
        m_timer.start(0);
    else if (sensors->isTimerSensorPending(due))
        m_timer.start(millisecondsUntil(due));
    else
        m_timer.stop();
}

void SensorPump::process()
{
    SoSensorManager* const sensors = SoDB::getSensorManager();
    m_processing = true;
    sensors->processTimerQueue();
    sensors->processDelayQueue(TRUE);
    m_processing = false;
    arm();
}
