// From the start of a process to the first picture of a scene, by the number of nodes, in the inspector and
// in what is simpler. Run under an X server; writes a table for docs/performance.md.

#include "BenchmarkMain.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <string>

namespace {

void writeScene(const QString& name, int nodes)
{
    QFile file(name);
    file.open(QIODevice::WriteOnly);
    file.write("#Inventor V2.1 ascii\nSeparator {\n");
    for (int i = 0; i < nodes; i += 4) {
        file.write(QStringLiteral("Separator { Translation { translation %1 %2 0 } "
                                  "Material { diffuseColor 0 0.5 1 } Cube {} }\n")
                       .arg(i % 400)
                       .arg(i / 400 * 4)
                       .toLatin1());
    }
    file.write("}\n");
}

/// Runs the program `first_picture`, which ends when it has shown the scene.
void startUp(benchmark::State& state, const char* way, int nodes)
{
    const QTemporaryDir folder;
    const QString scene = folder.filePath(QStringLiteral("scene.iv"));
    writeScene(scene, nodes);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder.path());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    for (auto _ : state) {
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/first_picture"),
                      {QString::fromLatin1(way), scene});
        process.waitForFinished(-1);
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
            state.SkipWithError("did not start");
            return;
        }
    }
}

const struct
{
    const char* name;
    const char* way; ///< what first_picture calls it
} Ways[] = {{"inspector", "inspector"},
            {"tree widget with items, the same view", "items"},
            {"file read, nothing shown", "file"}};

} // namespace

void registerBenchmarks()
{
    for (const auto& way : Ways) {
        for (const int nodes : {10, 100, 1'000, 10'000, 100'000}) {
            const auto name = "first picture/" + std::string(way.name) + '/' + std::to_string(nodes);
            benchmark::RegisterBenchmark(
                name.c_str(), [=, &way](benchmark::State& state) { startUp(state, way.way, nodes); })
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond)
                ->Iterations(5);
        }
    }
}
