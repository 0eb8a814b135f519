// Pixel format conversion beside its yardsticks: a plain copy of the bytes that it moves, and OpenCV's own conversion.
#include "ZltImageTransform/ZltImageTransform.h"

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace
{

std::vector<std::uint8_t> Noise(std::size_t bytes)
{
    std::mt19937 random(1);
    std::vector<std::uint8_t> noise(bytes);
    for (std::uint8_t& byte : noise)
    {
        byte = static_cast<std::uint8_t>(random());
    }
    return noise;
}

void Convert(benchmark::State& state, const std::string& format)
{
    const auto width = static_cast<std::uint32_t>(state.range(0));
    const auto height = static_cast<std::uint32_t>(state.range(1));
    ZltImage source{};
    ZltImage destination{};
    source.Size = destination.Size = sizeof(ZltImage);
    if (ZltSetImageInfoFromString(format.c_str(), width, height, &source) != ZltErrorSuccess ||
        ZltSetImageInfoFromString("BGRA32", width, height, &destination) != ZltErrorSuccess)
    {
        state.SkipWithError("The format is not known.");
        return;
    }
    std::vector<std::uint8_t> from = Noise(source.BufferSize);
    std::vector<std::uint8_t> to(destination.BufferSize);
    source.Data = from.data();
    destination.Data = to.data();
    for (auto _ : state)
    {
        if (ZltImageTransform(&source, &destination, nullptr, 0) != ZltErrorSuccess)
        {
            state.SkipWithError("The conversion failed.");
            return;
        }
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(from.size() + to.size()));
}

// Reads and writes together as many bytes as the conversion of that many bytes a pixel does.
void Copy(benchmark::State& state, double bytesPerPixel)
{
    const double pixels = static_cast<double>(state.range(0) * state.range(1));
    const auto bytes = static_cast<std::size_t>(pixels * (bytesPerPixel + 4) / 2);
    const std::vector<std::uint8_t> from = Noise(bytes);
    std::vector<std::uint8_t> to(bytes);
    for (auto _ : state)
    {
        std::memcpy(to.data(), from.data(), bytes);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes) * 2);
}

void OpenCv(benchmark::State& state, int sourceType, int conversion)
{
    const auto width = static_cast<int>(state.range(0));
    const auto height = static_cast<int>(state.range(1));
    cv::Mat from(height, width, sourceType);
    cv::randu(from, 0, 256);
    cv::Mat to(height, width, CV_8UC4);
    for (auto _ : state)
    {
        cv::cvtColor(from, to, conversion);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>((from.elemSize() + to.elemSize()) * from.total()));
}

// The way that OpenCV offers for 12-bit mosaics: to 8 bits first, as its interpolation keeps the depth.
void OpenCvDeepBayer(benchmark::State& state)
{
    cv::Mat from(static_cast<int>(state.range(1)), static_cast<int>(state.range(0)), CV_16UC1);
    cv::randu(from, 0, 4096);
    cv::Mat bytes;
    cv::Mat to;
    for (auto _ : state)
    {
        from.convertTo(bytes, CV_8U, 1.0 / 16);
        cv::cvtColor(bytes, to, cv::COLOR_BayerRGGB2BGRA);
        benchmark::ClobberMemory();
    }
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({1936, 1216})->Args({2464, 2056})->Unit(benchmark::kMicrosecond)->UseRealTime();
}

} // namespace

BENCHMARK_CAPTURE(Copy, AsMono8, 1.0)->Apply(Sizes);
BENCHMARK_CAPTURE(OpenCv, Grey, CV_8UC1, cv::COLOR_GRAY2BGRA)->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, Mono8, "Mono8")->Apply(Sizes);
BENCHMARK_CAPTURE(Copy, AsMono12Packed, 1.5)->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, Mono12Packed, "Mono12Packed")->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, Mono12p, "Mono12p")->Apply(Sizes);
BENCHMARK_CAPTURE(Copy, AsMono10p, 1.25)->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, Mono10p, "Mono10p")->Apply(Sizes);
BENCHMARK_CAPTURE(Copy, AsMono12, 2.0)->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, Mono12, "Mono12")->Apply(Sizes);
BENCHMARK_CAPTURE(OpenCv, Bayer, CV_8UC1, cv::COLOR_BayerRGGB2BGRA)->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, BayerRG8, "BayerRG8")->Apply(Sizes);
BENCHMARK(OpenCvDeepBayer)->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, BayerRG12, "BayerRG12")->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, BayerRG12Packed, "BayerRG12Packed")->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, BayerRG10p, "BayerRG10p")->Apply(Sizes);
BENCHMARK_CAPTURE(OpenCv, Rgb, CV_8UC3, cv::COLOR_RGB2BGRA)->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, RGB8, "RGB8")->Apply(Sizes);
BENCHMARK_CAPTURE(OpenCv, Uyvy, CV_8UC2, cv::COLOR_YUV2BGRA_UYVY)->Apply(Sizes);
BENCHMARK_CAPTURE(Convert, UYVY, "YUV422_8_UYVY")->Apply(Sizes);
