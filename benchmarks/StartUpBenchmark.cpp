#include "MarkdownReporter.h"
#include "Scene/SceneDocument.h"
#include "Scene/SensorPump.h"
#include "View/SceneView.h"
#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

#include <cstring>

// From the start of the process to the first picture of a scene. This program starts itself for that, as the
// inspector or as a window with nothing but a tree filled with items.

namespace {

/// Shows the inspector with a scene until the first frame is drawn.
int showInspector(const QString& scene)
{
    SensorPump pump;
    MainWindow window(MainWindow::Layout::Fixed);
    window.plugins()->loadRemembered();
    window.plugins()->activateProfile();
    if (!window.document()->open(scene, nullptr))
        return 1;
    QObject::connect(window.view(), &SceneView::firstFrameDrawn, [] { std::_Exit(0); });
    window.show();
    return QApplication::exec();
}

void fill(QTreeWidgetItem* item, const SoNode* node)
{
    item->setText(0, QString::fromUtf8(node->getTypeId().getName().getString()));
    item->setText(1, QString::fromUtf8(node->getName().getString()));
    if (const SoChildList* children = node->getChildren()) {
        for (int i = 0; i < children->getLength(); ++i)
            fill(new QTreeWidgetItem(item), (*children)[i]);
    }
}

int showTreeWidget(const QString& scene)
{
    SoInput input;
    if (!input.openFile(QFile::encodeName(scene).constData()))
        return 1;
    SoNode* root = SoDB::readAll(&input);
    root->ref();
    QTreeWidget tree;
    tree.setColumnCount(2);
    auto* item = new QTreeWidgetItem(&tree);
    fill(item, root);
    tree.resize(1360, 840);
    tree.show();
    QTimer::singleShot(0, [] { std::_Exit(0); });
    return QApplication::exec();
}

struct Mode
{
    const char* name;
    int (*show)(const QString& scene);
};
constexpr Mode modes[] = {{"inspector", showInspector}, {"tree widget with items", showTreeWidget}};

void writeScene(const QString& name, long nodes)
{
    QFile file(name);
    file.open(QIODevice::WriteOnly);
    file.write("#Inventor V2.1 ascii\nSeparator {\n");
    for (long i = 0; i < nodes; i += 4)
        file.write(
            QByteArray(
                "Separator { Translation { translation %1 0 0 } Material { transparency 0.5 } Cube {} }\n")
                .replace("%1", QByteArray::number(qlonglong(i))));
    file.write("}\n");
}

void startUp(benchmark::State& state, const Mode& mode)
{
    const QTemporaryDir folder;
    const QString scene = folder.filePath("scene.iv");
    writeScene(scene, state.range(0));
    for (auto _ : state) {
        if (QProcess::execute(QCoreApplication::applicationFilePath(), {mode.name, scene}) != 0)
            state.SkipWithError("did not start");
    }
}

} // namespace

int main(int argc, char** argv)
{
    for (const Mode& mode : modes) {
        if (argc != 3 || std::strcmp(argv[1], mode.name) != 0)
            continue;
        SoDB::init();
        SoInteraction::init();
        const QApplication application(argc, argv);
        return mode.show(QFile::decodeName(argv[2]));
    }
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const Mode& mode : modes) {
        benchmark::RegisterBenchmark(("first picture/" + std::string(mode.name)).c_str(), startUp, mode)
            ->RangeMultiplier(10)
            ->Range(10, 100000)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
    MarkdownReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
