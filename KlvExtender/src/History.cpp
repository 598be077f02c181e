#include "History.h"

#include "Guarded.h"
#include "HistoryStep.h"
#include "SelectedFieldCopy.h"

#include <KlvExtender/KlvCommand.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QScopedValueRollback>

History::History(SelectedFieldCopy& selected)
    : m_selected(selected)
{
    if (auto* application = QCoreApplication::instance())
        application->installEventFilter(this);
    // Any walk through the history ends the burst of edits before it, and the next edit starts from where it
    // led.
    connect(&m_stack, &QUndoStack::indexChanged, this, [this] {
        if (!m_pushing) {
            ++m_epoch;
            m_selected.renewIfStale();
        }
    });
}

void History::push(std::unique_ptr<KlvCommand> command, SoFieldContainer* container)
{
    SoField* field = command->getField();
    const bool declared = field != nullptr;
    if (!declared)
        field = m_selected.field();

    const FieldSnapshot::Ptr before = m_selected.of(field);
    if (!guarded([&] { command->execute(); }))
        return;

    FieldSnapshot::Ptr after;
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

    HistoryStep::Record record;
    record.joins = field && command->getKind() == KlvCommand::Kind::ValueEdit;
    record.command = std::move(command);
    record.field = field;
    record.container = field ? field->getContainer() : container;
    record.before = before;
    record.after = after;
    record.gesture = m_gesture;
    record.epoch = m_epoch;
    const QScopedValueRollback<bool> pushing(m_pushing, true);
    m_stack.push(new HistoryStep(std::move(record)));
    keepWithinBudget();
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

void History::keepWithinBudget()
{
    for (int i = 0; i < m_stack.count() && FieldSnapshot::totalBytes() > m_budget; ++i)
        const_cast<HistoryStep*>(static_cast<const HistoryStep*>(m_stack.command(i)))->dropCopies();
}
