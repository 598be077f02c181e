#include "Models/FieldPreview.h"

#include <benchmark/benchmark.h>

#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/fields/SoSFImage.h>

#include <vector>

namespace {

void previewVectors(benchmark::State& state)
{
    SoMFVec3f field;
    field.setNum(static_cast<int>(state.range(0)));
    for (int i = 0; i < 20; ++i)
        field.set1Value(i, 1.5F, 2.25F, static_cast<float>(i));
    for (auto _ : state)
        benchmark::DoNotOptimize(fieldPreview(field));
}

void previewLongString(benchmark::State& state)
{
    SoMFString field;
    field.setValue(std::string(static_cast<std::size_t>(state.range(0)), 'x').c_str());
    for (auto _ : state)
        benchmark::DoNotOptimize(fieldPreview(field));
}

void previewImage(benchmark::State& state)
{
    const auto side = static_cast<short>(state.range(0));
    const std::vector<unsigned char> pixels(static_cast<std::size_t>(side) * side * 4);
    SoSFImage field;
    field.setValue(SbVec2s(side, side), 4, pixels.data());
    for (auto _ : state)
        benchmark::DoNotOptimize(fieldPreview(field));
}

BENCHMARK(previewVectors)->Arg(10)->Arg(10000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(previewLongString)->Arg(10)->Arg(10000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(previewImage)->Arg(16)->Arg(4096)->Unit(benchmark::kMicrosecond);

} // namespace
