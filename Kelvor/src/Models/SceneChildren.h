#pragma once

#include <QVarLengthArray>

class SoChildList;
class SoNode;

/// The children of one node as the inspector shows them: what the scene graph traverses below it, and after
/// those the nodes that it holds in fields only (a shape's vertex property, the shaders of a program, a
/// proxy).
///
/// Reads the live node and copies nothing but the few nodes in fields: use it and drop it, it is not valid
/// beyond the next change of the node. Indices up to the length of the traversed part are those of an
/// `SoPath`.
class SceneChildren
{
public:
    explicit SceneChildren(const SoNode* node);

    int count() const { return m_listed + static_cast<int>(m_held.size()); }
    /// The child at an index below `count()`. May be null.
    SoNode* operator[](int index) const;

    /// One child; null when the index is out of range. Cheaper than an object for the traversed children.
    static SoNode* at(const SoNode* node, int index);
    /// The child at an address; null when the node has no such child. The address is compared, never
    /// followed.
    static SoNode* find(const SoNode* node, const void* child);
    /// True when a node of this kind can have children at all, even if it has none at present.
    static bool arePossible(const SoNode* node);

private:
    const SoChildList* m_list;
    int m_listed;
    QVarLengthArray<SoNode*, 4> m_held;
};
