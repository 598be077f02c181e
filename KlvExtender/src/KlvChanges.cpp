#include <KlvExtender/KlvChanges.h>

#include "FieldSnapshot.h"
#include "History.h"

#include <KlvExtender/KlvContainerRef.h>

#include <Inventor/fields/SoField.h>

#include <QHash>
#include <QSet>
#include <QTimer>

#include <utility>
#include <vector>

namespace {

/// Milliseconds without another change, after which a large field is compared with its original.
constexpr int comparisonDelay = 100;

} // namespace

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

    void forgetUnlisted();

    const Change* find(const SoField* field) const
    {
        const auto found = places.constFind(field);
        return found == places.constEnd() ? nullptr : &changes[*found];
    }

    std::vector<Change> changes; ///< in the order of the first edits
    QHash<const SoField*, std::size_t> places;
    QSet<const SoField*> uncompared; ///< large fields, listed until it is known
    QTimer comparison;
    bool announced = false;
};

void KlvChanges::Private::forgetUnlisted()
{
    std::vector<Change> kept;
    for (Change& change : changes)
        if (change.listed)
            kept.push_back(std::move(change));
    // Containers that go with their last reference find the list as it will be.
    changes.swap(kept);
    places.clear();
    for (std::size_t i = 0; i < changes.size(); ++i)
        places.insert(changes[i].field, i);
}

KlvChanges::KlvChanges()
    : d(std::make_unique<Private>())
{
    d->comparison.setSingleShot(true);
    d->comparison.setInterval(comparisonDelay);
    connect(&d->comparison, &QTimer::timeout, this, [this] {
        for (const SoField* field : std::exchange(d->uncompared, {})) {
            Private::Change& change = d->changes[d->places.value(field)];
            change.listed = !change.original->matches(*field);
            if (!change.listed)
                announce();
        }
    });
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
    d->uncompared.clear();
    d->comparison.stop();
    // Edits that were no steps have left it unclean, which clearing an empty one does not change.
    if (QUndoStack* history = History::current()->stack(); history->count() == 0)
        history->setClean();
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
    // Beside the budget of the history, which is for what it can do without, and as much again.
    const auto fits = [&original] {
        return FieldSnapshot::originalBytes() + original->bytes() <= History::current()->copyBudget();
    };
    if (original && !fits())
        d->forgetUnlisted();
    const bool isKept = original && fits();
    if (isKept)
        original->keepAsOriginal();
    d->places.insert(&field, d->changes.size());
    d->changes.push_back({KlvContainerRef(field.getContainer()), &field, isKept ? original : nullptr});
}

void KlvChanges::compare(const SoField* field)
{
    const auto found = d->places.constFind(field);
    if (found == d->places.constEnd())
        return;
    Private::Change& change = d->changes[*found];
    const bool wasListed = std::exchange(change.listed, true);
    if (change.original && FieldSnapshot::isLarge(*field)) {
        d->uncompared.insert(field);
        d->comparison.start();
    } else {
        d->uncompared.remove(field);
        change.listed = !change.original || !change.original->matches(*field);
    }
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
