// From the key that commits a number to the editor that shows it and the request for a new picture, by the
// number of nodes in the scene, in the inspector's window and in one that fills everything anew. Run with
// QT_QPA_PLATFORM=offscreen; writes a table for docs/performance.md.

#include "BenchmarkMain.h"
#include "GroupedScene.h"
#include "NaiveInspector.h"
#include "PaintWatch.h"

#include "Scene/SceneDocument.h"
#include "Scene/SensorPump.h"
#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/nodes/SoCone.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <chrono>
#include <string>

namespace {

/// The inspector's window with the default plug-in, on a scene with one of its fields selected.
class Inspector
{
public:
    Inspector(SoNode* root, SoField& edited)
    {
        m_window.plugins()->load(QStringLiteral(KELVOR_DEFAULT_PLUGIN), nullptr);
        m_window.plugins()->activateProfile();
        m_window.document()->setRoot(root);
        m_window.show();
        KlvServices::getInstance()->setSelectedField(&edited);
    }
    /// The line edit of the editor at work; null when there is none.
    QLineEdit* input() const
    {
        for (KlvExtension* extension : KlvPluginsManager::getInstance()->getExtensions()) {
            auto* editor = qobject_cast<KlvEditor*>(extension);
            if (editor && editor->isActive() && editor->getEditedObject().toField())
                return editor->getWidget()->findChild<QLineEdit*>();
        }
        return nullptr;
    }

private:
    MainWindow m_window{MainWindow::Layout::Fixed};
};

void press(QLineEdit* input, int key, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(input, &event);
    }
}

using Clock = std::chrono::steady_clock;

template <class Way>
void keyToPicture(benchmark::State& state, int size)
{
    const SensorPump pump;
    const GroupedScene scene(size);
    auto* cone = new SoCone;
    scene.root()->insertChild(cone, 0);
    const Way way(scene.root(), cone->height);
    bool isRequested = false;
    SoNodeSensor request([](void* data, SoSensor*) { *static_cast<bool*>(data) = true; }, &isRequested);
    request.attach(scene.root());
    QApplication::processEvents();
    QLineEdit* const input = way.input();
    if (!input || !input->isVisible()) {
        state.SkipWithError("no editor is shown");
        return;
    }
    input->setFocus();
    PaintWatch watch(input);
    int digit = 0;
    for (auto _ : state) {
        digit = digit % 9 + 1;
        input->selectAll();
        press(input, Qt::Key_0 + digit, QString::number(digit));
        QApplication::processEvents();
        isRequested = false;
        watch.reset();

        const auto start = Clock::now();
        press(input, Qt::Key_Return, QStringLiteral("\r"));
        const bool isShown = watch.wait([&] { return isRequested; });
        // What else the change has set off.
        QApplication::processEvents();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());

        if (!isShown || cone->height.getValue() != float(digit)) {
            state.SkipWithError("the key did not come through");
            return;
        }
    }
}

const struct
{
    const char* name;
    void (*run)(benchmark::State& state, int size);
} Ways[] = {{"inspector", keyToPicture<Inspector>}, {"everything filled anew", keyToPicture<NaiveInspector>}};

} // namespace

void registerBenchmarks()
{
    for (const auto& way : Ways) {
        for (const int size : {100, 1'000, 10'000, 100'000, 1'000'000}) {
            const auto name = "key to picture/" + std::string(way.name) + '/' + std::to_string(size);
            benchmark::RegisterBenchmark(name.c_str(),
                                         [=, &way](benchmark::State& state) { way.run(state, size); })
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond)
                ->MinTime(0.2);
        }
    }
}
