// first_picture WAY FILE: shows a scene in one of some ways and ends at once when its first picture is there.
// The benchmark of the start measures how long that takes.

#include "NaiveInspector.h"

#include "Scene/SceneDocument.h"
#include "Scene/SensorPump.h"
#include "View/SceneView.h"
#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>

#include <QApplication>
#include <QSplitter>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

void endWithFirstPicture(const SceneView* view)
{
    QObject::connect(view, &SceneView::firstFrameDrawn, [view] { std::_Exit(view->canDraw() ? 0 : 1); });
}

int showInspector(const QString& file)
{
    const SensorPump pump;
    MainWindow window(MainWindow::Layout::Fixed);
    window.plugins()->load(QStringLiteral(KELVOR_DEFAULT_PLUGIN), nullptr);
    window.plugins()->activateProfile();
    if (!window.document()->open(file, nullptr))
        return 1;
    endWithFirstPicture(window.view());
    window.show();
    return QApplication::exec();
}

int showItems(const QString& file)
{
    const SensorPump pump;
    SceneDocument document;
    if (!document.open(file, nullptr))
        return 1;
    QSplitter window;
    auto* tree = new QTreeWidget(&window);
    tree->setColumnCount(2);
    auto* item = new QTreeWidgetItem;
    NaiveInspector::fillItem(item, document.root());
    tree->addTopLevelItem(item);
    tree->expandItem(item);
    auto* view = new SceneView(&window);
    view->setRoot(document.root());
    endWithFirstPicture(view);
    window.resize(1360, 840);
    window.show();
    return QApplication::exec();
}

int readFile(const QString& file)
{
    SceneDocument document;
    return document.open(file, nullptr) ? 0 : 1;
}

const struct
{
    std::string_view name;
    int (*show)(const QString& file);
} Ways[] = {{"inspector", showInspector}, {"items", showItems}, {"file", readFile}};

} // namespace

int main(int argc, char** argv)
{
    for (const auto& way : Ways) {
        if (argc != 3 || way.name != argv[1])
            continue;
        SoDB::init();
        SoInteraction::init();
        const QApplication application(argc, argv);
        std::_Exit(way.show(QString::fromLocal8Bit(argv[2])));
    }
    std::fprintf(stderr, "Use: first_picture WAY FILE\n");
    return 1;
}
