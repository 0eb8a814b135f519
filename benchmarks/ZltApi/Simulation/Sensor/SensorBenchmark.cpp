// Time of one simulated frame, from exposure to bytes, beside a plain copy of as many counts.
#include "Sensor.h"

#include <ZltApi/PixelFormat.h>

#include <benchmark/benchmark.h>

#include <cstring>

namespace
{

using namespace Simulation;

SensorConfig MonoCamera()
{
    return {};
}

SensorConfig ColorCamera()
{
    SensorConfig config;
    config.width = 2464;
    config.height = 2056;
    config.filter = ColorFilter::BayerRG;
    return config;
}

std::vector<PixelPosition> Positions(const std::vector<PixelFault>& faults)
{
    std::vector<PixelPosition> positions;
    for (const PixelFault& fault : faults)
    {
        positions.push_back({fault.x, fault.y});
    }
    return positions;
}

// settled: all frames have the same settings, as in a live image; else each has others, as with automatic exposure.
void Frame(benchmark::State& state, const SensorConfig& config, std::uint32_t pixelFormat, bool settled)
{
    Sensor sensor(config);
    const CorrectionMap correction(config.width, config.height, config.filter, Positions(sensor.Faults()));
    FrameGeometry geometry{};
    geometry.sensorWidth = geometry.width = config.width;
    geometry.sensorHeight = geometry.height = config.height;
    std::vector<unsigned char> bytes(FrameSize(pixelFormat, config.width, config.height));
    std::vector<std::uint16_t> raw;
    ExposureSettings settings;
    for (auto _ : state)
    {
        ++settings.frameNumber;
        settings.exposureUs += settled ? 0.0 : 1.0;
        sensor.Expose(settings, raw);
        correction.Apply(raw);
        benchmark::DoNotOptimize(FormatFrame(raw, config.filter, geometry, pixelFormat, bytes.data(), bytes.size()));
    }
    state.SetItemsProcessed(state.iterations());
}

void CopyOfMonoCounts(benchmark::State& state)
{
    const SensorConfig config = MonoCamera();
    const std::vector<std::uint16_t> from(static_cast<std::size_t>(config.width) * config.height, 1);
    std::vector<std::uint16_t> to(from.size());
    for (auto _ : state)
    {
        std::memcpy(to.data(), from.data(), from.size() * sizeof(from[0]));
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

void StartOfMonoSensor(benchmark::State& state)
{
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(Sensor(MonoCamera()).Faults().size());
    }
}

BENCHMARK(CopyOfMonoCounts)->Unit(benchmark::kMillisecond);
BENCHMARK(StartOfMonoSensor)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, Mono8, MonoCamera(), ZltPixelFormatMono8, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, Mono8_AutoExposure, MonoCamera(), ZltPixelFormatMono8, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, Mono12Packed, MonoCamera(), ZltPixelFormatMono12Packed, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, Mono10p, MonoCamera(), ZltPixelFormatMono10p, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, BayerRG8, ColorCamera(), ZltPixelFormatBayerRG8, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, RGB8, ColorCamera(), ZltPixelFormatRGB8, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, YUV422_8, ColorCamera(), ZltPixelFormatYUV422_8, true)->Unit(benchmark::kMillisecond);

} // namespace
