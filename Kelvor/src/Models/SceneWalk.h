#pragma once

#include "Models/SceneChildren.h"

#include <KlvExtender/KlvContainerRef.h>

#include <QList>

#include <unordered_set>
#include <vector>

class SoNode;

/// Walks the occurrences of nodes below a root in depth-first order, one at a time. Cycles are not followed.
///
/// The graph must not change between two steps, unless the walk was paused: then it may change in any way,
/// and the walk goes on behind the place where it stopped, as far as that is still there. A paused walk
/// references the nodes between the root and its place, so that they outlive what the application does.
class SceneWalk
{
public:
    /// How often a node that occurs in several places is met.
    enum class Visits
    {
        EachOccurrence,
        EachNode ///< what is below a shared node is met once only, so the walk is linear
    };

    /// A null root has no occurrences. The caller keeps the root alive until the first step.
    SceneWalk(SoNode* root, Visits visits);

    /// The next occurrence, the root first; null when there are no more.
    SoNode* next();
    /// The child indices that lead from the root to the occurrence that `next()` gave last. Not valid after
    /// a pause.
    QList<int> path() const;
    /// How far the walk has come, from 0 to 1, where each child of a node counts for the same share of it.
    double progress() const;

    /// Before the graph may change, and after it has changed.
    void pause();
    void resume();

private:
    struct Level
    {
        SoNode* node;
        SceneChildren children;
        int next = 0;              // the child that comes next
        const SoNode* met{};       // the one before it; compared, never followed
        KlvContainerRef reference; // from the first pause on
    };

    void enter();

    Visits m_visits;
    SoNode* m_root;              // until it was met
    SoNode* m_entrance{};        // met, but not yet entered
    std::vector<Level> m_levels; // from the root down
    // The nodes not to enter (again): those on the way, or with one visit a node all that were entered.
    std::unordered_set<const SoNode*> m_closed;
};
