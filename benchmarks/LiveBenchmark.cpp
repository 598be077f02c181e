// What the inspector costs an application whose scene never stands still: processor time of the
// user-interface thread for one sixtieth of a second, by the number of fields that engines drive. Run with
// QT_QPA_PLATFORM=offscreen, or under an X server to have the inspector draw the scene as well.

#include "MarkdownReporter.h"

#include <Kelvor/KelvorInspector.h>

#include <KlvExtender/KlvServices.h>

#include <Inventor/SbViewportRegion.h>
#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/engines/SoCalculator.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoRotationXYZ.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTranslation.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include <ctime>

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
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    int left = ticks;
    timer.callOnTimeout([&] {
        scene.tick();
        if (--left == 0)
            QCoreApplication::exit();
    });
    timer.start(1000 / 60);
    const double start = threadSeconds();
    QApplication::exec();
    return (threadSeconds() - start) / ticks;
}

void settle()
{
    for (int i = 0; i < 20; ++i)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

void alone(LiveScene&) {}

void inspected(LiveScene& scene)
{
    QWidget* window = KelvorInspector::inspect(scene.root())->window();
    for (auto* tree : window->findChildren<QTreeView*>())
        tree->expandAll();
}

void driven(LiveScene& scene)
{
    inspected(scene);
    KlvServices::getInstance()->setSelectedField(&scene.first()->translation);
}

const struct
{
    const char* name;
    void (*prepare)(LiveScene& scene);
} ways[] = {{"scene alone", alone},
            {"inspector, tree expanded", inspected},
            {"inspector, editor of a driven field", driven}};

} // namespace

int main(int argc, char** argv)
{
    SoDB::init();
    SoInteraction::init();
    QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    for (const auto& way : ways) {
        for (const int fields : {10, 100, 1'000, 10'000}) {
            const auto name = "ms a tick/" + std::string(way.name) + '/' + std::to_string(fields);
            benchmark::RegisterBenchmark(name.c_str(),
                                         [=, &way](benchmark::State& state) {
                                             LiveScene scene(fields);
                                             way.prepare(scene);
                                             settle();
                                             for (auto _ : state)
                                                 state.SetIterationTime(secondsATick(scene));
                                             if (auto* inspector = KelvorInspector::getInstance())
                                                 inspector->close();
                                         })
                ->UseManualTime()
                ->Iterations(1)
                ->Unit(benchmark::kMillisecond);
        }
    }
    MarkdownReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
