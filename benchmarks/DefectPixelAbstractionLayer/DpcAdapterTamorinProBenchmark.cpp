// Encoding and decoding of Tamorin Pro datasets, beside a plain copy of the same bytes.
#include "DpcAdapterTamorinPro.h"
#include "PixelDefect.h"

#include <benchmark/benchmark.h>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <random>

using namespace KTR::DPC;

namespace
{

constexpr std::uint32_t Width = 5328;
constexpr std::uint32_t Height = 4608;

// All over the sensor, in no order.
SensorDefectList scattered(const benchmark::State& state)
{
    std::mt19937 random(1);
    SensorDefectList defects(static_cast<std::size_t>(state.range(0)));
    std::generate(defects.begin(), defects.end(),
                  [&]
                  {
                      const auto x = static_cast<std::uint32_t>(random() % Width);
                      return boost::make_shared<PixelDefect>(x, static_cast<std::uint32_t>(random() % Height));
                  });
    return defects;
}

std::vector<std::uint8_t> encode(const SensorDefectList& defects)
{
    return DpcAdapterTamorinPro::ConvertDefectsListToBinary(CorrectionSet("DPC_User_1"), defects, Width, Height);
}

void TamorinProEncode(benchmark::State& state)
{
    const auto defects = scattered(state);
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(encode(defects));
    }
    state.SetComplexityN(state.range(0));
}

void TamorinProDecode(benchmark::State& state)
{
    const auto bytes = encode(scattered(state));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(DpcAdapterTamorinPro::getSensorDefectsListFromRawData(bytes));
    }
    state.SetComplexityN(state.range(0));
}

void TamorinProCopyYardstick(benchmark::State& state)
{
    const auto bytes = encode(scattered(state));
    for (auto _ : state)
    {
        auto copy = bytes;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetComplexityN(state.range(0));
}

void Counts(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(10)->Range(1000, 100000)->Complexity()->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(TamorinProEncode)->Apply(Counts);
BENCHMARK(TamorinProDecode)->Apply(Counts);
BENCHMARK(TamorinProCopyYardstick)->Apply(Counts);
