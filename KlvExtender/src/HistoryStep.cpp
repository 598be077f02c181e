#include "HistoryStep.h"

#include "History.h"

#include <KlvExtender/KlvCommand.h>
#include <KlvExtender/KlvGuarded.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>

#include <QCoreApplication>

namespace {

constexpr std::chrono::seconds joinWindow{1};

QString nameOf(const SoField* field, const SoFieldContainer* container)
{
    if (field)
        return fieldLabel(*field);
    return container ? objectKey(container) : QString();
}

} // namespace

HistoryStep::HistoryStep(Record record)
    : m_container(record.container)
    , m_field(record.field)
    , m_first(std::move(record.command))
    , m_last(std::move(record.last))
    , m_before(std::move(record.before))
    , m_after(std::move(record.after))
    , m_needsCopies(record.needsCopies)
    , m_joins(record.joins)
    , m_gesture(record.gesture)
    , m_epoch(record.epoch)
    , m_time(Clock::now())
{
    setText(describe(record.text.isEmpty() ? m_first->getText() : record.text));
}

HistoryStep::~HistoryStep() = default;

void HistoryStep::undo()
{
    replay(Direction::Undo);
}

void HistoryStep::redo()
{
    if (m_done) {
        m_done = false;
        return;
    }
    replay(Direction::Redo);
}

int HistoryStep::id() const
{
    return m_joins ? 1 : -1;
}

bool HistoryStep::mergeWith(const QUndoCommand* other)
{
    // Only steps of the history have an id, so this is one. The undo stack deletes it after a merge.
    auto* next = const_cast<HistoryStep*>(static_cast<const HistoryStep*>(other));
    const bool sameGesture = m_gesture != 0 && next->m_gesture == m_gesture;
    if (next->m_field != m_field || next->m_epoch != m_epoch ||
        (!sameGesture && next->m_time - m_time > joinWindow))
        return false;
    // The copies of a joined step must tell of the same elements.
    if (!FieldSnapshot::haveSameScope(m_before, m_after) ||
        !FieldSnapshot::haveSameScope(m_before, next->m_before) ||
        !FieldSnapshot::haveSameScope(m_before, next->m_after))
        return false;
    m_last = std::move(next->m_last ? next->m_last : next->m_first);
    m_after = std::move(next->m_after);
    m_gesture = next->m_gesture;
    m_time = next->m_time;
    // Back where it began: a step that changes nothing is none.
    setObsolete(m_before && m_field && m_before->matches(*m_field));
    return true;
}

void HistoryStep::dropCopies()
{
    m_before.reset();
    m_after.reset();
    setObsolete(m_needsCopies);
}

void HistoryStep::replay(Direction direction)
{
    const bool undoing = direction == Direction::Undo;
    const FieldSnapshot::Ptr& source = undoing ? m_after : m_before;
    const FieldSnapshot::Ptr& target = undoing ? m_before : m_after;
    KlvCommand& command = undoing || !m_last ? *m_first : *m_last;
    if (m_field)
        History::current()->aboutToReplay(*m_field);

    const bool asLeft = m_field && source && source->matches(*m_field);
    const FieldSnapshot::Ptr current = m_field && target && !asLeft ? target->takeAlike(*m_field) : nullptr;
    guarded([&] { undoing ? command.undo() : command.redo(); });
    if (target && (asLeft || (current && current->matches(*m_field))))
        target->restore(*m_field);
}

QString HistoryStep::describe(const QString& text) const
{
    const QString name = nameOf(m_field, m_container.get());
    if (!text.isEmpty())
        return text.contains(QLatin1String("%1")) ? text.arg(name) : text;
    return name.isEmpty() ? QCoreApplication::translate("KlvServices", "Edit")
                          : QCoreApplication::translate("KlvServices", "Edit %1").arg(name);
}
