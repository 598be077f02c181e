#include "BenchmarkMain.h"

#include "MarkdownReporter.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    SoDB::init();
    SoInteraction::init();
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    registerBenchmarks();
    MarkdownReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();
    return reporter.hasFailures() ? 1 : 0;
}
