#pragma once

#include "OrientedBox.h"

#include <QList>

#include <optional>

class SoFullPath;
class SoNode;
class ViewBoxAction;
class ViewStage;

/// One occurrence of a node that a view marks in its scene.
///
/// The scene may change at any time. The occurrence is found anew whenever it is asked for, and nothing in
/// the graph is referenced in between. While the way to it leads elsewhere, nothing is marked.
class SceneHighlight
{
public:
    /// The box that marks an occurrence.
    struct Mark
    {
        OrientedBox box;
        /// False for a node that shows nothing by itself: the box is that of what it may affect.
        bool isOwn;
    };

    /// Takes the child indices that lead from a root to the occurrence; those that lead nowhere mark nothing.
    void set(const SoNode* root, const QList<int>& childPath);
    void clear();
    bool isSet() const { return m_node != nullptr; }

    /// Nothing when the occurrence is gone, or when it and what it affects are not seen. There must be one
    /// that was set. Costs one measuring, and one more for each step to what it affects.
    std::optional<Mark> find(const ViewStage& stage, ViewBoxAction& action);

private:
    enum class Found
    {
        Nothing,
        Itself,
        Holder // what is traversed on behalf of a node that is not
    };

    Found append(SoFullPath& pathToRoot);

    QList<int> m_childPath;
    const void* m_node = nullptr; // compared, never followed
};
