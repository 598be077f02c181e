#pragma once

#include <QString>

class SoNode;

/// Checks a scene for what would end the process: Coin reads, draws and searches nested nodes by recursion.
class SceneNesting
{
public:
    /// True when a text file nests its nodes too deeply to be read. Compressed and binary files are not
    /// looked into.
    static bool isTooDeep(const QString& file);

    /// The first node found that is below itself, or too deep below the root; null when there is none.
    static SoNode* endless(SoNode* root);
};
