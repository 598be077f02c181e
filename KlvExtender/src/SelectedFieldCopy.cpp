#include "SelectedFieldCopy.h"

#include <Inventor/fields/SoField.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QElapsedTimer>

#include <algorithm>

SelectedFieldCopy::SelectedFieldCopy()
    : m_sensor(std::make_unique<SoFieldSensor>(fieldChanged, this))
{
    // At once, but it only starts a timer: it works without anybody processing the sensor queues.
    m_sensor->setPriority(0);
    m_sensor->setDeleteCallback(fieldDying, this);
    m_idle.setSingleShot(true);
    QObject::connect(&m_idle, &QTimer::timeout, [this] { renew(); });
}

SelectedFieldCopy::~SelectedFieldCopy() = default;

void SelectedFieldCopy::follow(SoField* field, std::function<void()> whenDying)
{
    m_sensor->detach();
    m_idle.stop();
    m_idle.setInterval(0);
    m_left = m_field;
    m_leftCopy = std::exchange(m_copy, nullptr);
    m_field = field;
    m_whenDying = std::move(whenDying);
    if (!m_field)
        return;
    m_sensor->attach(m_field);
    renew();
}

FieldSnapshot::Ptr SelectedFieldCopy::of(const SoField* field) const
{
    return !field ? nullptr : field == m_field ? m_copy : field == m_left ? m_leftCopy : nullptr;
}

void SelectedFieldCopy::set(const SoField* field, FieldSnapshot::Ptr copy)
{
    if (field == m_field)
        m_copy = std::move(copy);
}

void SelectedFieldCopy::forgetLeft()
{
    m_left = nullptr;
    m_leftCopy.reset();
}

void SelectedFieldCopy::fieldChanged(void* self, SoSensor*)
{
    auto* copy = static_cast<SelectedFieldCopy*>(self);
    if (!copy->m_idle.isActive())
        copy->m_idle.start();
}

void SelectedFieldCopy::fieldDying(void* self, SoSensor*)
{
    auto* copy = static_cast<SelectedFieldCopy*>(self);
    const auto whenDying = copy->m_whenDying;
    copy->m_idle.stop();
    copy->m_copy.reset();
    copy->m_field = nullptr;
    if (whenDying)
        whenDying();
}

void SelectedFieldCopy::renewIfStale()
{
    if (m_idle.isActive()) {
        m_idle.stop();
        renew();
    }
}

void SelectedFieldCopy::renew()
{
    QElapsedTimer cost;
    cost.start();
    // An equal copy stays, so that the steps on either side of it go on sharing it.
    if (!m_copy || !m_copy->matches(*m_field)) {
        m_copy.reset();
        m_copy = FieldSnapshot::take(*m_field, m_limit);
    }
    // A tenth of the time at most goes into copies of a large field that is changing all the time; small ones
    // are cheap.
    const qint64 milliseconds = cost.elapsed();
    m_idle.setInterval(milliseconds < 2 ? 0 : int(std::min<qint64>(10 * milliseconds, 2000)));
}
