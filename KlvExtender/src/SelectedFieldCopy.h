#pragma once

#include "ElementRange.h"
#include "FieldSnapshot.h"

#include <QTimer>

#include <functional>

class SoField;
class SoFieldSensor;
class SoSensor;

/// The copy of the selected field that becomes "before" of the next command. Changes from elsewhere only mark
/// it stale; it is taken anew when the event loop is idle, and the longer a copy takes, the longer the next
/// one waits. Where the notifications told which elements have changed and no step of the history shares the
/// copy, only those are copied. Of very large lists there is no copy.
class SelectedFieldCopy
{
public:
    SelectedFieldCopy();
    ~SelectedFieldCopy();

    /// Follows another field, or none (null). The first copy of a large field is taken at idle time too.
    /// `whenDying` is called when the field is destroyed while followed.
    void follow(SoField* field, std::function<void()> whenDying);
    SoField* field() const { return m_field; }

    /// The copy of the followed field, or of the one followed before until `forgetLeft()`; null for others.
    /// May be older than the field's value by what changed since the last idle time; null as well before the
    /// first.
    FieldSnapshot::Ptr of(const SoField* field) const;
    /// True for the followed field and the one before it, whether there is a copy at present or not.
    bool knows(const SoField* field) const { return field == m_field || field == m_left; }
    /// Puts a copy of the followed field in place that the caller has just taken; ignored for other fields.
    void set(const SoField* field, std::shared_ptr<FieldSnapshot> copy);
    /// Ends the time in which an editor that lets go of the field followed before may still commit to it.
    void forgetLeft();

    /// Makes sure that no copy is handed out which is older than the field: takes it anew at once or, where
    /// that would take long, hands out none until the next idle time.
    void settle();

    /// Bytes that one copy may take.
    void setLimit(qint64 bytes) { m_limit = bytes; }

private:
    static void fieldChanged(void* self, SoSensor* sensor);
    static void fieldDying(void* self, SoSensor* sensor);
    void noteChange();
    bool canUpdate() const;
    qint64 limit() const;
    void renew();

    SoField* m_field = nullptr;
    std::function<void()> m_whenDying;
    std::shared_ptr<FieldSnapshot> m_copy;
    bool m_outdated = false;         ///< not to be handed out
    ElementRange m_changed;          ///< since the copy was taken, while the timer runs
    const SoField* m_left = nullptr; ///< the field followed before
    FieldSnapshot::Ptr m_leftCopy;
    qint64 m_limit = 0;
    std::unique_ptr<SoFieldSensor> m_sensor;
    QTimer m_idle;
};
