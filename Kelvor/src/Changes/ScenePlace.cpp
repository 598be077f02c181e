#include "Changes/ScenePlace.h"

#include "Models/SceneChildren.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

namespace {

/// An expression for a node that another one, itself an expression, holds in one of its fields.
QString heldExpression(const QString& holder, const SoNode* node, const SoNode* held)
{
    SoFieldList fields;
    node->getAllFields(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
        SbName name;
        node->getFieldName(fields[i], name);
        const QString field =
            QStringLiteral("%1->getField(\"%2\")").arg(holder, QString::fromUtf8(name.getString()));
        if (fields[i]->isOfType(SoSFNode::getClassTypeId()) &&
            static_cast<SoSFNode*>(fields[i])->getValue() == held)
            return QStringLiteral("static_cast<SoSFNode*>(%1)->getValue()").arg(field);
        if (!fields[i]->isOfType(SoMFNode::getClassTypeId()))
            continue;
        const int index = static_cast<SoMFNode*>(fields[i])->find(const_cast<SoNode*>(held));
        if (index >= 0)
            return QStringLiteral("(*static_cast<SoMFNode*>(%1))[%2]").arg(field, QString::number(index));
    }
    return QString();
}

} // namespace

ScenePlace::ScenePlace(const SoFieldContainer* container)
    : m_label(objectLabel(container))
{
}

void ScenePlace::setFound(SoNode* root, const QList<int>& indices)
{
    m_indices = indices;
    const SoNode* node = root;
    QStringList labels{objectLabel(root)};
    for (const int index : indices) {
        node = SceneChildren::at(node, index);
        labels += objectLabel(node);
    }
    m_label = labels.join(QStringLiteral(" › "));
}

bool ScenePlace::isValid(SoNode* root, const SoFieldContainer* container) const
{
    if (!m_indices)
        return !m_gone;
    const SoNode* node = root;
    for (const int index : *m_indices)
        node = node ? SceneChildren::at(node, index) : nullptr;
    return node == container;
}

QString ScenePlace::expression(SoNode* root) const
{
    if (!m_indices)
        return QString();
    QString expression = QStringLiteral("root");
    SoNode* node = root;
    for (const int index : *m_indices) {
        SoNode* child = SceneChildren::at(node, index);
        const SoChildList* children = node->getChildren();
        expression = children && index < children->getLength()
                         ? QStringLiteral("(*%1->getChildren())[%2]").arg(expression, QString::number(index))
                         : heldExpression(expression, node, child);
        node = child;
    }
    return expression;
}
