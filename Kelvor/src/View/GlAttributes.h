#pragma once

/// Keeps what is set in the current OpenGL context while it lives, for drawing that the scene's must not
/// notice: Coin knows what it has set and does not set it again.
class GlAttributes
{
public:
    GlAttributes();
    ~GlAttributes();
    GlAttributes(const GlAttributes&) = delete;
    GlAttributes& operator=(const GlAttributes&) = delete;
};
