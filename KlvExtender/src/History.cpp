#include "History.h"

#include "SelectedFieldCopy.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvCommand.h>
#include <KlvExtender/KlvGuarded.h>

#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoMField.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

namespace {

/// Leaves everything to the copies of its step.
class RevertCommand : public KlvCommand
{
public:
    explicit RevertCommand(SoField& field)
        : KlvCommand(&field, Kind::Action, QCoreApplication::translate("KlvServices", "Revert %1"))
    {
    }

    void execute() override {}
    void undo() override {}
    void redo() override {}
};

/// Lets go of the copies of a command, or of all commands of a macro.
void dropCopies(QUndoCommand* command)
{
    // Plug-ins may have pushed commands of their own.
    if (auto* step = dynamic_cast<HistoryStep*>(command))
        step->dropCopies();
    int obsolete = 0;
    for (int i = 0; i < command->childCount(); ++i) {
        auto* child = const_cast<QUndoCommand*>(command->child(i));
        dropCopies(child);
        obsolete += child->isObsolete() ? 1 : 0;
    }
    if (obsolete > 0 && obsolete == command->childCount())
        command->setObsolete(true);
}

} // namespace

History::History(SelectedFieldCopy& selected, KlvChanges& changes)
    : m_selected(selected)
    , m_changes(changes)
{
    s_current = this;
    if (auto* application = QCoreApplication::instance())
        application->installEventFilter(this);
    // Any walk through the history ends the burst of edits before it, and the next edit starts from where it
    // led.
    connect(&m_stack, &QUndoStack::indexChanged, this, [this] {
        if (!m_pushing)
            walked();
    });
}

History::~History()
{
    s_current = nullptr;
}

void History::walked()
{
    ++m_epoch;
    m_selected.settle();
    for (const SoField* field : std::exchange(m_replayed, {}))
        m_changes.compare(field);
}

void History::push(std::unique_ptr<KlvCommand> command, SoFieldContainer* container)
{
    SoField* field = command->getField();
    if (field && m_scope && m_scope->field == field) {
        if (guarded([&] { command->execute(); }))
            (m_scope->first ? m_scope->last : m_scope->first) = std::move(command);
        return;
    }
    const bool declared = field != nullptr;
    if (!declared)
        field = m_selected.field();

    FieldSnapshot::Ptr before = m_selected.of(field);
    // Of a field that is not selected there is no copy from before its editor wrote, if it has. Only when the
    // command itself changes the field is it known what that was before.
    const FieldSnapshot::Ptr entry =
        field && !m_selected.knows(field) ? FieldSnapshot::take(*field, m_budget) : nullptr;
    if (!guarded([&] { command->execute(); }))
        return;
    if (entry && !entry->matches(*field))
        before = entry;

    std::shared_ptr<FieldSnapshot> after;
    const bool unchanged = field && before && before->matches(*field);
    if (unchanged && declared)
        return;
    if (!declared && (unchanged || !before)) {
        // It changed something, but not the selected field as far as can be told.
        field = nullptr;
    } else if (field) {
        after = FieldSnapshot::take(*field, m_budget);
        m_selected.set(field, after);
    }

    HistoryStep::Record step;
    step.joins = field && command->getKind() == KlvCommand::Kind::ValueEdit;
    step.command = std::move(command);
    step.field = field;
    step.container = field ? field->getContainer() : container;
    step.before = before;
    step.after = after;
    if (field)
        noteChange(*field, before);
    record(std::move(step));
    keepWithinBudget();
}

bool History::beginScope(SoField& field, const std::optional<ElementRange>& range, const QString& text)
{
    if (m_scope)
        return false;
    auto scope = std::make_unique<Scope>();
    // A container that nobody has referenced yet would be deleted with the scope's reference.
    if (field.getContainer() && field.getContainer()->getRefCount() > 0)
        scope->container = KlvContainerRef(field.getContainer());
    scope->field = &field;
    scope->text = text;
    if (range && FieldSnapshot::isLarge(field)) {
        scope->num = static_cast<SoMField&>(field).getNum();
        const int begin = std::clamp(range->begin, 0, scope->num);
        scope->part = ElementRange{begin, std::clamp(range->end, begin, scope->num)};
        scope->before = FieldSnapshot::take(static_cast<SoMField&>(field), *scope->part, m_budget);
        if (m_changes.needsOriginal(field))
            scope->original = FieldSnapshot::take(field, m_budget);
    } else {
        const FieldSnapshot::Ptr selected = m_selected.of(&field);
        scope->before =
            selected && selected->matches(field) ? selected : FieldSnapshot::take(field, m_budget);
    }
    m_scope = std::move(scope);
    return true;
}

