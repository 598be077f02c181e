#include "SceneHighlight.h"

#include "Models/SceneChildren.h"
#include "Models/SwitchedChildren.h"
#include "ViewBoxAction.h"
#include "ViewStage.h"

#include <Inventor/SoFullPath.h>
#include <Inventor/VRMLnodes/SoVRMLParent.h>
#include <Inventor/VRMLnodes/SoVRMLShape.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoShape.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

const SoNode* childAt(const SoNode* node, int index)
{
    return index < 0 ? nullptr : SceneChildren::at(node, index);
}

/// Whether a node affects nothing that is not below it.
bool keepsToItself(const SoNode* node)
{
    const SoType kinds[] = {SoSeparator::getClassTypeId(), SoShape::getClassTypeId(),
                            SoVRMLParent::getClassTypeId(), SoVRMLShape::getClassTypeId()};
    return std::any_of(std::begin(kinds), std::end(kinds),
                       [node](SoType kind) { return node->isOfType(kind); });
}

} // namespace

void SceneHighlight::set(const SoNode* root, const QList<int>& childPath)
{
    const SoNode* node = root;
    for (int i = 0; node && i < childPath.size(); ++i)
        node = childAt(node, childPath[i]);
    m_node = node;
    m_childPath = childPath;
}

void SceneHighlight::clear()
{
    m_node = nullptr;
}

std::optional<SceneHighlight::Mark> SceneHighlight::find(const ViewStage& stage, ViewBoxAction& action)
{
    auto* const path = static_cast<SoFullPath*>(stage.newPathToRoot());
    path->ref();
    const int shortest = path->getLength();
    std::optional<Mark> mark;
    const Found found = append(*path);
    bool isOwn = found == Found::Itself;
    for (bool more = found != Found::Nothing; more && !mark; isOwn = false) {
        if (const std::optional<OrientedBox> box = action.measure(*path))
            mark = Mark{*box, isOwn};
        more = path->getLength() > shortest && !keepsToItself(path->getTail());
        if (more && !mark)
            path->truncate(path->getLength() - 1);
    }
    path->unref();
    return mark;
}

/// Lengthens the path to the root by what is traversed on the way to the occurrence.
SceneHighlight::Found SceneHighlight::append(SoFullPath& path)
{
    const SoNode* node = path.getTail();
    bool isTraversed = true;
    bool isLeftOut = false;
    for (const int index : std::as_const(m_childPath)) {
        const SoNode* const child = childAt(node, index);
        if (!child)
            return Found::Nothing;
        const SoChildList* const traversed = node->getChildren();
        isTraversed = isTraversed && traversed && index < traversed->getLength();
        isLeftOut = isLeftOut || (isTraversed && SwitchedChildren::isLeftOut(node, index));
        if (isTraversed)
            path.append(index);
        node = child;
    }
    if (node != m_node || isLeftOut)
        return Found::Nothing;
    return isTraversed ? Found::Itself : Found::Holder;
}
