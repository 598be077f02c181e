#pragma once

class SoField;
class SoFieldContainer;

/// The default value of a field: the same field of a fresh instance of its container's type.
///
/// The instance lives as long as this object, which is made on the stack for one reset; so any number of
/// resets leaves nothing behind, and no instance stays connected to the clock as those of animating types
/// are.
class DefaultField
{
public:
    /// Looks for the default of `field`, which may be null. There is none if the field is in no container, if
    /// its container's type cannot be instantiated or has other fields in a fresh instance (unknown nodes,
    /// scripts, prototypes), or if the fresh field is connected and so has no fixed value; that is reported
    /// as a warning.
    explicit DefaultField(SoField* field);
    ~DefaultField();

    DefaultField(const DefaultField&) = delete;
    DefaultField& operator=(const DefaultField&) = delete;

    /// The field that holds the default, valid as long as this object; null when there is none.
    SoField* get() const { return m_field; }

private:
    SoFieldContainer* m_instance = nullptr;
    SoField* m_field = nullptr;
};
