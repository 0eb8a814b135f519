// Uploads and reads of large correction sets through the controller, to and from a simulated camera.
#include "AsynchronousCameraController.h"

#include "CustomListView.h"
#include "ImageDoubleBuffer.h"
#include "TreeModel.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

namespace
{

constexpr int Width = 1936; // of the simulated camera
constexpr int Height = 1216;

// With the stream off, so that the transfer alone is measured.
void Transfer(benchmark::State& state, bool writes)
{
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    qputenv("ZLT_SIMULATION_STATE", folder.filePath("state").toUtf8());
    qputenv("ZLT_PROVIDER_PATH", SIMULATION_FOLDER);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    char name[1] = "";
    char* argument = name;
    int count = 1;
    const QApplication application(count, &argument);
    CustomListView view;
    ImageDoubleBuffer images;
    AsynchronousCameraController controller(&view, -1, QString(), false, images);
    controller.SetNewIndex(0, "SIM-OSTREL-M1");

    const auto size = static_cast<std::size_t>(state.range(0));
    QVector<DefectInfo> pixels;
    for (int i = 0; i < state.range(0); ++i)
    {
        const auto place = static_cast<int>(i * std::int64_t{Width} * Height / state.range(0));
        pixels.append({place % Width, place / Width, 1, 1, 0, 0});
    }
    TreeModel model;
    model.setupModelData(pixels, Width, Height);
    std::size_t stored = controller.WriteCorrectionSet("User", {}, &model).size();
    for (auto _ : state)
    {
        stored = writes ? controller.WriteCorrectionSet("User", {}, &model).size()
                        : controller.ReadCorrectionSet("User", &model).size();
    }
    if (stored != size)
    {
        state.SkipWithError("The camera does not hold what was written.");
    }
    state.SetComplexityN(state.range(0));
}

} // namespace

BENCHMARK_CAPTURE(Transfer, Upload, true)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(Transfer, Read, false)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
