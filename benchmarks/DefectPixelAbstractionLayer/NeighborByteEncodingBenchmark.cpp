// Encoding and decoding of defect files with neighbour data, beside a plain copy of the same bytes.
#include "DpcAdapterQuorsalinWithPython.h"
#include "PixelDefect.h"

#include <benchmark/benchmark.h>

#include <boost/make_shared.hpp>

#include <random>

using namespace KTR::DPC;

namespace
{

const CameraInfo Sensor = {"", "", "Mono", 5328, 4608, 0};

// Scattered pixels, or, dense, one in three of each row: whole neighbourhoods are listed.
SensorDefectList pixels(std::size_t count, bool dense)
{
    std::mt19937 random(1);
    SensorDefectList list;
    while (list.size() < count)
    {
        const auto x =
            static_cast<std::uint32_t>(dense ? list.size() * 3 % Sensor.sensorWidth : random() % Sensor.sensorWidth);
        const auto y =
            static_cast<std::uint32_t>(dense ? list.size() * 3 / Sensor.sensorWidth : random() % Sensor.sensorHeight);
        list.push_back(boost::make_shared<PixelDefect>(x, y));
    }
    return list;
}

template <bool Dense> void NeighborEncode(benchmark::State& state)
{
    const auto list = pixels(static_cast<std::size_t>(state.range(0)), Dense);
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(DpcAdapterQuorsalinWithPython::CreateBinaryDefectFile(list, Sensor));
    }
    state.SetComplexityN(state.range(0));
}

void NeighborDecode(benchmark::State& state)
{
    const auto file = DpcAdapterQuorsalinWithPython::CreateBinaryDefectFile(
        pixels(static_cast<std::size_t>(state.range(0)), false), Sensor);
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(DpcAdapterQuorsalinWithPython::DecodeBinaryDefectFile(file));
    }
    state.SetComplexityN(state.range(0));
}

void NeighborCopyYardstick(benchmark::State& state)
{
    const auto file = DpcAdapterQuorsalinWithPython::CreateBinaryDefectFile(
        pixels(static_cast<std::size_t>(state.range(0)), false), Sensor);
    for (auto _ : state)
    {
        auto copy = file;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetComplexityN(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(10)->Range(1000, 1000000)->Complexity()->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK_TEMPLATE(NeighborEncode, false)->Apply(Sizes);
BENCHMARK_TEMPLATE(NeighborEncode, true)->Apply(Sizes);
BENCHMARK(NeighborDecode)->Apply(Sizes);
BENCHMARK(NeighborCopyYardstick)->Apply(Sizes);
