#include "InspectedApplication.h"

#include "Person.h"
#include "Scene/SceneDocument.h"

#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/SoDB.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QRegularExpression>

template <class Node>
Node* InspectedApplication::node()
{
    SoNode* found = m_document->root();
    const SoChildList* children = found ? found->getChildren() : nullptr;
    while (children && children->getLength() > 0 && m_chance.pick(6)) {
        found = (*children)[m_chance.pick(children->getLength())];
        children = found->getChildren();
    }
    return found && found->isOfType(Node::getClassTypeId()) ? static_cast<Node*>(found) : nullptr;
}

SoField* InspectedApplication::field(SoFieldContainer* container)
{
    SoFieldList fields;
    if (!container || container->getFields(fields) == 0)
        return nullptr;
    SoField* found = fields[m_chance.pick(fields.getLength())];
    SoEngineOutput* output = nullptr;
    const bool isDriven = found->getConnectedEngine(output) && output->getContainer();
    return isDriven && m_chance.pick(2) ? field(output->getContainer()) : found;
}

void InspectedApplication::addNode()
{
    auto* parent = node<SoGroup>();
    SoNode* other = node();
    if (!parent || parent->getNumChildren() > 40)
        return;
    SoTypeList types;
    SoType::getAllDerivedFrom(SoNode::getClassTypeId(), types);
    const SoType type = types[m_chance.pick(types.getLength())];
    // VRML for what is said below; NURBS cannot be picked without a display.
    static const QRegularExpression unfit("VRML|Nurbs");
    if (m_chance.pick(2) && type.canCreateInstance() && !QString(type.getName().getString()).contains(unfit))
        other = static_cast<SoNode*>(type.createInstance());
    else if (other->getChildren()) // another occurrence of it might hold itself
        other = new SoSeparator;
    parent->insertChild(other, m_chance.pick(parent->getNumChildren() + 1));
}

void InspectedApplication::deleteNode()
{
    auto* parent = node<SoGroup>();
    if (parent && parent->getNumChildren() > 0)
        parent->removeChild(m_chance.pick(parent->getNumChildren()));
}

void InspectedApplication::changeField()
{
    SoField* changed = field(node());
    setFieldFromText(changed, qUtf8Printable(m_chance.pickFrom(Person::texts())));
}

void InspectedApplication::connectField()
{
    SoField* target = field(node());
    SoField* source = m_chance.pick(3) ? field(node()) : SoDB::getGlobalField("realTime");
    if (!target || !source || target->isConnected())
        return target ? target->disconnect() : void();
    // Nothing that goes round in circles, over connections or nodes, nor what Coin cannot convert or write: a
    // time beyond all years ends it where it is to become a text, and an enumeration takes over the names of
    // another, which no file holds.
    static const QRegularExpression unfit("F(Node|String|Enum|BitMask)$");
    SoFieldList targets;
    const SoType from = source->getTypeId();
    const SoType to = target->getTypeId();
    if (source != target && !source->isConnected() && target->getForwardConnections(targets) == 0 &&
        !QString(to.getName().getString()).contains(unfit) &&
        (from == to || SoDB::getConverter(from, to) != SoType::badType()))
        target->connectFrom(source);
}

template SoNode* InspectedApplication::node();
