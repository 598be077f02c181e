// What the inspector costs an application whose scene never stands still: processor time of the
// user-interface thread for one sixtieth of a second, by the number of fields that engines drive. Run with
// QT_QPA_PLATFORM=offscreen, or under an X server to have the inspector draw the scene as well.

#include "BenchmarkMain.h"
#include "NaiveInspector.h"

#include <Kelvor/KelvorInspector.h>

#include <KlvExtender/KlvServices.h>

#include <Inventor/SbViewportRegion.h>
#include <Inventor/SoDB.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/engines/SoCalculator.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoRotationXYZ.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTranslation.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QTreeView>

#include <ctime>
#include <memory>
#include <string>

namespace {

constexpr int ticks = 120;

/// Cubes that are moved by a calculator each, all of which depend on one clock.
class LiveScene
{
public:
    explicit LiveScene(int fields)
    {
        m_root->ref();
        m_root->addChild(m_clock);
        for (int i = 0; i < fields; ++i) {
            auto* place = new SoTranslation;
            auto* engine = new SoCalculator;
            engine->a.connectFrom(&m_clock->angle);
            engine->b = float(i % 100);
            engine->c = float(i / 100);
            engine->expression = "oA = vec3f(3 * b, 3 * c, a)";
            place->translation.connectFrom(&engine->oA);
            auto* group = new SoSeparator;
            group->addChild(place);
            group->addChild(new SoCube);
            m_root->addChild(group);
            m_first = m_first ? m_first : place;
        }
    }
    ~LiveScene() { m_root->unref(); }

    SoSeparator* root() const { return m_root; }
    SoTranslation* first() const { return m_first; }

    /// What the application does without the inspector: time goes on, the scene is evaluated as if it were
    /// drawn, the sensors are processed.
    void tick()
    {
        m_clock->angle = m_clock->angle.getValue() + 0.016f;
        SoGetBoundingBoxAction(SbViewportRegion(640, 480)).apply(m_root);
        SoDB::getSensorManager()->processTimerQueue();
        SoDB::getSensorManager()->processDelayQueue(TRUE);
    }

private:
    SoSeparator* m_root = new SoSeparator;
    SoRotationXYZ* m_clock = new SoRotationXYZ;
    SoTranslation* m_first = nullptr;
};

double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// Processor time of this thread for one tick.
double secondsATick(LiveScene& scene)
{
    // One of its own: the inspector closes when that of the application ends.
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    int left = ticks;
    timer.callOnTimeout([&] {
        scene.tick();
        if (--left == 0)
            loop.quit();
    });
    timer.start(1000 / 60);
    const double start = threadSeconds();
    loop.exec();
    return (threadSeconds() - start) / ticks;
}

void settle()
{
    for (int i = 0; i < 20; ++i)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

/// A window on the scene; goes with the last reference.
using Watcher = std::shared_ptr<void>;

Watcher alone(LiveScene&)
{
    return nullptr;
}

Watcher inspected(LiveScene& scene)
{
    const std::shared_ptr<KelvorInspector> inspector(KelvorInspector::inspect(scene.root()),
                                                     [](KelvorInspector* shown) { shown->close(); });
    for (auto* tree : inspector->window()->findChildren<QTreeView*>())
        tree->expandAll();
    return inspector;
}

Watcher driven(LiveScene& scene)
{
    const Watcher inspector = inspected(scene);
    KlvServices::getInstance()->setSelectedField(&scene.first()->translation);
    return inspector;
}

Watcher filledAnew(LiveScene& scene)
{
    return std::make_shared<NaiveInspector>(scene.root(), scene.first()->translation);
}

const struct
{
    const char* name;
    Watcher (*watch)(LiveScene& scene);
} Ways[] = {{"scene alone", alone},
            {"inspector, tree expanded", inspected},
            {"inspector, editor of a driven field", driven},
            {"everything filled anew", filledAnew}};

} // namespace

void registerBenchmarks()
{
    for (const auto& way : Ways) {
        for (const int fields : {10, 100, 1'000, 10'000}) {
            const auto name = "ms a tick/" + std::string(way.name) + '/' + std::to_string(fields);
            benchmark::RegisterBenchmark(name.c_str(),
                                         [=, &way](benchmark::State& state) {
                                             LiveScene scene(fields);
                                             const Watcher watcher = way.watch(scene);
                                             settle();
                                             for (auto _ : state)
                                                 state.SetIterationTime(secondsATick(scene));
                                         })
                ->UseManualTime()
                ->Iterations(1)
                ->Unit(benchmark::kMillisecond);
        }
    }
}
