#pragma once

#include "ElementRange.h"
#include "FieldSnapshot.h"
#include "HistoryStep.h"

#include <QObject>
#include <QUndoStack>

#include <memory>
#include <optional>

class KlvCommand;
class SelectedFieldCopy;
class SoFieldContainer;

/// Takes executed commands into an undo stack, joins what belongs together and keeps the copies within their
/// budget.
class History : public QObject
{
    Q_OBJECT

public:
    /// Works with the copy of the selected field, which must outlive it.
    explicit History(SelectedFieldCopy& selected);
    ~History() override;

    /// The one that exists, or null.
    static History* current() { return s_current; }

    QUndoStack* stack() { return &m_stack; }

    /// Executes and records a command made while `container` was selected.
    void push(std::unique_ptr<KlvCommand> command, SoFieldContainer* container);

    /// Begins the scope of a change to a field, of the elements of a range or, without one, of any part;
    /// false, and nothing begun, within another scope. `text` names the step, see `KlvEditScope`.
    bool beginScope(SoField& field, const std::optional<ElementRange>& range, const QString& text);
    /// Ends it and records the commands of the field that were pushed meanwhile as one step.
    void endScope();

    void setCopyBudget(qint64 bytes);
    qint64 copyBudget() const { return m_budget; }

protected:
    /// Watches the application's mouse buttons: edits made while one is held are one gesture.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Scope
    {
        KlvContainerRef container;
        SoField* field;
        std::optional<ElementRange> part; ///< what the copies are of; all of the field without one
        int num = 0;                      ///< the number of elements before
        QString text;
        FieldSnapshot::Ptr before;
        std::unique_ptr<KlvCommand> first;
        std::unique_ptr<KlvCommand> last; ///< null for one command
    };

    void record(HistoryStep::Record step);
    void keepWithinBudget();

    SelectedFieldCopy& m_selected;
    QUndoStack m_stack;
    qint64 m_budget = qint64(256) << 20;
    int m_gesture = 0;       ///< 0 while no button is held
    bool m_released = false; ///< the gesture ends as soon as the release has been delivered
    int m_lastGesture = 0;
    int m_epoch = 0;
    bool m_pushing = false;
    std::unique_ptr<Scope> m_scope;
    static inline History* s_current = nullptr;
};
