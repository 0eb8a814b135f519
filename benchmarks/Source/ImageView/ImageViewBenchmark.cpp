// How fast the image view and the overview are with a long pixel list, on the platform plugin of the environment.
#include "CustomGraphicsView.h"
#include "CustomLabelView.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QScrollBar>

namespace
{

constexpr QSize Sensor(1936, 1216);
constexpr double FitZoom = 0.5;

QRect Position(int i)
{
    return {i * 7919 % Sensor.width(), static_cast<int>(i * 104729LL % Sensor.height()), 1, 1};
}

QPixmap Frame()
{
    QPixmap frame(Sensor);
    frame.fill(Qt::black);
    return frame;
}

// A view of 1000 by 700 pixels over a scene with as many markers as the benchmark asks for.
struct Setting
{
    explicit Setting(int markers)
    {
        image = scene.addPixmap(Frame());
        scene.setSceneRect(image->boundingRect());
        view.setScene(&scene);
        view.resize(1000, 700);
        view.show();
        SetZoom(FitZoom);
        Add(markers);
        QApplication::processEvents();
    }
    void Add(int markers)
    {
        for (int i = 0; i < markers; ++i)
        {
            view.AddNewRectToScene(Position(i), i % 2);
        }
    }
    void SetZoom(double zoom)
    {
        view.setTransform(QTransform::fromScale(zoom, zoom));
        QApplication::processEvents();
    }

    QGraphicsScene scene;
    CustomGraphicsView view;
    QGraphicsPixmapItem* image = nullptr;
};

int Markers(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

void AddMarkers(benchmark::State& state)
{
    Setting setting(0);
    for (auto _ : state)
    {
        setting.Add(Markers(state));
        state.PauseTiming();
        setting.view.RemoveAllRects();
        state.ResumeTiming();
    }
}

void RemoveAllMarkers(benchmark::State& state)
{
    Setting setting(0);
    for (auto _ : state)
    {
        state.PauseTiming();
        setting.Add(Markers(state));
        QApplication::processEvents();
        state.ResumeTiming();
        setting.view.RemoveAllRects();
    }
}

void HideMarkers(benchmark::State& state)
{
    Setting setting(Markers(state));
    for (auto _ : state)
    {
        setting.view.ShowHideRects(0);
        state.PauseTiming();
        setting.view.ShowHideRects(2);
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void ShowMarkers(benchmark::State& state)
{
    Setting setting(Markers(state));
    for (auto _ : state)
    {
        state.PauseTiming();
        setting.view.ShowHideRects(0);
        QApplication::processEvents();
        state.ResumeTiming();
        setting.view.ShowHideRects(2);
    }
}

void DeleteFirstThousand(benchmark::State& state)
{
    for (auto _ : state)
    {
        state.PauseTiming();
        Setting setting(Markers(state));
        state.ResumeTiming();
        for (int i = 0; i < 1000; ++i)
        {
            setting.view.DeleteSceneRect(0);
        }
        state.PauseTiming();
        setting.view.RemoveAllRects();
        state.ResumeTiming();
    }
}

void Repaint(benchmark::State& state, double zoom)
{
    Setting setting(Markers(state));
    setting.SetZoom(zoom);
    for (auto _ : state)
    {
        setting.view.viewport()->repaint();
    }
}

void PanSevenPixels(benchmark::State& state, double zoom)
{
    Setting setting(Markers(state));
    setting.SetZoom(zoom);
    int step = 7;
    for (auto _ : state)
    {
        QScrollBar* const bar = setting.view.horizontalScrollBar();
        bar->setValue(bar->value() + step);
        step = -step;
        QApplication::processEvents();
    }
}

// One frame of the overview. The list comes as a new one each time, as a model without a cache hands it out.
void OverviewFrame(benchmark::State& state, bool listChanges)
{
    CustomLabelView label(nullptr, 484, 304);
    label.UpdateScreenSizes(Sensor.width(), Sensor.height());
    label.ChangeRect(100, 100, 900, 600);
    const QPixmap frame = Frame();
    QVector<DefectInfo> list;
    for (int i = 0; i < Markers(state); ++i)
    {
        list.append({Position(i).x(), Position(i).y(), 1, 1, 0, i < Markers(state) / 2 ? 1 : 0, i});
    }
    for (auto _ : state)
    {
        if (!list.isEmpty())
        {
            list[0].x += listChanges ? 1 : 0;
        }
        label.UpdatePixelList(QVector<DefectInfo>(list.begin(), list.end()));
        label.SetPixmap(frame);
    }
}

// Changes are made a few times only: what undoes them takes as long and is not timed.
#define LORVANE_CHANGE(function)                                                                                       \
    BENCHMARK(function)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(5)
#define LORVANE_FRAME(...) BENCHMARK_CAPTURE(__VA_ARGS__)->Arg(0)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)
LORVANE_CHANGE(AddMarkers);
LORVANE_CHANGE(RemoveAllMarkers);
LORVANE_CHANGE(HideMarkers);
LORVANE_CHANGE(ShowMarkers);
LORVANE_CHANGE(DeleteFirstThousand);
LORVANE_FRAME(Repaint, Fit, FitZoom);
LORVANE_FRAME(Repaint, TenTimes, 10.0);
LORVANE_FRAME(PanSevenPixels, TenTimes, 10.0);
LORVANE_FRAME(OverviewFrame, SameList, false);
LORVANE_FRAME(OverviewFrame, ChangedList, true);

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
