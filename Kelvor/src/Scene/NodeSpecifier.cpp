#include "Scene/NodeSpecifier.h"

#include "Models/SceneSearch.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/misc/SoProtoInstance.h>
#include <Inventor/nodes/SoNode.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

namespace {

/// More occurrences than a scene that can be drawn has. Shared groups within shared groups multiply beyond
/// any number.
constexpr qsizetype searchLimit = 20'000'000;

QString tr(const char* text)
{
    return QCoreApplication::translate("NodeSpecifier", text);
}

SbName toName(const QString& text)
{
    return SbName(text.toUtf8().constData());
}

/// Looks for the first node for which `wanted` gives true, and takes it into the result.
template <typename Wanted>
bool search(SoNode* root, SceneSearch& search, Wanted wanted, NodeSpecifier::Result& result)
{
    const auto path = search.find(root, [&](SoNode* node) {
        if (!wanted(node))
            return false;
        result.container = node;
        return true;
    });
    result.path = path.value_or(QList<int>());
    return path.has_value();
}

void findContainer(SoNode* root, const QString& text, NodeSpecifier::Result& result)
{
    const SbName name = toName(text);
    SceneSearch named(SceneSearch::Visits::EachNode, searchLimit);
    if (search(
            root, named, [&](const SoNode* node) { return node->getName() == name; }, result))
        return;

    static const QRegularExpression indexed(QStringLiteral("^(.+)\\[(\\d{1,9})\\]$"));
    const QRegularExpressionMatch match = indexed.match(text);
    const QString typeText = match.hasMatch() ? match.captured(1) : text;
    const SbName type = toName(typeText);
    const SbName shortType = toName(typeText.startsWith(QLatin1String("So")) ? typeText.mid(2) : typeText);
    const int number = match.captured(2).toInt();
    int passed = 0;
    const auto isOfType = [&](const SoNode* node) {
        const SbName its = objectType(node);
        return its == type || its == shortType;
    };
    // Occurrences may be many more than nodes; they are only counted when there is something to count.
    SceneSearch existing(SceneSearch::Visits::EachNode, searchLimit);
    SceneSearch typed(SceneSearch::Visits::EachOccurrence, searchLimit);
    const auto isWanted = [&](const SoNode* node) { return isOfType(node) && passed++ == number; };
    NodeSpecifier::Result any;
    if (search(root, existing, isOfType, any) && search(root, typed, isWanted, result))
        return;

    auto* other =
        static_cast<SoFieldContainer*>(SoBase::getNamedBase(name, SoFieldContainer::getClassTypeId()));
    // A prototype's instance is a node, but what stands in the graph is what it was expanded to.
    if (other &&
        (!other->isOfType(SoNode::getClassTypeId()) || other->isOfType(SoProtoInstance::getClassTypeId())))
        result.container = other;
    else if (typed.isExhausted())
        result.error = tr("\"%1\" was not found among the first %2 nodes.").arg(text).arg(searchLimit);
    else if (passed > 0)
        result.error =
            passed == 1 ? tr("There is no \"%1\": the scene has one %2, which is %2[0].").arg(text, typeText)
                        : tr("There is no \"%1\": the scene has %3 nodes of type %2, counted from 0.")
                              .arg(text, typeText)
                              .arg(passed);
    else
        result.error = tr("There is no node called \"%1\" in the scene, and none of that type.").arg(text);
}

void findField(const QString& text, NodeSpecifier::Result& result)
{
    SoFieldList fields;
    result.container->getAllFields(fields);
    const SbName wanted = toName(text);
    QStringList names;
    for (int i = 0; i < fields.getLength(); ++i) {
        SbName name;
        result.container->getFieldName(fields[i], name);
        if (name == wanted) {
            result.field = fields[i];
            return;
        }
        names += QString::fromUtf8(name.getString());
    }
    const QString type = QString::fromUtf8(objectType(result.container).getString());
    result.error =
        names.isEmpty()
            ? tr("%1 has no field \"%2\"; it has none at all.").arg(type, text)
            : tr("%1 has no field \"%2\"; it has: %3.").arg(type, text, names.join(QLatin1String(", ")));
    result.container = nullptr;
    result.path.clear();
}

} // namespace

NodeSpecifier::Result NodeSpecifier::find(SoNode* root, const QString& text)
{
    const qsizetype dot = text.indexOf(QLatin1Char('.'));
    const QString nodeText = text.left(dot);
    Result result;
    if (nodeText.isEmpty())
        result.error = tr("\"%1\" names no node.").arg(text);
    else
        findContainer(root, nodeText, result);
    if (result.container && dot >= 0)
        findField(text.mid(dot + 1), result);
    return result;
}
