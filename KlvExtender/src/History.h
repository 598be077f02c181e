#pragma once

#include "ElementRange.h"
#include "FieldSnapshot.h"
#include "HistoryStep.h"

#include <QObject>
#include <QUndoStack>

#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

class KlvChanges;
class KlvCommand;
class SelectedFieldCopy;
class SoFieldContainer;

/// Takes executed commands into an undo stack, joins what belongs together, keeps the copies within their
/// budget, and tells the list of changes which fields it changes.
class History : public QObject
{
    Q_OBJECT

public:
    /// Works with the copy of the selected field and the list of changes, which must outlive it.
    History(SelectedFieldCopy& selected, KlvChanges& changes);
    ~History() override;

    /// The one that exists, or null.
    static History* current() { return s_current; }

    QUndoStack* stack() { return &m_stack; }

    /// Executes and records a command made while `container` was selected.
    void push(std::unique_ptr<KlvCommand> command, SoFieldContainer* container);

    /// Begins the scope of a change to a field, of the elements of a range or, without one, of any part;
    /// false, and nothing begun, within another scope. `text` names the step, see `KlvEditScope`.
    bool beginScope(SoField& field, const std::optional<ElementRange>& range, const QString& text);
    /// Ends it and records the commands of the field that were pushed meanwhile as one step. A change without
    /// any is no step, but noted: the field is listed as changed, and the history is not clean until it is
    /// saved.
    void endScope();

    /// Makes fields what they were when copies were taken, as one step. It can be undone, however large the
    /// fields are, until it is the oldest one with copies when these exceed their budget.
    void revert(const std::vector<std::pair<SoField*, FieldSnapshot::Ptr>>& fields);

    /// To be called by a step before it changes its field.
    void aboutToReplay(SoField& field);

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
        FieldSnapshot::Ptr original; ///< of all of the field, where the list of changes has none yet
        std::unique_ptr<KlvCommand> first;
        std::unique_ptr<KlvCommand> last; ///< null for one command
    };

    /// Tells the list of changes of a field that has just been changed. `original` is a copy of all of it
    /// from before, as far as there is one.
    void noteChange(SoField& field, const FieldSnapshot::Ptr& original);
    void record(HistoryStep::Record step);
    void revert(SoField& field, const FieldSnapshot::Ptr& original);
    void walked();
    /// The newest steps may be spared.
    void keepWithinBudget(int spared = 0);

    SelectedFieldCopy& m_selected;
    KlvChanges& m_changes;
    std::unordered_set<const SoField*> m_replayed; ///< since the last walk through the history
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
