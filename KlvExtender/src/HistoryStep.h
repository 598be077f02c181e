#pragma once

#include "FieldSnapshot.h"

#include <KlvExtender/KlvContainerRef.h>

#include <QUndoCommand>

#include <chrono>
#include <memory>

class KlvCommand;
class SoField;

/// One step of the history: a command that has been executed, or the first and the last of several that were
/// joined, with the copies that make undoing and redoing them exact.
class HistoryStep : public QUndoCommand
{
public:
    using Clock = std::chrono::steady_clock;

    /// What was known when the command was taken.
    struct Record
    {
        std::unique_ptr<KlvCommand> command;   ///< never null
        std::unique_ptr<KlvCommand> last;      ///< the last of several; null for one
        SoField* field = nullptr;              ///< what it changed; null when that is not known
        SoFieldContainer* container = nullptr; ///< kept alive by the step; may be null
        FieldSnapshot::Ptr before;             ///< null when there is none
        FieldSnapshot::Ptr after;              ///< null when there is none
        bool needsCopies = false;              ///< nothing but the copies can undo it
        bool joins = false;                    ///< a value edit that may become one step with its neighbours
        int gesture = 0;                       ///< the mouse gesture it was made in, 0 for none
        int epoch = 0; ///< counts undos and redos: edits of different epochs never join
        QString text;  ///< what it is called, with "%1" for the field's name; empty: as the command says
    };

    explicit HistoryStep(Record record);
    ~HistoryStep() override;

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

    /// Lets the copies go; the command's own means remain. A step that has none becomes obsolete.
    void dropCopies();

private:
    enum class Direction
    {
        Undo,
        Redo
    };
    void replay(Direction direction);
    QString describe(const QString& text) const;

    // Declared first, released last: commands and copies may point into the container.
    KlvContainerRef m_container;
    SoField* m_field;
    std::unique_ptr<KlvCommand> m_first;
    std::unique_ptr<KlvCommand> m_last; ///< null when the step is a single command
    FieldSnapshot::Ptr m_before;
    FieldSnapshot::Ptr m_after;
    bool m_needsCopies;
    bool m_joins;
    int m_gesture;
    int m_epoch;
    Clock::time_point m_time;
    bool m_done = true; ///< the command has been executed when the undo stack asks for the first redo
};