void History::endScope()
{
    const std::unique_ptr<Scope> scope = std::move(m_scope);
    if (!scope || (scope->before && scope->before->matches(*scope->field)))
        return;
    const FieldSnapshot::Ptr& original = scope->part ? scope->original : scope->before;
    if (!scope->first) {
        // There is nothing to undo, but something to save.
        m_selected.settle();
        noteChange(*scope->field, original);
        m_stack.resetClean();
        return;
    }

    FieldSnapshot::Ptr after;
    if (scope->part) {
        // What was announced and what has been added there.
        auto& elements = static_cast<SoMField&>(*scope->field);
        const int end = scope->part->end + elements.getNum() - scope->num;
        after = FieldSnapshot::take(elements, {scope->part->begin, end}, m_budget);
        m_selected.settle();
    } else {
        const auto whole = FieldSnapshot::take(*scope->field, m_budget);
        m_selected.set(scope->field, whole);
        after = whole;
    }
    HistoryStep::Record step;
    step.joins = scope->text.isEmpty() && scope->first->getKind() == KlvCommand::Kind::ValueEdit;
    step.command = std::move(scope->first);
    step.last = std::move(scope->last);
    step.field = scope->field;
    step.container = scope->field->getContainer();
    step.before = scope->before;
    step.after = after;
    step.text = scope->text;
    noteChange(*scope->field, original);
    record(std::move(step));
    keepWithinBudget();
}

void History::noteChange(SoField& field, const FieldSnapshot::Ptr& original)
{
    m_changes.keepOriginal(field, original);
    m_changes.compare(&field);
}

void History::record(HistoryStep::Record step)
{
    step.gesture = m_gesture;
    step.epoch = m_epoch;
    const QScopedValueRollback<bool> pushing(m_pushing, true);
    m_stack.push(new HistoryStep(std::move(step)));
}

void History::revert(const std::vector<std::pair<SoField*, FieldSnapshot::Ptr>>& fields)
{
    const QScopedValueRollback<bool> pushing(m_pushing, true);
    const bool several = fields.size() > 1;
    if (several)
        m_stack.beginMacro(QCoreApplication::translate("KlvServices", "Revert %1 fields").arg(fields.size()));
    for (const auto& [field, original] : fields)
        revert(*field, original);
    if (several)
        m_stack.endMacro();
    keepWithinBudget(1);
}

void History::revert(SoField& field, const FieldSnapshot::Ptr& original)
{
    const FieldSnapshot::Ptr selected = m_selected.of(&field);
    const FieldSnapshot::Ptr before = selected && selected->matches(field)
                                          ? selected
                                          : FieldSnapshot::take(field, std::numeric_limits<qint64>::max());
    original->restore(field);
    m_selected.settle();
    HistoryStep::Record step;
    step.command = std::make_unique<RevertCommand>(field);
    step.needsCopies = true;
    step.field = &field;
    step.container = field.getContainer();
    step.before = before;
    step.after = original;
    m_changes.compare(&field);
    record(std::move(step));
}

void History::aboutToReplay(SoField& field)
{
    if (m_changes.needsOriginal(field))
        m_changes.keepOriginal(field, FieldSnapshot::take(field, m_budget));
    m_replayed.insert(&field);
}

void History::setCopyBudget(qint64 bytes)
{
    m_budget = qMax<qint64>(bytes, 0);
    keepWithinBudget();
}

bool History::eventFilter(QObject* watched, QEvent* event)
{
    // One press arrives several times: at the window, at the widget, at the parents it propagates to.
    if (event->type() == QEvent::MouseButtonPress && (m_gesture == 0 || m_released)) {
        m_gesture = ++m_lastGesture;
        m_released = false;
    } else if (event->type() == QEvent::MouseButtonRelease && m_gesture != 0 &&
               static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton) {
        // The release itself still belongs to the gesture: it is delivered after this filter.
        m_released = true;
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (m_released)
                    m_gesture = 0;
            },
            Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void History::keepWithinBudget(int spared)
{
    for (int i = 0; i < m_stack.count() - spared && FieldSnapshot::totalBytes() > m_budget; ++i)
        dropCopies(const_cast<QUndoCommand*>(m_stack.command(i)));
}
