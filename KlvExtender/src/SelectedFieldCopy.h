#pragma once

#include "FieldSnapshot.h"

#include <QTimer>

#include <functional>

class SoField;
class SoFieldSensor;
class SoSensor;

/// The copy of the selected field that becomes "before" of the next command. Changes from elsewhere only mark
/// it stale; it is taken anew when the event loop is idle, and the longer a copy takes, the longer the next
/// one waits.
class SelectedFieldCopy
{
public:
    SelectedFieldCopy();
    ~SelectedFieldCopy();

    /// Follows another field, or none (null). `whenDying` is called when the field is destroyed while
    /// followed.
    void follow(SoField* field, std::function<void()> whenDying);
    SoField* field() const { return m_field; }

    /// The copy of the followed field, or of the one followed before until `forgetLeft()`; null for others.
    /// May be older than the field's value by what changed since the last idle time.
    FieldSnapshot::Ptr of(const SoField* field) const;
    /// Puts a copy of the followed field in place that the caller has just taken; ignored for other fields.
    void set(const SoField* field, FieldSnapshot::Ptr copy);
    /// Ends the time in which an editor that lets go of the field followed before may still commit to it.
    void forgetLeft();

    /// Takes the copy anew at once if the field has changed since the last one.
    void renewIfStale();

    /// Bytes that one copy may take.
    void setLimit(qint64 bytes) { m_limit = bytes; }

private:
    static void fieldChanged(void* self, SoSensor* sensor);
    static void fieldDying(void* self, SoSensor* sensor);
    void renew();

    SoField* m_field = nullptr;
    std::function<void()> m_whenDying;
    FieldSnapshot::Ptr m_copy;
    const SoField* m_left = nullptr; ///< the field followed before
    FieldSnapshot::Ptr m_leftCopy;
    qint64 m_limit = 0;
    std::unique_ptr<SoFieldSensor> m_sensor;
    QTimer m_idle;
};
