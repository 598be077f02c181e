#pragma once

#include <QList>
#include <QString>

class SoField;
class SoFieldContainer;
class SoNode;

/// Finds what a short text names in a scene: `NODE` or `NODE.FIELD`.
///
/// `NODE` is the name of a node, or a type with an optional `[n]`: the n-th node of exactly that type in
/// depth-first order, from 0, a shared node counted at each of its places. A name goes before a type. What is
/// no node of the scene may be the name of an engine, a global field or another object that Coin knows by
/// name. Names of nodes hold no dots, so the first dot begins the field.
class NodeSpecifier
{
public:
    struct Result
    {
        SoFieldContainer* container = nullptr; ///< null when nothing was found
        SoField* field = nullptr;              ///< null when none was asked for
        QList<int> path; ///< child indices from the root; empty for the root and for non-nodes
        QString error;   ///< one sentence when something was not found, else empty
    };

    /// Looks below `root`, which may be null for an empty scene.
    static Result find(SoNode* root, const QString& text);
};
