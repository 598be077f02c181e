#include "FieldSnapshot.h"

#include "SceneGraph/FieldBits.h"

#include <Inventor/fields/SoField.h>

namespace {

qint64 g_totalBytes = 0;

} // namespace

FieldSnapshot::Ptr FieldSnapshot::take(const SoField& field, qint64 limit)
{
    const qint64 bytes = qint64(fieldByteSize(field)) + qint64(sizeof(FieldSnapshot));
    if (bytes > limit || !field.getTypeId().canCreateInstance())
        return nullptr;
    std::unique_ptr<SoField> copy(static_cast<SoField*>(field.getTypeId().createInstance()));
    copyFieldValue(*copy, field);
    return Ptr(new FieldSnapshot(std::move(copy), field, bytes));
}

FieldSnapshot::FieldSnapshot(std::unique_ptr<SoField> copy, const SoField& field, qint64 bytes)
    : m_copy(std::move(copy))
    , m_default(field.isDefault())
    , m_ignored(field.isIgnored())
    , m_bytes(bytes)
{
    g_totalBytes += m_bytes;
}

FieldSnapshot::~FieldSnapshot()
{
    g_totalBytes -= m_bytes;
}

bool FieldSnapshot::matches(const SoField& field) const
{
    return m_default == bool(field.isDefault()) && m_ignored == bool(field.isIgnored()) &&
           identicalFields(*m_copy, field);
}

void FieldSnapshot::restore(SoField& field) const
{
    // The flags first: auditors that look at the field during its notification see it whole.
    field.setIgnored(m_ignored);
    if (!identicalFields(*m_copy, field))
        copyFieldValue(field, *m_copy);
    // Copying a value clears the flag.
    field.setDefault(m_default);
}

qint64 FieldSnapshot::totalBytes()
{
    return g_totalBytes;
}
