// How fast the detection is, beside a plain read of the same memory and beside its plain form.
#include "AutomaticDetectionThread.h"
#include "FrameScanner.h"
#include "LiteralDetection.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>

namespace
{

constexpr int Width = 6000;
constexpr int Height = 4000;

// A dark, noisy frame with single hot pixels, a tenth of them in runs of three.
QImage MakeFrame(int candidates, QImage::Format format)
{
    QImage frame(Width, Height, QImage::Format_Grayscale8);
    std::mt19937 random(1);
    for (int y = 0; y < Height; ++y)
    {
        uchar* line = frame.scanLine(y);
        for (int x = 0; x < Width; ++x)
        {
            line[x] = static_cast<uchar>(random() % 20);
        }
    }
    for (int i = 0; i < candidates; ++i)
    {
        const int x = static_cast<int>(random() % (Width - 3));
        uchar* line = frame.scanLine(static_cast<int>(random() % Height));
        std::memset(line + x, 200, i % 10 == 0 ? 3 : 1);
    }
    return frame.convertToFormat(format);
}

void ReportBytes(benchmark::State& state, const QImage& frame)
{
    state.SetBytesProcessed(state.iterations() * frame.sizeInBytes());
}

void PlainRead(benchmark::State& state, QImage::Format format)
{
    const QImage frame = MakeFrame(500, format);
    for (auto _ : state)
    {
        quint64 sum = 0;
        const uchar* bytes = frame.constBits();
        const qsizetype size = frame.sizeInBytes();
        for (qsizetype i = 0; i + 8 <= size; i += 8)
        {
            quint64 word = 0;
            std::memcpy(&word, bytes + i, sizeof word);
            sum += word;
        }
        benchmark::DoNotOptimize(sum);
    }
    ReportBytes(state, frame);
}

void Scan(benchmark::State& state, QImage::Format format)
{
    const QImage frame = MakeFrame(500, format);
    for (auto _ : state)
    {
        QList<TemporaryDefectInfo> candidates;
        const FrameScanner scanner(frame, 40);
        for (int y = 0; y < Height; ++y)
        {
            for (int x = 0; x < Width; x += FrameScanner::BlockWidth)
            {
                scanner.ScanBlock(x, y, candidates);
            }
        }
        benchmark::DoNotOptimize(candidates);
    }
    ReportBytes(state, frame);
}

void PlainForm(benchmark::State& state, QImage::Format format)
{
    LiteralDetection detection;
    detection.image = MakeFrame(500, format);
    detection.supported = {0, 1, 2};
    for (auto _ : state)
    {
        detection.defects.clear();
        detection.Run();
    }
    ReportBytes(state, detection.image);
}

void Detection(benchmark::State& state, QImage::Format format)
{
    const QImage frame = MakeFrame(static_cast<int>(state.range(0)), format);
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(DetectDefects(frame, 40, Width, Height, {0, 1, 2}));
    }
    ReportBytes(state, frame);
}

// A frame no larger than the candidates need: three pixels of ten are bright, so that all steps have work.
void CandidatesOnly(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    QImage frame(1000, count / 300 + 1, QImage::Format_RGB32);
    frame.fill(Qt::black);
    std::mt19937 random(2);
    for (int i = 0; i < count; ++i)
    {
        const int grey = 100 + static_cast<int>(random() % 100);
        frame.setPixel(static_cast<int>(random() % 3) + i % 300 * 10 / 3, i / 300, qRgb(grey, grey, grey));
    }
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(DetectDefects(frame, 40, 0, 0, {0, 1, 2}));
    }
    state.SetComplexityN(count);
}

constexpr auto Color = QImage::Format_RGB32;
constexpr auto Grey = QImage::Format_Grayscale8;

BENCHMARK_CAPTURE(PlainRead, rgb32, Color)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Scan, rgb32, Color)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Detection, rgb32, Color)->Arg(500)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PlainForm, rgb32, Color)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PlainRead, grey8, Grey)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Scan, grey8, Grey)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PlainForm, grey8, Grey)->Unit(benchmark::kMillisecond);
BENCHMARK(CandidatesOnly)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);

} // namespace
