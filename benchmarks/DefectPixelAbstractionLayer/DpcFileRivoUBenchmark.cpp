// Encoding and decoding of Rivo U defect pixel files, beside a plain copy of the same bytes. The head cannot tell the
// end of so long a data set, so decoding is measured on the data set itself.
#include "DpcFileRivoU.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

using namespace KTR::DPC;

namespace
{

constexpr std::uint16_t Width = 5328;
constexpr std::uint16_t Height = 4608;
constexpr std::ptrdiff_t DataSetOffset = 44; // bytes

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

// In one row, from right to left, again and again.
Places backwards(std::size_t count)
{
    Places places(count);
    for (std::size_t i = 0; i < count; ++i)
    {
        places[i] = {static_cast<std::uint16_t>((count - i) * Width / (count + 1)), std::uint16_t{7}};
    }
    return places;
}

std::vector<std::uint8_t> encode(const Places& places, ReverseCapability capability)
{
    DpcFileRivoU file(capability, Width, Height);
    for (const auto& [x, y] : places)
    {
        file.addSinglePixelDefect(x, y);
    }
    return file.getRawData();
}

std::vector<std::uint8_t> dataSet(std::size_t count)
{
    const auto bytes = encode(scattered(count), ReverseCapability::Non);
    return {bytes.begin() + DataSetOffset, bytes.end()};
}

void RivoUEncode(benchmark::State& state, Places (*makePlaces)(std::size_t))
{
    const auto places = makePlaces(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(encode(places, ReverseCapability::XY));
    }
    state.SetComplexityN(state.range(0));
}

void RivoUDecode(benchmark::State& state)
{
    const auto bytes = dataSet(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(DpcFileRivoU::parseSensorDefectsFromDataBlock(bytes, Width));
    }
    state.SetComplexityN(state.range(0));
}

void RivoUCopyYardstick(benchmark::State& state)
{
    const auto bytes = dataSet(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        auto copy = bytes;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetComplexityN(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(10)->Range(1000, 100000)->Complexity()->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK_CAPTURE(RivoUEncode, scattered, scattered)->Apply(Sizes);
BENCHMARK_CAPTURE(RivoUEncode, backwards, backwards)->Apply(Sizes);
BENCHMARK(RivoUDecode)->Apply(Sizes);
BENCHMARK(RivoUCopyYardstick)->Apply(Sizes);
