#include "Models/FieldWatch.h"

#include <utility>

FieldWatch::FieldWatch(SoField* field, std::function<void()> changed, std::function<void()> destroyed)
    : m_field(field)
    , m_changed(std::move(changed))
    , m_destroyed(std::move(destroyed))
{
    setData(this);
    setFunction([](void* data, SoSensor*) {
        if (const auto* watch = static_cast<FieldWatch*>(data); watch->m_changed)
            watch->m_changed();
    });
    setDeleteCallback(
        [](void* data, SoSensor*) {
            auto* watch = static_cast<FieldWatch*>(data);
            watch->m_field = nullptr;
            if (watch->m_destroyed)
                watch->m_destroyed();
        },
        this);
    attach(field);
}

void FieldWatch::setHearing(bool hearing)
{
    m_hearing = hearing;
    if (!hearing)
        unschedule();
}

void FieldWatch::notify(SoNotList* list)
{
    if (m_hearing)
        SoDataSensor::notify(list);
}
