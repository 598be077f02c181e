#include <benchmark/benchmark.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>

#include <QApplication>

int main(int argc, char** argv)
{
    SoDB::init();
    SoInteraction::init();
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
