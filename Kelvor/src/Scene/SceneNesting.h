#pragma once

class SoNode;

/// Checks a scene for what would end the process: Coin draws and searches nested nodes by recursion.
class SceneNesting
{
public:
    /// The first node found that is below itself, or too deep below the root; null when there is none.
    static SoNode* endless(SoNode* root);
};
