#pragma once

#include <Inventor/sensors/SoFieldSensor.h>

#include <functional>

/// Watches one field: tells of its changes when Coin's sensor queue is processed, and of its end at once.
/// Holds no reference; from its end on there is no field.
class FieldWatch : private SoFieldSensor
{
public:
    /// Either function may be empty. The field may be half destroyed when `destroyed` is called.
    explicit FieldWatch(SoField* field, std::function<void()> changed = {},
                        std::function<void()> destroyed = {});

    /// Null once the field was destroyed.
    SoField* field() const { return m_field; }

    /// Whether changes are told of; they are at first. While they are not, a change costs next to nothing.
    void setHearing(bool hearing);

private:
    void notify(SoNotList* list) override;

    SoField* m_field;
    std::function<void()> m_changed;
    std::function<void()> m_destroyed;
    bool m_hearing = true;
};
