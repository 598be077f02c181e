#include "SelectedFieldCopy.h"

#include "SceneGraph/FieldAccess.h"

#include <Inventor/fields/SoMField.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QElapsedTimer>

#include <algorithm>

namespace {

/// As many as are copied in no time.
constexpr int fewElements = 1000;

/// Lists of more bytes are left to those who announce their changes: copying all elements again and again
/// would be felt.
constexpr qint64 largestList = qint64(4) << 20;

SoMField* elementsOf(SoField* field)
{
    return field->isOfType(SoMField::getClassTypeId()) ? static_cast<SoMField*>(field) : nullptr;
}

} // namespace

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
    m_leftCopy = of(m_field);
    m_copy.reset();
    m_outdated = false;
    m_field = field;
    m_whenDying = std::move(whenDying);
    if (!m_field)
        return;
    if (SoMField* elements = elementsOf(m_field))
        FieldAccess::setChangedElements(*elements, -1, 0);
    m_sensor->attach(m_field);
    if (FieldSnapshot::isLarge(*m_field))
        noteChange();
    else
        renew();
}

FieldSnapshot::Ptr SelectedFieldCopy::of(const SoField* field) const
{
    if (field && field == m_field)
        return m_outdated ? nullptr : m_copy;
    return field && field == m_left ? m_leftCopy : nullptr;
}

void SelectedFieldCopy::set(const SoField* field, std::shared_ptr<FieldSnapshot> copy)
{
    if (field != m_field)
        return;
    m_idle.stop();
    m_outdated = false;
    m_copy = std::move(copy);
}

void SelectedFieldCopy::forgetLeft()
{
    m_left = nullptr;
    m_leftCopy.reset();
}

void SelectedFieldCopy::fieldChanged(void* self, SoSensor*)
{
    static_cast<SelectedFieldCopy*>(self)->noteChange();
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

void SelectedFieldCopy::settle()
{
    if (!m_idle.isActive()) {
        // Nobody is told when the default flag alone changes.
        if (!m_field || !m_copy || m_copy->hasSameFlags(*m_field))
            return;
        m_changed = {0, 0};
        m_idle.start();
    }
    if (FieldSnapshot::isLarge(*m_field) && !(canUpdate() && m_changed.count() <= fewElements)) {
        m_outdated = true;
        return;
    }
    m_idle.stop();
    renew();
}

void SelectedFieldCopy::noteChange()
{
    ElementRange changed;
    if (SoMField* elements = elementsOf(m_field)) {
        const auto [first, count] = FieldAccess::changedElements(*elements);
        if (first >= 0 && count >= 0 && count <= changed.end - first)
            changed = {first, first + count};
    }
    const bool fresh = !m_idle.isActive();
    m_changed =
        fresh ? changed
              : ElementRange{std::min(m_changed.begin, changed.begin), std::max(m_changed.end, changed.end)};
    if (fresh)
        m_idle.start();
}

bool SelectedFieldCopy::canUpdate() const
{
    return elementsOf(m_field) && m_copy && m_copy.use_count() == 1 && m_changed.end < ElementRange().end;
}

qint64 SelectedFieldCopy::limit() const
{
    return elementsOf(m_field) ? std::min(m_limit, largestList) : m_limit;
}

void SelectedFieldCopy::renew()
{
    QElapsedTimer cost;
    cost.start();
    m_outdated = false;
    if (canUpdate()) {
        m_copy->update(static_cast<SoMField&>(*m_field), m_changed);
        if (m_copy->bytes() > limit())
            m_copy.reset();
    } else if (!m_copy || !m_copy->matches(*m_field)) {
        // An equal copy stays, so that the steps on either side of it go on sharing it.
        m_copy.reset();
        m_copy = FieldSnapshot::take(*m_field, limit());
    }
    // A tenth of the time at most goes into copies of a large field that is changing all the time; small ones
    // are cheap.
    const qint64 milliseconds = cost.elapsed();
    m_idle.setInterval(milliseconds < 2 ? 0 : int(std::min<qint64>(10 * milliseconds, 2000)));
}
