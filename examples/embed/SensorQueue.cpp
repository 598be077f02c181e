#include "SensorQueue.h"

#include <Inventor/SbTime.h>
#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <algorithm>

SensorQueue::SensorQueue()
{
    m_timer.setSingleShot(true);
    m_timer.callOnTimeout([this] { process(); });
    SoDB::getSensorManager()->setChangedCallback(changed, this);
    changed(this);
}

SensorQueue::~SensorQueue()
{
    SoDB::getSensorManager()->setChangedCallback(nullptr, nullptr);
}

void SensorQueue::changed(void* queue)
{
    SoSensorManager* sensors = SoDB::getSensorManager();
    SbTime due;
    if (sensors->isDelaySensorPending())
        static_cast<SensorQueue*>(queue)->m_timer.start(0);
    else if (sensors->isTimerSensorPending(due))
        static_cast<SensorQueue*>(queue)->m_timer.start(
            std::max(1, static_cast<int>((due - SbTime::getTimeOfDay()).getMsecValue()) + 1));
}

void SensorQueue::process()
{
    SoDB::getSensorManager()->processTimerQueue();
    SoDB::getSensorManager()->processDelayQueue(TRUE);
    changed(this);
}
