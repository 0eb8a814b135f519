// Encoding and decoding of defect rectangle tables, beside a plain copy of the same bytes.
#include "DefectRectangleTable.h"
#include "PixelDefect.h"

#include <benchmark/benchmark.h>

#include <boost/make_shared.hpp>

#include <random>

using namespace KTR::DPC;

namespace
{

constexpr std::uint32_t Width = 5328;
constexpr std::uint32_t Height = 4608;

SensorDefectList scatteredPixels(std::size_t count)
{
    std::mt19937 random(1);
    SensorDefectList list;
    while (list.size() < count)
    {
        const auto x = static_cast<std::uint32_t>(random() % Width);
        list.push_back(boost::make_shared<PixelDefect>(x, static_cast<std::uint32_t>(random() % Height)));
    }
    return list;
}

void RectangleTableEncode(benchmark::State& state)
{
    const auto list = scatteredPixels(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(encodeDefectTable(list, Width, Height));
    }
    state.SetComplexityN(state.range(0));
}

void RectangleTableDecode(benchmark::State& state)
{
    const auto memory = encodeDefectTable(scatteredPixels(static_cast<std::size_t>(state.range(0))), Width, Height);
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(decodeDefectTable(memory, Width, Height));
    }
    state.SetComplexityN(state.range(0));
}

void RectangleTableCopyYardstick(benchmark::State& state)
{
    const auto memory = encodeDefectTable(scatteredPixels(static_cast<std::size_t>(state.range(0))), Width, Height);
    for (auto _ : state)
    {
        auto copy = memory;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetComplexityN(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(10)->Range(1000, 100000)->Complexity()->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(RectangleTableEncode)->Apply(Sizes);
BENCHMARK(RectangleTableDecode)->Apply(Sizes);
BENCHMARK(RectangleTableCopyYardstick)->Apply(Sizes);
