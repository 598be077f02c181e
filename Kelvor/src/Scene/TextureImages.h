#pragma once

/// Lets textures read every image format that Qt reads, where Coin on its own would need a library of its own
/// for it.
///
/// For the program, which has the process to itself: the reader serves all of Coin. It stays in force as long
/// as the object lives.
class TextureImages
{
public:
    TextureImages();
    ~TextureImages();

    TextureImages(const TextureImages&) = delete;
    TextureImages& operator=(const TextureImages&) = delete;
};
