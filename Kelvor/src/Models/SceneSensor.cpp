#include "Models/SceneSensor.h"

#include "Models/SwitchedChildren.h"

#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/misc/SoNotification.h>
#include <Inventor/nodes/SoNode.h>

#include <utility>

SceneSensor::SceneSensor(std::function<void()> changed)
    : m_changed(std::move(changed))
{
}

SceneChanges SceneSensor::take()
{
    return std::exchange(m_changes, {});
}

void SceneSensor::notify(SoNotList* list)
{
    if (record(*list))
        m_changed();
}

bool SceneSensor::record(const SoNotList& list)
{
    const SoNotRec* origin = list.getFirstRecAtNode();
    const auto* node = origin ? static_cast<const SoNode*>(origin->getBase()) : nullptr;
    if (node && origin->getOperationType() >= SoNotRec::GROUP_ADDCHILD) {
        // Additions are heard of afterwards, removals before.
        const SoChildList* children = node->getChildren();
        m_changes.expandability |= !children || children->getLength() <= 1 ||
                                   origin->getOperationType() == SoNotRec::GROUP_REMOVEALLCHILDREN;
        m_changes.groups.insert(node);
        return true;
    }
    const SoField* field = list.getLastField();
    if (node && field && !field->isOfType(SoSFNode::getClassTypeId()) &&
        !field->isOfType(SoMFNode::getClassTypeId())) {
        if (field != SwitchedChildren::choiceField(node))
            return false;
        m_changes.switches.insert(node);
        return true;
    }
    // What happens below a node in a field comes as a change of that field, and a node that was touched may
    // have been changed quietly, also further down.
    m_changes.anywhere = true;
    return true;
}
