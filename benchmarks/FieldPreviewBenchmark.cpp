// The line that the field list shows of a value against the size of the value, beside the text that the field
// itself gives. Writes a table for docs/performance.md.

#include "BenchmarkMain.h"

#include "Models/FieldPreview.h"

#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/fields/SoSFImage.h>
#include <Inventor/fields/SoSFString.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

std::unique_ptr<SoField> vectors(int count)
{
    auto field = std::make_unique<SoMFVec3f>();
    field->setNum(count);
    SbVec3f* values = field->startEditing();
    for (int i = 0; i < count; ++i)
        values[i].setValue(1.5F, 2.25F, static_cast<float>(i));
    field->finishEditing();
    return field;
}

std::unique_ptr<SoField> string(int length)
{
    auto field = std::make_unique<SoSFString>();
    field->setValue(std::string(static_cast<std::size_t>(length), 'x').c_str());
    return field;
}

std::unique_ptr<SoField> image(int pixels)
{
    const auto side = static_cast<short>(std::lround(std::sqrt(pixels)));
    const std::vector<unsigned char> bytes(static_cast<std::size_t>(side) * side * 4, 200);
    auto field = std::make_unique<SoSFImage>();
    field->setValue(SbVec2s(side, side), 4, bytes.data());
    return field;
}

void preview(SoField& field)
{
    benchmark::DoNotOptimize(fieldPreview(field));
}

void text(SoField& field)
{
    SbString text;
    field.get(text);
    benchmark::DoNotOptimize(text);
}

const struct
{
    const char* name;
    std::unique_ptr<SoField> (*make)(int size);
} Values[] = {
    {"vectors of a list", vectors}, {"characters of a text", string}, {"pixels of an image", image}};

const struct
{
    const char* name;
    void (*read)(SoField& field);
} Ways[] = {{"inspector", preview}, {"the field's own text", text}};

} // namespace

void registerBenchmarks()
{
    for (const auto& value : Values) {
        for (const auto& way : Ways) {
            for (const int size : {1, 100, 10'000, 1'000'000}) {
                const auto name = std::string(value.name) + '/' + way.name + '/' + std::to_string(size);
                benchmark::RegisterBenchmark(name.c_str(),
                                             [=, &value, &way](benchmark::State& state) {
                                                 const auto field = value.make(size);
                                                 for (auto _ : state)
                                                     way.read(*field);
                                             })
                    ->Unit(benchmark::kMicrosecond)
                    ->MinTime(0.2);
            }
        }
    }
}
