#pragma once

#include "ElementRange.h"

#include <KlvExtender/KlvContainerRef.h>

#include <QtGlobal>

#include <memory>
#include <vector>

class SoField;
class SoMField;

/// A typed copy of a field: its value, its default flag and its ignored flag at one moment; shared between
/// the steps of the history that lie on either side of the moment, and immutable from then on.
///
/// Of a large multi-value field it may be a copy of some neighbouring elements only, with the number of all
/// elements: it then says nothing of the others but how many there are.
class FieldSnapshot
{
public:
    using Ptr = std::shared_ptr<const FieldSnapshot>;

    /// True for fields that are so large that copies of parts of them are worth while. Costs the same for
    /// fields of every size.
    static bool isLarge(const SoField& field);

    /// A copy of the field as it is now; null when it takes more than `limit` bytes or the field's type
    /// cannot be instantiated.
    static std::shared_ptr<FieldSnapshot> take(const SoField& field, qint64 limit);
    /// A copy of those elements of a range that exist; null likewise.
    static Ptr take(const SoMField& field, ElementRange range, qint64 limit);
    /// A copy, however large, of the part of the field that this is a copy of.
    Ptr takeAlike(const SoField& field) const;

    ~FieldSnapshot();

    FieldSnapshot(const FieldSnapshot&) = delete;
    FieldSnapshot& operator=(const FieldSnapshot&) = delete;

    /// True for copies of the whole field, or null, and for copies of the same elements of as many.
    static bool haveSameScope(const Ptr& a, const Ptr& b);

    /// True when the field is now as it was then, value (bit for bit) and flags; of a part, that part and the
    /// number of elements.
    bool matches(const SoField& field) const;
    /// True when the field's default and ignored flags are what they were then.
    bool hasSameFlags(const SoField& field) const;

    /// Makes the field what it was then and notifies at most once. What is so already is not touched. Of a
    /// part: elements are deleted or inserted at the beginning of the part to make the number what it was.
    void restore(SoField& field) const;

    /// Brings a copy of a whole field up to date that nobody shares, after changes to no other elements than
    /// those in `changed`, which the change of their number, if any, has moved.
    void update(const SoMField& field, ElementRange changed);
    /// The value as it was, in a field without a container that has the flags and the names of an enumeration
    /// too.
    SoField& value() const { return *m_copy; }
    /// Bytes that this copy takes.
    qint64 bytes() const { return m_bytes; }
    /// Counts this copy among the originals from now on: it is kept for another purpose than the steps that
    /// may share it.
    void keepAsOriginal() const;
    /// Bytes that all copies of the process take, but for the originals.
    static qint64 totalBytes() { return s_stepBytes; }
    /// Bytes that the originals take.
    static qint64 originalBytes() { return s_originalBytes; }

private:
    FieldSnapshot(std::unique_ptr<SoField> copy, const SoField& field);

    bool isPart() const { return m_begin >= 0; }
    ElementRange part() const;
    bool hasSameValue(const SoField& field) const;
    void restoreElements(SoMField& field) const;
    void takeFlags(const SoField& field);
    void addBytes(qint64 bytes);

    std::unique_ptr<SoField> m_copy;
    std::vector<KlvContainerRef> m_counted; ///< the nodes and engines that the copy refers to
    int m_begin = -1;                       ///< of a part: its first element
    int m_num = 0;                          ///< of a part: the number of all elements
    qint64 m_bytes = 0;
    mutable bool m_isOriginal = false;
    static inline qint64 s_stepBytes = 0;
    static inline qint64 s_originalBytes = 0;
};
