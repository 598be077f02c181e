#pragma once

#include <Inventor/SbBasic.h>

#include <cstdint>

class SoField;
class SoMField;

/// One change of a field's value: nobody is notified while the object lives, and the field's auditors are
/// notified once when it goes (unless the field's notification is off altogether).
class FieldChange
{
public:
    /// A change of the whole value.
    explicit FieldChange(SoField& field);
    /// A change of `count` elements from `first` on.
    FieldChange(SoMField& field, int first, int count);
    ~FieldChange();

    FieldChange(const FieldChange&) = delete;
    FieldChange& operator=(const FieldChange&) = delete;

private:
    SoField& m_field;
    SoMField* m_elements = nullptr;
    int m_first = -1;
    int m_count = 0;
    SbBool m_notifyEnabled;
};

/// True when Coin can hold that many elements in the field; it counts bytes in an `int` and grows by
/// doubling.
bool canHold(const SoMField& field, std::int64_t count);
