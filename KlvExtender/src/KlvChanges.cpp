#include <KlvExtender/KlvChanges.h>

#include "FieldSnapshot.h"
#include "History.h"

#include <KlvExtender/KlvContainerRef.h>

#include <Inventor/fields/SoField.h>

#include <QHash>
#include <QSet>

#include <utility>
#include <vector>

class KlvChanges::Private
{
public:
    struct Change
    {
        KlvContainerRef container;
        SoField* field;
        FieldSnapshot::Ptr original; ///< null when it was too large or nobody had a copy in time
        bool listed = false;
    };

    const Change* find(const SoField* field) const
    {
        const auto found = places.constFind(field);
        return found == places.constEnd() ? nullptr : &changes[*found];
    }

    std::vector<Change> changes; ///< in the order of the first edits
    QHash<const SoField*, std::size_t> places;
    bool announced = false;
};

KlvChanges::KlvChanges()
    : d(std::make_unique<Private>())
{
}

KlvChanges::~KlvChanges() = default;

QList<SoField*> KlvChanges::getFields() const
{
    QList<SoField*> fields;
    for (const Private::Change& change : d->changes)
        if (change.listed)
            fields.append(change.field);
    return fields;
}

bool KlvChanges::isChanged(const SoField* field) const
{
    const Private::Change* change = d->find(field);
    return change && change->listed;
}

SoField* KlvChanges::getOriginal(const SoField* field) const
{
    const Private::Change* change = d->find(field);
    return change && change->listed && change->original ? &change->original->value() : nullptr;
}

void KlvChanges::revert(const QList<SoField*>& fields)
{
    std::vector<std::pair<SoField*, FieldSnapshot::Ptr>> reverted;
    std::vector<KlvContainerRef> kept; // whatever the application does when it hears of it
    QSet<const SoField*> seen;
    for (SoField* field : fields) {
        if (getOriginal(field) && !seen.contains(field)) {
            seen.insert(field);
            kept.emplace_back(field->getContainer());
            reverted.emplace_back(field, d->find(field)->original);
        }
    }
    if (!reverted.empty())
        History::current()->revert(reverted);
}

void KlvChanges::restart()
{
    // Containers that go with their last reference find the list empty already.
    const auto changes = std::exchange(d->changes, {});
    d->places.clear();
    announce();
}

bool KlvChanges::needsOriginal(const SoField& field) const
{
    return field.getContainer() && !d->find(&field);
}

void KlvChanges::keepOriginal(SoField& field, const FieldSnapshot::Ptr& original)
{
    if (!needsOriginal(field))
        return;
    // Bounded field by field: the budget of the history is for what it can do without.
    if (original)
        original->exempt();
    d->places.insert(&field, d->changes.size());
    d->changes.push_back({KlvContainerRef(field.getContainer()), &field, original});
}

void KlvChanges::compare(const SoField* field)
{
    const auto found = d->places.constFind(field);
    if (found == d->places.constEnd())
        return;
    Private::Change& change = d->changes[*found];
    const bool wasListed = std::exchange(change.listed, true);
    change.listed = !change.original || !change.original->matches(*change.field);
    if (wasListed || change.listed)
        announce();
}

void KlvChanges::announce()
{
    if (std::exchange(d->announced, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            d->announced = false;
            Q_EMIT changed();
        },
        Qt::QueuedConnection);
}
