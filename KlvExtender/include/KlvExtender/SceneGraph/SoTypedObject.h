#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SoType.h>

#include <cstddef>

class SoField;
class SoFieldContainer;

/// A nullable reference to something of the scene graph that has an `SoType`: nothing, a field or a field
/// container.
///
/// Coin's fields and containers share no base class; this value stands for either where an editor is told
/// what to edit. It is copied freely and owns nothing: whoever keeps one makes sure that the object outlives
/// it.
class KLV_EXTENDER_EXPORT SoTypedObject
{
public:
    /// Nothing.
    SoTypedObject() = default;
    /// Nothing.
    SoTypedObject(std::nullptr_t) {}
    /// A field; a null pointer gives nothing.
    SoTypedObject(SoField* field)
        : m_field(field)
    {
    }
    /// A node, an engine or another container; a null pointer gives nothing.
    SoTypedObject(SoFieldContainer* container)
        : m_container(container)
    {
    }

    /// True when it stands for nothing.
    bool isNull() const { return !m_field && !m_container; }

    /// The run-time type of the object, `SoType::badType()` for nothing.
    SoType getTypeId() const;

    /// The field, or null when it stands for a container or for nothing.
    SoField* toField() const { return m_field; }

    /// The container, or null when it stands for a field or for nothing.
    SoFieldContainer* toFieldContainer() const { return m_container; }

    bool operator==(const SoTypedObject&) const = default;

private:
    SoField* m_field = nullptr;
    SoFieldContainer* m_container = nullptr;
};
