#include <KlvExtender/KlvServices.h>

#include "History.h"
#include "SelectedFieldCopy.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvCommand.h>
#include <KlvExtender/KlvContainerRef.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QScopeGuard>

namespace {

KlvServices* g_instance = nullptr;

} // namespace

class KlvServices::Private
{
public:
    explicit Private(KlvServices* services)
        : q(services)
    {
        selected.setLimit(history.copyBudget());
    }

    void select(SoFieldContainer* newNode, SoField* newField);
    void follow(SoField* newField);
    void dropIfOrphaned();

    KlvServices* q;
    // The history goes first and the reference to the selected container last.
    KlvContainerRef node;
    KlvChanges changes;
    SelectedFieldCopy selected;
    History history{selected, changes};
    int generation =
        0; ///< counts selections: a slot that selects something else ends the announcement under way
    bool heldElsewhere =
        false; ///< somebody besides the framework has been seen to hold the selected container
    bool dropPosted = false;
};

void KlvServices::Private::select(SoFieldContainer* newNode, SoField* newField)
{
    const bool nodeChanges = newNode != node.get();
    if (!nodeChanges && newField == selected.field())
        return;
    const int own = ++generation;
    const KlvContainerRef keepNew(newNode);
    const auto announced = qScopeGuard([this] { selected.forgetLeft(); });
    if (nodeChanges) {
        if (selected.field()) {
            follow(nullptr);
            Q_EMIT q->selectedFieldChanged(nullptr);
            if (own != generation)
                return;
        }
        // Whoever shows the old container still finds it alive while it is told of the new one.
        const KlvContainerRef keepOld(std::exchange(node, KlvContainerRef(newNode)));
        heldElsewhere = newNode && KlvContainerRef::isHeldElsewhere(newNode);
        Q_EMIT q->selectedNodeChanged(newNode);
        if (own != generation)
            return;
    }
    if (newField != selected.field()) {
        follow(newField);
        Q_EMIT q->selectedFieldChanged(newField);
    }
}

void KlvServices::Private::follow(SoField* newField)
{
    selected.follow(newField, [this] {
        ++generation;
        Q_EMIT q->selectedFieldChanged(nullptr);
    });
}

void KlvServices::Private::dropIfOrphaned()
{
    if (!node.get() || dropPosted)
        return;
    if (KlvContainerRef::isHeldElsewhere(node.get())) {
        heldElsewhere = true;
        return;
    }
    if (!heldElsewhere)
        return;
    // Not from inside the event dispatcher.
    dropPosted = true;
    QMetaObject::invokeMethod(
        q,
        [this] {
            dropPosted = false;
            if (node.get() && heldElsewhere && !KlvContainerRef::isHeldElsewhere(node.get()))
                select(nullptr, nullptr);
        },
        Qt::QueuedConnection);
}

KlvServices* KlvServices::getInstance()
{
    if (!g_instance) {
        g_instance = new KlvServices;
        qAddPostRoutine([] { delete g_instance; });
    }
    return g_instance;
}

KlvServices::KlvServices()
    : d(std::make_unique<Private>(this))
{
    qRegisterMetaType<SoField*>();
    qRegisterMetaType<SoFieldContainer*>();
    // Nobody tells when a reference is given up, so it is looked at once for every turn of the event loop.
    if (auto* dispatcher = QAbstractEventDispatcher::instance())
        connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { d->dropIfOrphaned(); });
}

KlvServices::~KlvServices()
{
    g_instance = nullptr;
}

void KlvServices::setSelectedNode(SoFieldContainer* node)
{
    d->select(node, node == d->node.get() ? d->selected.field() : nullptr);
}

void KlvServices::setSelectedField(SoField* field)
{
    d->select(field ? field->getContainer() : d->node.get(), field);
}

SoFieldContainer* KlvServices::getSelectedNode() const
{
    return d->node.get();
}

SoField* KlvServices::getSelectedField() const
{
    return d->selected.field();
}

void KlvServices::announceSelection()
{
    const int own = ++d->generation;
    Q_EMIT selectedNodeChanged(d->node.get());
    if (own == d->generation)
        Q_EMIT selectedFieldChanged(d->selected.field());
}

void KlvServices::pushCommand(KlvCommand* command)
{
    if (command)
        d->history.push(std::unique_ptr<KlvCommand>(command), d->node.get());
}

QUndoStack* KlvServices::getUndoStack() const
{
    return d->history.stack();
}

KlvChanges* KlvServices::getChanges() const
{
    return &d->changes;
}

void KlvServices::setCopyBudget(qint64 bytes)
{
    d->history.setCopyBudget(bytes);
    d->selected.setLimit(d->history.copyBudget());
}

qint64 KlvServices::getCopyBudget() const
{
    return d->history.copyBudget();
}

qint64 KlvServices::getCopyBytes() const
{
    return FieldSnapshot::totalBytes();
}
