#include "TextureImages.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/SbImage.h>

#include <QFile>
#include <QImageReader>

#include <cstring>

namespace {

struct Layout
{
    QImage::Format format;
    int components;
};

Layout layoutFor(const QImage& image)
{
    if (image.hasAlphaChannel())
        return {QImage::Format_RGBA8888, 4};
    if (image.isGrayscale())
        return {QImage::Format_Grayscale8, 1};
    return {QImage::Format_RGB888, 3};
}

SbBool readImage(const SbString& file, SbImage* target, void*)
{
    QImageReader reader(QFile::decodeName(file.getString()));
    reader.setAutoTransform(true);
    QImage image = reader.read();
    // Coin keeps sizes in 16 bits.
    if (image.isNull() || image.width() > INT16_MAX || image.height() > INT16_MAX)
        return FALSE;
    const Layout layout = layoutFor(image);
    image.convertTo(layout.format);
    target->setValue(SbVec2s(short(image.width()), short(image.height())), layout.components, nullptr);

    SbVec2s size;
    int components = 0;
    unsigned char* bytes = target->getValue(size, components);
    const qsizetype row = qsizetype(image.width()) * layout.components;
    // Coin's rows go from the bottom up.
    for (int y = image.height() - 1; y >= 0; --y, bytes += row)
        std::memcpy(bytes, image.constScanLine(y), std::size_t(row));
    return TRUE;
}

} // namespace

TextureImages::TextureImages()
{
    SbImage::addReadImageCB(readImage, nullptr);
}

TextureImages::~TextureImages()
{
    SbImage::removeReadImageCB(readImage, nullptr);
}
