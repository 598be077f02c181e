#include "FieldEditors/KlvMFSwapRowsCommand.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoMField.h>

#include <algorithm>

KlvMFSwapRowsCommand::KlvMFSwapRowsCommand(SoMField* field, int first, int second)
    : KlvMFCommand(field, Kind::Action, tr("Move a row of %1"))
    , m_first(first)
    , m_second(second)
{
}

void KlvMFSwapRowsCommand::execute()
{
    SoMField* field = getMField();
    if (!field)
        return;
    const auto [lower, upper] = std::minmax(m_first, m_second);
    if (lower >= 0 && upper < field->getNum()) {
        swapElements(field, m_first, m_second);
        return;
    }
    const SbString first = getElementText(field, m_first);
    const SbString second = getElementText(field, m_second);
    setElementFromText(field, m_first, second);
    setElementFromText(field, m_second, first);
}

void KlvMFSwapRowsCommand::undo()
{
    execute();
}

void KlvMFSwapRowsCommand::redo()
{
    execute();
}
