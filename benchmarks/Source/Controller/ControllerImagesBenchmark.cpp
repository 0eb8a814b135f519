// The controller's conversions of one frame beside a plain copy of as many bytes as the image has.
#include "AsynchronousCameraController.h"

#include "CustomListView.h"
#include "ImageDoubleBuffer.h"
#include "ZltApi/PixelFormat.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <cstring>
#include <memory>
#include <random>
#include <vector>

namespace
{

constexpr int Width = 1936;
constexpr int Height = 1216;

std::vector<unsigned char> Noise()
{
    std::mt19937 random(1);
    std::vector<unsigned char> noise(std::size_t{Width} * Height * 4);
    for (unsigned char& byte : noise)
    {
        byte = static_cast<unsigned char>(random());
    }
    return noise;
}

// A controller that has streamed from a simulated camera of this size and is idle.
class Session
{
public:
    Session()
    {
        QDir::setCurrent(m_folder.path());
        qputenv("ZLT_SIMULATION_STATE", m_folder.filePath("state").toUtf8());
        qputenv("ZLT_PROVIDER_PATH", SIMULATION_FOLDER);
        qputenv("QT_QPA_PLATFORM", "offscreen");
        m_application = std::make_unique<QApplication>(m_argumentCount, &m_argument);
        m_view = std::make_unique<CustomListView>();
        m_controller = std::make_unique<AsynchronousCameraController>(m_view.get(), -1, QString(), false, m_images);
        m_controller->SetNewIndex(0, "SIM-OSTREL-M1");
        m_controller->StartStopAcquisition();
        m_isReady = m_images.Front()->size() == QSize(Width, Height);
        m_controller->StopIfStreaming();
    }
    bool IsReady() const { return m_isReady; }
    AsynchronousCameraController& Controller() { return *m_controller; }

private:
    const QTemporaryDir m_folder;
    char m_name[1] = "";
    char* m_argument = m_name;
    int m_argumentCount = 1;
    bool m_isReady = false;
    ImageDoubleBuffer m_images;
    std::unique_ptr<QApplication> m_application;
    std::unique_ptr<CustomListView> m_view;
    std::unique_ptr<AsynchronousCameraController> m_controller;
};

Session& TheSession()
{
    static Session session;
    return session;
}

template <class Conversion> void Run(benchmark::State& state, const Conversion& convert)
{
    Session& session = TheSession();
    if (!session.IsReady())
    {
        state.SkipWithError("The simulated camera does not stream.");
        return;
    }
    std::vector<unsigned char> source = Noise();
    QImage image(Width, Height, QImage::Format_RGB32);
    image.fill(0);
    for (auto _ : state)
    {
        convert(session.Controller(), source.data(), image);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * image.sizeInBytes());
}

void Copy(benchmark::State& state)
{
    Run(state, [](AsynchronousCameraController&, unsigned char* source, QImage& image)
        { std::memcpy(image.bits(), source, static_cast<std::size_t>(image.sizeInBytes())); });
}

void Mosaic(benchmark::State& state, void (AsynchronousCameraController::*transform)(unsigned char*, QImage&))
{
    Run(state, [transform](AsynchronousCameraController& controller, unsigned char* source, QImage& image)
        { (controller.*transform)(source, image); });
}

void Colour(benchmark::State& state, unsigned int format)
{
    Run(state, [format](AsynchronousCameraController& controller, unsigned char* source, QImage& image)
        { controller.CopyToImage(source, format, image, nullptr); });
}

} // namespace

BENCHMARK(Copy)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Mosaic, Bayer8, &AsynchronousCameraController::TransformBayer8Image)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Mosaic, Bayer10, &AsynchronousCameraController::TransformBayer10Image)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Mosaic, Bayer12, &AsynchronousCameraController::TransformBayer12Image)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Mosaic, Bayer12Packed, &AsynchronousCameraController::TransformBayer12PackedImage)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Colour, Mono8, ZltPixelFormatMono8)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Colour, BayerRG8, ZltPixelFormatBayerRG8)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Colour, BayerRG10, ZltPixelFormatBayerRG10)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Colour, BayerRG12, ZltPixelFormatBayerRG12)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Colour, BayerRG12Packed, ZltPixelFormatBayerRG12Packed)->Unit(benchmark::kMicrosecond);
