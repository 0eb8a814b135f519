// How fast pixel list files are written and read, and how the pixel list itself grows and shrinks.
#include "DefectUiType.h"
#include "PixelListXml.h"
#include "TreeModel.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

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

void LoadXmlIntoModel(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("list.xml"));
    SaveAsXmlImpl(path, MakeList(state));
    TreeModel model;
    for (auto _ : state)
    {
        if (!LoadFromXmlImpl(path, &model, 1000, 1000, {0}))
        {
            state.SkipWithError("The file was refused.");
            return;
        }
    }
}

// Whole rows: all of them at x 0.
void Fill(TreeModel& model, int count)
{
    for (int y = 0; y < count; ++y)
    {
        model.addDefectItem(0, y, 1000, 1, DefectUiType::Row, DefectInfo::NewColor);
    }
}

void AddOneByOne(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    state.SetComplexityN(count);
    for (auto _ : state)
    {
        TreeModel model;
        Fill(model, count);
    }
}

// Fills the model untimed and then takes everything out by remove(model, i), i from 0 to count - 1.
template <typename Remove> void RemoveAll(benchmark::State& state, const Remove& remove)
{
    const int count = static_cast<int>(state.range(0));
    state.SetComplexityN(count);
    for (auto _ : state)
    {
        state.PauseTiming();
        TreeModel model;
        Fill(model, count);
        state.ResumeTiming();
        for (int i = 0; i < count; ++i)
        {
            remove(model, i);
        }
        if (!model.isEmpty())
        {
            state.SkipWithError("Rows are left.");
            return;
        }
    }
}

void RemoveFirstRow(benchmark::State& state)
{
    RemoveAll(state, [](TreeModel& model, int) { model.removeDefectItem(model.index(0, 0)); });
}

void RemoveRandomRow(benchmark::State& state)
{
    std::mt19937 random(3);
    RemoveAll(state, [&](TreeModel& model, int)
              { model.removeDefectItem(model.index(static_cast<int>(random() % unsigned(model.rowCount())), 0)); });
}

void RemoveByPixel(benchmark::State& state)
{
    std::vector<int> order(static_cast<std::size_t>(state.range(0)));
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), std::mt19937(4));
    RemoveAll(state, [&](TreeModel& model, int i) { model.removeDefectPixel(17, order[static_cast<std::size_t>(i)]); });
}

void ReadBackWithGaps(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    state.SetComplexityN(count);
    TreeModel model;
    Fill(model, count);
    model.removeDefectItem(model.index(count / 2, 0));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(model.getDefectList());
    }
}

void InMilliseconds(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}

BENCHMARK(WriteXml)->Apply(InMilliseconds);
BENCHMARK(ReadXml)->Apply(InMilliseconds);
BENCHMARK(LoadXmlIntoModel)->Apply(InMilliseconds);
BENCHMARK(AddOneByOne)->Apply(InMilliseconds);
BENCHMARK(RemoveFirstRow)->Apply(InMilliseconds);
BENCHMARK(RemoveRandomRow)->Apply(InMilliseconds);
BENCHMARK(RemoveByPixel)->Apply(InMilliseconds);
BENCHMARK(ReadBackWithGaps)->Apply(InMilliseconds);

} // namespace
