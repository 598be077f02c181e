#pragma once

#include "Models/SceneWalk.h"

#include <functional>
#include <optional>

/// Depth-first search below a node for an occurrence, with a bound on the work.
class SceneSearch
{
public:
    using Visits = SceneWalk::Visits;

    SceneSearch(Visits visits, qsizetype limit)
        : m_visits(visits)
        , m_limit(limit)
    {
    }

    /// The child indices that lead from `root` to the first occurrence for which `wanted` gives true; empty
    /// for the root itself, no value when there is none among the first `limit` visits. Cycles are not
    /// followed.
    std::optional<QList<int>> find(SoNode* root, const std::function<bool(SoNode*)>& wanted);

    /// The child indices that lead from `root` to an occurrence of a node: one that is near another
    /// occurrence, if there is one among the children of the nodes on its `way` from the root, else the first
    /// one. The way may lead nowhere. No value as for `find()`.
    std::optional<QList<int>> findNear(SoNode* root, const SoNode* wanted, const QList<int>& way);

    /// True when the last search ended at its limit.
    bool isExhausted() const { return m_exhausted; }

private:
    Visits m_visits;
    qsizetype m_limit;
    bool m_exhausted = false;
};
