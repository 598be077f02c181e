#include "GeometryCheck.h"

#include "GeometryLists.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/VRMLnodes/SoVRMLColor.h>
#include <Inventor/VRMLnodes/SoVRMLCoordinate.h>
#include <Inventor/VRMLnodes/SoVRMLLOD.h>
#include <Inventor/VRMLnodes/SoVRMLNormal.h>
#include <Inventor/VRMLnodes/SoVRMLTextureCoordinate.h>
#include <Inventor/actions/SoSubAction.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/misc/SoState.h>
#include <Inventor/nodes/SoLOD.h>
#include <Inventor/nodes/SoLevelOfDetail.h>
#include <Inventor/nodes/SoShape.h>
#include <Inventor/nodes/SoSurroundScale.h>
#include <Inventor/nodes/SoVertexProperty.h>

#include <utility>

namespace {

/// Nodes in fields of a shape that it puts into the state before it is drawn.
struct Part
{
    SbName field;
    SoType (*type)();
};

} // namespace

SO_ACTION_SOURCE(GeometryCheck);

void GeometryCheck::initClass()
{
    if (getClassTypeId() != SoType::badType())
        return;
    SO_ACTION_INIT_CLASS(GeometryCheck, SoCallbackAction);
    SO_ACTION_ADD_METHOD(SoShape, passShape);
    SO_ACTION_ADD_METHOD(SoLOD, passLevels);
    SO_ACTION_ADD_METHOD(SoLevelOfDetail, passLevels);
    SO_ACTION_ADD_METHOD(SoVRMLLOD, passLevels);
    SO_ACTION_ADD_METHOD(SoSurroundScale, nullAction); // it would measure what is around it
}

GeometryCheck::GeometryCheck()
{
    SO_ACTION_CONSTRUCTOR(GeometryCheck);
}

GeometryCheck::~GeometryCheck() = default;

QString GeometryCheck::fault(SoNode* root)
{
    m_fault.clear();
    m_dependsOnAppearance = false;
    apply(root);
    return m_fault;
}

void GeometryCheck::passShape(SoAction* action, SoNode* node)
{
    const GeometryRules::Rule* const rule = GeometryRules::find(*node);
    if (!rule)
        return;
    auto* const self = static_cast<GeometryCheck*>(action);
    const QString fault = self->shapeFault(*node, *rule);
    if (!fault.isEmpty()) {
        //: A shape, and what is wrong with it
        self->m_fault = tr("%1 %2").arg(objectLabel(node), fault);
        self->setTerminated(TRUE);
    }
}

QString GeometryCheck::shapeFault(SoNode& shape, const GeometryRules::Rule& rule)
{
    static const Part Parts[] = {{"vertexProperty", SoVertexProperty::getClassTypeId},
                                 {"coord", SoVRMLCoordinate::getClassTypeId},
                                 {"texCoord", SoVRMLTextureCoordinate::getClassTypeId},
                                 {"normal", SoVRMLNormal::getClassTypeId},
                                 {"color", SoVRMLColor::getClassTypeId}};
    SoState* const state = getState();
    bool hasPart = false;
    QString fault;
    for (const Part& part : Parts) {
        const auto* const field = dynamic_cast<const SoSFNode*>(shape.getField(part.field));
        SoNode* const node = field ? field->getValue() : nullptr;
        if (!node)
            continue;
        if (!node->isOfType(part.type()))
            fault = tr("has %1 as %2").arg(objectLabel(node), QString::fromUtf8(part.field.getString()));
        if (!fault.isEmpty())
            break;
        if (!std::exchange(hasPart, true))
            state->push();
        node->doAction(this);
    }
    if (fault.isEmpty()) {
        GeometryLists lists(state);
        fault = rule.fault(shape, lists);
        m_dependsOnAppearance = m_dependsOnAppearance || lists.dependsOnAppearance();
    }
    if (hasPart)
        state->pop();
    return fault;
}

void GeometryCheck::passLevels(SoAction* action, SoNode* node)
{
    SoChildList* const children = node->getChildren();
    // What the first child leaves in the state is there for what comes next.
    for (int i = children->getLength() - 1; i >= 0 && !action->hasTerminated(); --i) {
        if (i > 0)
            action->getState()->push();
        children->traverse(action, i);
        if (i > 0)
            action->getState()->pop();
    }
}
