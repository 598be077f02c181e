#include "Models/SwitchedChildren.h"

#include <Inventor/VRMLnodes/SoVRMLSwitch.h>
#include <Inventor/nodes/SoSwitch.h>

namespace {

const SoSFInt32* choice(const SoNode* node)
{
    if (node->isOfType(SoSwitch::getClassTypeId()))
        return &static_cast<const SoSwitch*>(node)->whichChild;
    if (node->isOfType(SoVRMLSwitch::getClassTypeId()))
        return &static_cast<const SoVRMLSwitch*>(node)->whichChoice;
    return nullptr;
}

} // namespace

const SoField* SwitchedChildren::choiceField(const SoNode* node)
{
    return choice(node);
}

bool SwitchedChildren::isLeftOut(const SoNode* node, int index)
{
    const SoSFInt32* field = choice(node);
    if (!field)
        return false;
    const int chosen = field->getValue();
    return chosen == SO_SWITCH_NONE || (chosen >= 0 && chosen != index);
}
