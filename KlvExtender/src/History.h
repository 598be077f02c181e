#pragma once

#include "FieldSnapshot.h"

#include <QObject>
#include <QUndoStack>

#include <memory>

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

    QUndoStack* stack() { return &m_stack; }

    /// Executes and records a command made while `container` was selected.
    void push(std::unique_ptr<KlvCommand> command, SoFieldContainer* container);

    void setCopyBudget(qint64 bytes);
    qint64 copyBudget() const { return m_budget; }

protected:
    /// Watches the application's mouse buttons: edits made while one is held are one gesture.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keepWithinBudget();

    SelectedFieldCopy& m_selected;
    QUndoStack m_stack;
    qint64 m_budget = qint64(256) << 20;
    int m_gesture = 0;       ///< 0 while no button is held
    bool m_released = false; ///< the gesture ends as soon as the release has been delivered
    int m_lastGesture = 0;
    int m_epoch = 0;
    bool m_pushing = false;
};
