// Encoding and decoding of Ostrel defect pixel files, beside a plain copy of the same bytes.
#include "DpcFileOstrel.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

using namespace KTR::DPC;

namespace
{

constexpr std::uint16_t Width = 5328;
constexpr std::uint16_t Height = 4608;

using Places = std::vector<std::pair<std::uint16_t, std::uint16_t>>;

// All over the sensor, in no order.
Places scattered(std::size_t count)
{
    std::mt19937 random(1);
    Places places(count);
    std::generate(places.begin(), places.end(),
                  [&] {
                      return std::pair(static_cast<std::uint16_t>(random() % Width),
                                       static_cast<std::uint16_t>(random() % Height));
                  });
    return places;
}

// In one row, from right to left, again and again: what keeping a row sorted at each insertion finds hardest.
Places backwards(std::size_t count)
{
    Places places(count);
    for (std::size_t i = 0; i < count; ++i)
    {
        places[i] = {static_cast<std::uint16_t>((count - i) * Width / (count + 1)), std::uint16_t{7}};
    }
    return places;
}

std::vector<std::uint8_t> encode(const Places& places)
{
    DpcFileOstrel file(ReverseCapability::XY, Width, Height);
    for (const auto& [x, y] : places)
    {
        file.addSinglePixelDefect(x, y);
    }
    return file.getRawData();
}

void OstrelEncode(benchmark::State& state, Places (*makePlaces)(std::size_t))
{
    const auto places = makePlaces(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(encode(places));
    }
    state.SetComplexityN(state.range(0));
}

void OstrelDecode(benchmark::State& state)
{
    const auto bytes = encode(scattered(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(DpcFileOstrel::getSensorDefectsListFromRawData(bytes, Width));
    }
    state.SetComplexityN(state.range(0));
}

void OstrelCopyYardstick(benchmark::State& state)
{
    const auto bytes = encode(scattered(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state)
    {
        auto copy = bytes;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetComplexityN(state.range(0));
}

} // namespace

BENCHMARK_CAPTURE(OstrelEncode, scattered, scattered)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OstrelEncode, backwards, backwards)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OstrelDecode)->RangeMultiplier(10)->Range(1000, 100000)->Complexity()->Unit(benchmark::kMillisecond);
BENCHMARK(OstrelCopyYardstick)->RangeMultiplier(10)->Range(1000, 100000)->Complexity()->Unit(benchmark::kMillisecond);
