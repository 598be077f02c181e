#pragma once

#include <QtGlobal>

#include <memory>

class SoField;

/// A typed copy of a field: its value, its default flag and its ignored flag at one moment. Immutable; shared
/// between the steps of the history that lie on either side of the moment.
class FieldSnapshot
{
public:
    using Ptr = std::shared_ptr<const FieldSnapshot>;

    /// A copy of the field as it is now; null when its value takes more than `limit` bytes or its type cannot
    /// be instantiated.
    static Ptr take(const SoField& field, qint64 limit);

    ~FieldSnapshot();

    FieldSnapshot(const FieldSnapshot&) = delete;
    FieldSnapshot& operator=(const FieldSnapshot&) = delete;

    /// True when the field is now as it was then, value (bit for bit) and flags.
    bool matches(const SoField& field) const;

    /// Makes the field what it was then. A field that is so already is not touched.
    void restore(SoField& field) const;

    /// Bytes that all copies of the process take.
    static qint64 totalBytes();

private:
    FieldSnapshot(std::unique_ptr<SoField> copy, const SoField& field, qint64 bytes);

    std::unique_ptr<SoField> m_copy;
    bool m_default;
    bool m_ignored;
    qint64 m_bytes;
};
