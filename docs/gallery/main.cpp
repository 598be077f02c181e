// kelvor_gallery SCENE PICTURE: paints all editors of the plug-in on one sheet, in light and in dark colours.

#include "Gallery.h"
#include "KlvDefaults.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QApplication>
#include <QPainter>

#include <cstdio>

namespace {

QPalette palette(const QColor& window, const QColor& base, const QColor& text)
{
    QPalette palette(window, window);
    palette.setColor(QPalette::Base, base);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

int fail(const QString& sentence)
{
    std::fprintf(stderr, "kelvor_gallery: %s\n", qPrintable(sentence));
    return 1;
}

int paint(SoNode* scene, const QString& file)
{
    KlvDefaults plugin;
    plugin.load();
    const Gallery gallery(plugin, scene);
    QList<QImage> sheets;
    for (const QPalette& colors :
         {palette(0xefefef, Qt::white, 0x1a1a1a), palette(0x2b2d30, 0x3c3f44, 0xdfe1e5)}) {
        QApplication::setPalette(colors);
        sheets += gallery.paint();
    }
    plugin.unload();
    if (!gallery.missing().isEmpty())
        return fail(QStringLiteral("the scene has no field for ") +
                    gallery.missing().join(QStringLiteral(", ")));
    QImage picture(sheets[0].width() + sheets[1].width(), sheets[0].height(), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.drawImage(0, 0, sheets[0]);
    painter.drawImage(sheets[0].width(), 0, sheets[1]);
    painter.end();
    return picture.save(file) ? 0 : fail(QStringLiteral("cannot write ") + file);
}

} // namespace

int main(int argc, char** argv)
{
    SoDB::init();
    SoInteraction::init();
    int result = 0;
    {
        QApplication application(argc, argv);
        QApplication::setStyle(QStringLiteral("Fusion"));
        const QStringList arguments = QApplication::arguments();
        SoInput input;
        if (arguments.size() != 3)
            return fail(QStringLiteral("give a scene and the picture to write"));
        SoSeparator* scene =
            input.openFile(arguments[1].toLocal8Bit().constData()) ? SoDB::readAll(&input) : nullptr;
        if (!scene)
            return fail(QStringLiteral("cannot read ") + arguments[1]);
        scene->ref();
        result = paint(scene, arguments[2]);
        scene->unref();
    }
    SoDB::finish();
    return result;
}
