#include "Models/SceneChildren.h"

#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodekits/SoBaseKit.h>

namespace {

/// Calls `visit(field)` for every field of nodes, until it gives true. Events are messages, not children, and
/// the parts in a node kit's fields are found in its tree.
template <typename Visit>
bool visitNodeFields(const SoNode* node, Visit visit)
{
    const SoFieldData* fields = node->getFieldData();
    if (!fields || node->isOfType(SoBaseKit::getClassTypeId()))
        return false;
    for (int i = 0; i < fields->getNumFields(); ++i) {
        const SoField* field = fields->getField(node, i);
        if ((field->isOfType(SoSFNode::getClassTypeId()) || field->isOfType(SoMFNode::getClassTypeId())) &&
            field->getFieldType() != SoField::EVENTIN_FIELD &&
            field->getFieldType() != SoField::EVENTOUT_FIELD && visit(field))
            return true;
    }
    return false;
}

int nodeCount(const SoField* field)
{
    return field->isOfType(SoSFNode::getClassTypeId()) ? 1 : static_cast<const SoMFNode*>(field)->getNum();
}

SoNode* nodeIn(const SoField* field, int index)
{
    return field->isOfType(SoSFNode::getClassTypeId()) ? static_cast<const SoSFNode*>(field)->getValue()
                                                       : (*static_cast<const SoMFNode*>(field))[index];
}

} // namespace

SceneChildren::SceneChildren(const SoNode* node)
    : m_list(node->getChildren())
    , m_listed(m_list ? m_list->getLength() : 0)
{
    visitNodeFields(node, [this](const SoField* field) {
        // Where the child list is made from a field, it begins with the field's first node.
        const int count = nodeCount(field);
        const bool mirrored = m_listed > 0 && count > 0 && m_list->find(nodeIn(field, 0)) >= 0;
        for (int i = 0; !mirrored && i < count; ++i)
            if (SoNode* held = nodeIn(field, i))
                m_held.append(held);
        return false;
    });
}

SoNode* SceneChildren::operator[](int index) const
{
    return index < m_listed ? (*m_list)[index] : m_held[index - m_listed];
}

SoNode* SceneChildren::at(const SoNode* node, int index)
{
    const SoChildList* list = node->getChildren();
    if (list && index < list->getLength())
        return (*list)[index];
    const SceneChildren children(node);
    return index < children.count() ? children[index] : nullptr;
}

SoNode* SceneChildren::find(const SoNode* node, const void* child)
{
    const SceneChildren children(node);
    for (int i = 0; i < children.count(); ++i) {
        if (children[i] == child)
            return children[i];
    }
    return nullptr;
}

bool SceneChildren::arePossible(const SoNode* node)
{
    return node->getChildren() || visitNodeFields(node, [](const SoField*) { return true; });
}
