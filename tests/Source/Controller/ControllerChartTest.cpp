// The colour chart before simulated cameras with each mosaic, in each of their formats, as the controller shows it.
#include "AsynchronousCameraController.h"

#include "CustomListView.h"
#include "ImageDoubleBuffer.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <vector>

namespace
{

constexpr int Patience = 20'000; // milliseconds
constexpr int Field = 44;        // pixels
constexpr int Columns = 6;
constexpr int Pedestal = 2;
constexpr std::array<std::array<int, 3>, 24> Chart = {
    {{200, 40, 40},   {225, 125, 30},  {230, 205, 40},  {150, 190, 40},  {45, 140, 60},  {20, 140, 130},
     {30, 150, 190},  {40, 100, 190},  {40, 50, 150},   {95, 55, 150},   {190, 60, 140}, {210, 110, 120},
     {110, 78, 62},   {205, 160, 140}, {100, 130, 165}, {85, 105, 60},   {150, 75, 55},  {215, 195, 150},
     {240, 240, 240}, {200, 200, 200}, {160, 160, 160}, {120, 120, 120}, {80, 80, 80},   {40, 40, 40}}};

constexpr std::array<const char*, 4> Filters = {"GR", "RG", "GB", "BG"};

// The channel (0 red, 2 blue) that the filter lets through at this pixel. The second row has green where the first has
// none, and below green the colour that the first lacks.
int ChannelAt(const QByteArray& filter, int x, int y)
{
    const char above = filter[x % 2];
    const char lacking = filter.contains('R') ? 'B' : 'R';
    return QByteArrayLiteral("RGB").indexOf(y % 2 == 0 ? above : above == 'G' ? lacking : 'G');
}

// Medians of the middle of a field, for each channel; of a mosaic only where the channel was seen. The sensors have
// defective pixels, too.
std::array<int, 3> Medians(const QImage& image, int field, const QByteArray& mosaic)
{
    std::array<std::vector<int>, 3> seen;
    for (int y = field / Columns * Field + Field / 3; y < field / Columns * Field + Field * 2 / 3; ++y)
    {
        for (int x = field % Columns * Field + Field / 3; x < field % Columns * Field + Field * 2 / 3; ++x)
        {
            const QRgb pixel = image.pixel(x, y);
            const std::array<int, 3> values = {qRed(pixel), qGreen(pixel), qBlue(pixel)};
            for (std::size_t channel = 0; channel < 3; ++channel)
            {
                if (mosaic.isEmpty() || ChannelAt(mosaic, x, y) == static_cast<int>(channel))
                {
                    seen[channel].push_back(values[channel]);
                }
            }
        }
    }
    std::array<int, 3> medians{};
    for (std::size_t channel = 0; channel < 3; ++channel)
    {
        const auto middle = seen[channel].begin() + static_cast<std::ptrdiff_t>(seen[channel].size() / 2);
        std::nth_element(seen[channel].begin(), middle, seen[channel].end());
        medians[channel] = *middle;
    }
    return medians;
}

TEST(ControllerChartTest, EachMosaicInEachFormatAndDepth)
{
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    QByteArray cameras;
    for (const char* const filter : Filters)
    {
        cameras += (cameras.isEmpty() ? "" : ",") +
                   QByteArray(R"({"id": "%", "model": "Vesk C", "serial": "1", "firmware": "plain", "width": 264,
                                  "height": 176, "frameRate": 500, "scene": "chart", "filter": "Bayer%"})")
                       .replace("%", filter);
    }
    QFile rig("rig.json");
    ASSERT_TRUE(rig.open(QIODevice::WriteOnly));
    rig.write(R"({"cameras": [)" + cameras + "]}");
    rig.close();
    qputenv("ZLT_SIMULATION_RIG", folder.filePath("rig.json").toUtf8());
    qputenv("ZLT_SIMULATION_STATE", folder.filePath("state").toUtf8());
    qputenv("ZLT_PROVIDER_PATH", SIMULATION_FOLDER);

    CustomListView view;
    ImageDoubleBuffer images;
    AsynchronousCameraController controller(&view, -1, QString(), false, images);
    QSignalSpy formats(&controller, &AsynchronousCameraController::SendPixelFormats);
    QSignalSpy frames(&controller, &AsynchronousCameraController::SendPixmapToArea);
    for (int camera = 0; camera < static_cast<int>(Filters.size()); ++camera)
    {
        const QByteArray filter = Filters[static_cast<std::size_t>(camera)];
        controller.SetNewIndex(camera, filter);
        controller.SetCameraSettings();
        const QStringList names = formats.takeLast()[0].toStringList();
        EXPECT_TRUE(names.contains("Bayer" + filter + "8") && names.contains("Bayer" + filter + "12Packed"));
        controller.StartStopAcquisition();
        for (const QString& name : names)
        {
            for (const bool debayering : {true, false})
            {
                controller.SetPixelFormat(name);
                controller.SetDebayeringOnOff(debayering);
                frames.clear();
                ASSERT_TRUE(QTest::qWaitFor([&] { return frames.size() > 1; }, Patience)) << name.toStdString();
                const bool isMosaic = name.startsWith("Bayer") && !debayering;
                for (int field = 0; field < static_cast<int>(Chart.size()); ++field)
                {
                    images.Lock();
                    const std::array<int, 3> medians =
                        Medians(*images.Front(), field, isMosaic ? filter : QByteArray());
                    const bool isImageGrey = images.Front()->allGray();
                    images.Unlock();
                    ASSERT_EQ(isImageGrey, isMosaic) << name.toStdString() << debayering;
                    for (std::size_t channel = 0; channel < 3; ++channel)
                    {
                        ASSERT_NEAR(medians[channel], Chart[static_cast<std::size_t>(field)][channel] + Pedestal, 4)
                            << name.toStdString() << (debayering ? "" : " as it is") << ", field " << field
                            << ", channel " << channel;
                    }
                }
            }
        }
        controller.StopIfStreaming();
    }
    QDir::setCurrent(before);
}

} // namespace
