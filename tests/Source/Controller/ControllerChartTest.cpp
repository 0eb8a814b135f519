// The colour chart before simulated cameras with each mosaic, in each of their formats, as the controller shows it.
#include "SimulatedSystem.h"

#include <QSignalSpy>

#include <algorithm>
#include <array>
#include <vector>

namespace
{

constexpr int Field = 44; // pixels
constexpr int Columns = 6;
constexpr int Pedestal = 2;
constexpr std::array<std::array<int, 3>, 24> Chart = {
    {{200, 40, 40},   {225, 125, 30},  {230, 205, 40},  {150, 190, 40},  {45, 140, 60},  {20, 140, 130},
     {30, 150, 190},  {40, 100, 190},  {40, 50, 150},   {95, 55, 150},   {190, 60, 140}, {210, 110, 120},
     {110, 78, 62},   {205, 160, 140}, {100, 130, 165}, {85, 105, 60},   {150, 75, 55},  {215, 195, 150},
     {240, 240, 240}, {200, 200, 200}, {160, 160, 160}, {120, 120, 120}, {80, 80, 80},   {40, 40, 40}}};

// Medians of the middle of a field, for each channel: the sensors have defective pixels, too.
std::array<int, 3> Medians(const QImage& image, int field)
{
    std::array<std::vector<int>, 3> seen;
    const QImage middle =
        image.copy(field % Columns * Field + Field / 3, field / Columns * Field + Field / 3, Field / 3, Field / 3);
    for (int i = 0; i < middle.width() * middle.height(); ++i)
    {
        const QRgb pixel = middle.pixel(i % middle.width(), i / middle.width());
        seen[0].push_back(qRed(pixel));
        seen[1].push_back(qGreen(pixel));
        seen[2].push_back(qBlue(pixel));
    }
    std::array<int, 3> medians{};
    for (std::size_t channel = 0; channel < 3; ++channel)
    {
        const auto median = seen[channel].begin() + Field * Field / 18;
        std::nth_element(seen[channel].begin(), median, seen[channel].end());
        medians[channel] = *median;
    }
    return medians;
}

using ControllerChartTest = SimulatedSystem;

TEST_F(ControllerChartTest, EachMosaicInEachFormatAndDepth)
{
    constexpr std::array<const char*, 4> Filters = {"GR", "RG", "GB", "BG"};
    QByteArrayList cameras;
    for (const char* const filter : Filters)
    {
        cameras << QByteArray(R"({"id": "%", "model": "Vesk C", "serial": "1", "firmware": "plain", "width": 264,
                                  "height": 176, "frameRate": 500, "scene": "chart", "filter": "Bayer%"})")
                       .replace("%", filter);
    }
    WriteRig(cameras.join(','));
    CustomListView view;
    ImageDoubleBuffer images;
    Controller controller(&view, -1, QString(), false, images);
    QSignalSpy formats(&controller, &Controller::SendPixelFormats);
    QSignalSpy frames(&controller, &Controller::SendPixmapToArea);
    for (int camera = 0; camera < 4; ++camera)
    {
        const QByteArray filter = Filters[static_cast<std::size_t>(camera)];
        controller.SetNewIndex(camera, filter);
        controller.SetCameraSettings();
        const QStringList names = formats.takeLast()[0].toStringList();
        EXPECT_TRUE(names.contains("Bayer" + filter + "8") && names.contains("Bayer" + filter + "12Packed"));
        controller.StartStopAcquisition();
        for (const QString& name : names)
        {
            controller.SetPixelFormat(name);
            controller.SetDebayeringOnOff(true);
            frames.clear();
            ASSERT_TRUE(QTest::qWaitFor([&] { return frames.size() > 1; }, Patience)) << name.toStdString();
            images.Lock();
            const QImage image = images.Front()->copy();
            images.Unlock();
            for (int field = 0; field < static_cast<int>(Chart.size()); ++field)
            {
                const std::array<int, 3> medians = Medians(image, field);
                for (std::size_t channel = 0; channel < 3; ++channel)
                {
                    ASSERT_NEAR(medians[channel], Chart[static_cast<std::size_t>(field)][channel] + Pedestal, 4)
                        << name.toStdString() << ", field " << field << ", channel " << channel;
                }
            }
        }
        controller.StopIfStreaming();
    }
}

} // namespace
