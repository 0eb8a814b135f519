// How fast pixel list files are written and read.
#include "PixelListXml.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace
{

QVector<DefectInfo> MakeList(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    state.SetComplexityN(count);
    QVector<DefectInfo> list;
    for (int i = 0; i < count; ++i)
    {
        list.append({i % 1000, i / 1000, 1, 1, 0, 0, i});
    }
    return list;
}

void WriteXml(benchmark::State& state)
{
    const QVector<DefectInfo> list = MakeList(state);
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(ToXml(list));
    }
}

void ReadXml(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("list.xml"));
    SaveAsXmlImpl(path, MakeList(state));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(ReadXmlPixelList(path, 1000, 1000, {0}));
    }
}

BENCHMARK(WriteXml)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK(ReadXml)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

} // namespace
