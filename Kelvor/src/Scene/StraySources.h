#pragma once

#include <KlvExtender/KlvContainerRef.h>

#include <vector>

class SoNode;

/// Holds what nodes of a scene that was read take values from without its being in the scene. Connections
/// between fields own nothing, so Coin leaves what it reads for them to nobody.
class StraySources
{
public:
    StraySources() = default;
    /// Of the scene as it is now; to be destroyed after it.
    explicit StraySources(SoNode& root);

private:
    std::vector<KlvContainerRef> m_held;
};
