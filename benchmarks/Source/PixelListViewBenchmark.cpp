// How fast a tree view shows the pixel list and follows its changes.
#include "DefectUiType.h"
#include "TreeModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>

#include <benchmark/benchmark.h>

#include <memory>

namespace
{

// A shown view as the main window makes it.
std::unique_ptr<QTreeView> ShowView(TreeModel& model)
{
    auto view = std::make_unique<QTreeView>();
    view->setModel(&model);
    view->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view->setHeaderHidden(true);
    view->setUniformRowHeights(true); // else the view measures every row before it scrolls
    view->resize(300, 800);
    view->show();
    QCoreApplication::processEvents();
    return view;
}

void Fill(TreeModel& model, benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    state.SetComplexityN(count);
    for (int i = 0; i < count; ++i)
    {
        model.addDefectItem(i % 1000, i / 1000, 1, 1, DefectUiType::SinglePixel, DefectInfo::NewColor);
    }
}

void ShowExpandAndScroll(benchmark::State& state)
{
    TreeModel model;
    Fill(model, state);
    for (auto _ : state)
    {
        const std::unique_ptr<QTreeView> view = ShowView(model);
        view->expandAll();
        for (int part = 0; part <= 20; ++part)
        {
            view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() / 20 * part);
            QCoreApplication::processEvents();
        }
    }
}

void FillWhileShown(benchmark::State& state)
{
    TreeModel model;
    const std::unique_ptr<QTreeView> view = ShowView(model);
    for (auto _ : state)
    {
        model.clear();
        Fill(model, state);
        QCoreApplication::processEvents();
    }
}

void RemoveAllWhileShown(benchmark::State& state)
{
    TreeModel model;
    const std::unique_ptr<QTreeView> view = ShowView(model);
    for (auto _ : state)
    {
        state.PauseTiming();
        Fill(model, state);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        while (!model.isEmpty())
        {
            model.removeDefectItem(model.index(model.rowCount() / 2, 0));
        }
        QCoreApplication::processEvents();
    }
}

// One click on a delete icon in a list that is expanded throughout, with the picture that follows.
void RemoveOneExpanded(benchmark::State& state)
{
    TreeModel model;
    Fill(model, state);
    const std::unique_ptr<QTreeView> view = ShowView(model);
    view->expandAll();
    for (auto _ : state)
    {
        model.onClicked(model.index(model.rowCount() / 2, TreeModel::DeleteColumn));
        QCoreApplication::processEvents();
    }
}

void InMilliseconds(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}

BENCHMARK(ShowExpandAndScroll)->Apply(InMilliseconds);
BENCHMARK(FillWhileShown)->Apply(InMilliseconds);
BENCHMARK(RemoveAllWhileShown)->Apply(InMilliseconds);
BENCHMARK(RemoveOneExpanded)->Apply(InMilliseconds)->Iterations(20);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
