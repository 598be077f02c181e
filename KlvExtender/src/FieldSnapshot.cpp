#include "FieldSnapshot.h"

#include "SceneGraph/FieldAccess.h"
#include "SceneGraph/FieldBits.h"
#include "SceneGraph/FieldChange.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include <Inventor/fields/SoMField.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

constexpr std::size_t largeFieldBytes = std::size_t(64) << 10;

const SoMField& elementsOf(const SoField& field)
{
    return static_cast<const SoMField&>(field);
}

/// Those of a range that a field with so many elements has.
ElementRange clipped(ElementRange range, int num)
{
    const int begin = std::clamp(range.begin, 0, num);
    return {begin, std::clamp(range.end, begin, num)};
}

} // namespace

bool FieldSnapshot::isLarge(const SoField& field)
{
    return fieldByteSize(field, largeFieldBytes) > largeFieldBytes;
}

std::shared_ptr<FieldSnapshot> FieldSnapshot::take(const SoField& field, qint64 limit)
{
    const auto bytes = qint64(fieldByteSize(field, std::size_t(limit)) + sizeof(FieldSnapshot));
    if (bytes > limit || !field.getTypeId().canCreateInstance())
        return nullptr;
    std::unique_ptr<SoField> copy(static_cast<SoField*>(field.getTypeId().createInstance()));
    copyFieldValue(*copy, field);
    FieldAccess::copyEnumTable(*copy, field);
    std::shared_ptr<FieldSnapshot> snapshot(new FieldSnapshot(std::move(copy), field));
    snapshot->addBytes(bytes);
    return snapshot;
}

FieldSnapshot::Ptr FieldSnapshot::take(const SoMField& field, ElementRange range, qint64 limit)
{
    const int num = field.getNum();
    const ElementRange part = clipped(range, num);
    const auto bytes =
        qint64(elementsByteSize(field, part.begin, part.count()) + sizeof(SoMField) + sizeof(FieldSnapshot));
    if (bytes > limit)
        return nullptr;
    auto copy = copyElements(const_cast<SoMField*>(&field), part.begin, part.count());
    if (!copy)
        return nullptr;
    std::shared_ptr<FieldSnapshot> snapshot(new FieldSnapshot(std::move(copy), field));
    snapshot->m_begin = part.begin;
    snapshot->m_num = num;
    snapshot->addBytes(bytes);
    return snapshot;
}

FieldSnapshot::Ptr FieldSnapshot::takeAlike(const SoField& field) const
{
    constexpr qint64 unlimited = std::numeric_limits<qint64>::max();
    if (isPart())
        return take(elementsOf(field), part(), unlimited);
    return take(field, unlimited);
}

FieldSnapshot::FieldSnapshot(std::unique_ptr<SoField> copy, const SoField& field)
    : m_copy(std::move(copy))
{
    takeFlags(field);
    m_counted = KlvContainerRef::countingAllOf(*m_copy);
}

FieldSnapshot::~FieldSnapshot()
{
    addBytes(-m_bytes);
}

bool FieldSnapshot::haveSameScope(const Ptr& a, const Ptr& b)
{
    const auto scope = [](const Ptr& snapshot) {
        if (!snapshot || !snapshot->isPart())
            return std::make_tuple(-1, 0, 0);
        return std::make_tuple(snapshot->m_begin, snapshot->part().end, snapshot->m_num);
    };
    return scope(a) == scope(b);
}

bool FieldSnapshot::matches(const SoField& field) const
{
    return hasSameFlags(field) && hasSameValue(field);
}

bool FieldSnapshot::hasSameFlags(const SoField& field) const
{
    return bool(m_copy->isDefault()) == bool(field.isDefault()) &&
           bool(m_copy->isIgnored()) == bool(field.isIgnored());
}

void FieldSnapshot::restore(SoField& field) const
{
    // The flags first: auditors that look at the field during its notification see it whole.
    field.setIgnored(m_copy->isIgnored());
    if (!hasSameValue(field)) {
        if (isPart())
            restoreElements(static_cast<SoMField&>(field));
        else
            copyFieldValue(field, *m_copy);
    }
    // Copying a value clears the flag.
    field.setDefault(m_copy->isDefault());
}

void FieldSnapshot::update(const SoMField& field, ElementRange changed)
{
    auto& copy = static_cast<SoMField&>(*m_copy);
    const int before = copy.getNum();
    const int now = field.getNum();
    // A change of the number moves all that follows.
    const bool moved = now != before;
    const int begin = std::clamp(changed.begin, 0, std::min(before, now));
    const ElementRange old = clipped({begin, moved ? before : changed.end}, before);
    const ElementRange part = clipped({begin, moved ? now : changed.end}, now);
    addBytes(-qint64(elementsByteSize(copy, old.begin, old.count())));
    m_counted.clear();
    deleteElements(&copy, now, before - now);
    insertElements(&copy, before, now - before);
    copyElementValues(copy, part.begin, field, part.begin, part.count());
    addBytes(qint64(elementsByteSize(copy, part.begin, part.count())));
    takeFlags(field);
    m_counted = KlvContainerRef::countingAllOf(*m_copy);
}

void FieldSnapshot::keepAsOriginal() const
{
    if (std::exchange(m_isOriginal, true))
        return;
    s_stepBytes -= m_bytes;
    s_originalBytes += m_bytes;
}

ElementRange FieldSnapshot::part() const
{
    return {m_begin, m_begin + elementsOf(*m_copy).getNum()};
}

bool FieldSnapshot::hasSameValue(const SoField& field) const
{
    if (!isPart())
        return identicalFields(*m_copy, field);
    const SoMField& elements = elementsOf(field);
    return elements.getNum() == m_num &&
           identicalElements(elementsOf(*m_copy), 0, elements, m_begin, part().count());
}

void FieldSnapshot::restoreElements(SoMField& field) const
{
    const int num = field.getNum();
    const int surplus = num - m_num;
    const int begin = std::min(m_begin, num);
    const FieldChange change(field, begin, surplus == 0 ? part().count() : m_num - begin);
    deleteElements(&field, m_begin, surplus);
    // Nothing is left to delete there when somebody else has shortened the field.
    deleteElements(&field, m_num, num);
    insertElements(&field, begin, -surplus);
    setElements(&field, m_begin, &elementsOf(*m_copy));
}

void FieldSnapshot::takeFlags(const SoField& field)
{
    m_copy->setIgnored(field.isIgnored());
    m_copy->setDefault(field.isDefault());
}

void FieldSnapshot::addBytes(qint64 bytes)
{
    m_bytes += bytes;
    (m_isOriginal ? s_originalBytes : s_stepBytes) += bytes;
}
