#pragma once

class SoField;
class SoNode;

/// Nodes that choose among their children.
class SwitchedChildren
{
public:
    /// The field that holds the choice; null when the node does not choose.
    static const SoField* choiceField(const SoNode* node);
    /// True when the node leaves the child at this index out of traversal.
    static bool isLeftOut(const SoNode* node, int index);
};
