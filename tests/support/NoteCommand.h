#pragma once

#include <KlvExtender/KlvCommand.h>
#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>

#include <functional>

/// Notes that a field has been changed, and leaves undoing to the history.
class NoteCommand : public KlvCommand
{
public:
    explicit NoteCommand(SoField* field = nullptr)
        : KlvCommand(field, Kind::Action)
    {
    }
    void execute() override {}
    void undo() override {}
    void redo() override {}

    static void push(SoField* field) { KlvServices::getInstance()->pushCommand(new NoteCommand(field)); }
};

/// A change of a field, or of some elements of a list, as one step of the history.
template <class Field, class... Range>
void edit(Field* field, const std::function<void()>& change, Range... range)
{
    const KlvEditScope scope(field, range...);
    change();
    NoteCommand::push(field);
}
