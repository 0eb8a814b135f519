// Camera variants: missing and other features, odd sizes, the colour chart, a camera in somebody else's hands.
#include "TestRig.h"

#include "Sensor/Scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <thread>
#include <tuple>

namespace Simulation
{

namespace
{

using Integer = std::int64_t;

std::set<std::string> Names(const ZltApi::CameraPtr& camera)
{
    std::vector<ZltApi::FeaturePtr> features;
    EXPECT_EQ(ZltErrorSuccess, camera->GetFeatures(features));
    std::set<std::string> names;
    for (const auto& feature : features)
    {
        std::string name;
        feature->GetName(name);
        names.insert(name);
    }
    return names;
}

// The 8 bits of a pixel in a frame of any raw format.
int Grey(const Bytes& image, const std::string& format, std::size_t pixel)
{
    if (format.find("Packed") != std::string::npos)
    {
        return image[pixel / 2 * 3 + (pixel % 2 == 0 ? 0 : 2)];
    }
    const int shift = format.find("10") != std::string::npos ? 2 : 4;
    return format.back() == '8' ? image[pixel] : (image[2 * pixel] | image[2 * pixel + 1] << 8) >> shift;
}

} // namespace

TEST(Variants, FeaturesComeAndGo)
{
    const std::set<std::string> plain = Names(TestRig().Opened());
    // Rig keys, features more than the plain camera has, features less.
    const std::tuple<const char*, std::set<std::string>, std::set<std::string>> cases[] = {
        {R"({"exposureFeature": "ExposureTimeAbs"})", {"ExposureTimeAbs"}, {"ExposureTime"}},
        {R"({"without": ["Gamma", "DeviceReset", "PixelFormat"]})", {}, {"Gamma", "DeviceReset", "PixelFormat"}},
        {R"({"nonuniformityCorrection": true})", {"NUCMode", "NUCDatasetActiveDescription"}, {}},
        {R"({"temperatureControl": true, "without": ["SensorTemperatureControlMode"]})",
         {"SensorTemperatureControlState", "SensorTemperatureSetpointMode", "SensorTemperatureSetpointActive",
          "SensorTemperatureSetpointValue", "SensorTemperatureSetpointSelector", "SensorTemperatureSetpointActivate"},
         {}},
    };
    for (const auto& [keys, more, less] : cases)
    {
        TestRig rig(keys);
        const auto camera = rig.Opened();
        std::set<std::string> expected = plain;
        expected.insert(more.begin(), more.end());
        for (const std::string& name : less)
        {
            ZltApi::FeaturePtr feature;
            EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName(name.c_str(), feature));
            expected.erase(name);
        }
        EXPECT_EQ(expected, Names(camera)) << keys;
        EXPECT_FALSE(Grab(camera).front().image.empty());
    }
    TestRig rig(R"({"stream": false})");
    const auto camera = rig.Opened();
    std::vector<ZltApi::StreamPtr> streams(1);
    EXPECT_TRUE(camera->GetStreams(streams) == ZltErrorSuccess && streams.empty());
    EXPECT_EQ(ZltErrorNotSupported, camera->StartContinuousImageAcquisition(3, std::make_shared<FrameLog>(camera),
                                                                            ZltApi::FrameAllocationAnnounced));
    EXPECT_EQ(ZltErrorResource, TestRig(R"({"without": ["Gama"]})").Camera()->Open(ZltApi::AccessModeFull));
}

TEST(Variants, SizesStepByTheIncrement)
{
    // Sensor and increment, then the largest width and height, and whether width and offset may be odd.
    const std::tuple<const char*, Integer, Integer, bool> cases[] = {
        {R"({"width": 97, "height": 61, "sizeIncrement": 1})", 97, 61, true},
        {R"({"width": 97, "height": 61})", 96, 60, false},
        {R"({"width": 97, "height": 61, "sizeIncrement": 16})", 96, 48, false},
        {R"({"width": 97, "height": 61, "sizeIncrement": 1, "filter": "BayerGB"})", 97, 61, true},
    };
    for (const auto& [keys, width, height, odd] : cases)
    {
        TestRig rig(keys);
        const auto camera = rig.Opened();
        for (const auto& [name, whole, largest] :
             {std::tuple{"Width", Integer{97}, width}, {"Height", Integer{61}, height}})
        {
            Integer minimum = 0;
            Integer maximum = 0;
            EXPECT_EQ(ZltErrorSuccess, FeatureOf(*camera, name)->GetRange(minimum, maximum));
            EXPECT_EQ(largest, maximum) << name << keys;
            EXPECT_EQ(largest, Get<Integer>(camera, name)) << "as delivered";
            EXPECT_EQ(whole, Get<Integer>(camera, (std::string(name) + "Max").c_str()));
        }
        EXPECT_EQ(odd ? ZltErrorSuccess : ZltErrorInvalidValue, Set(camera, "Width", Integer{35})) << keys;
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "Width", Integer{32}));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "ReverseX", true));
        const bool isMosaic = std::string(keys).find("Bayer") != std::string::npos;
        EXPECT_EQ(odd && !isMosaic ? ZltErrorSuccess : ZltErrorInvalidValue, Set(camera, "OffsetX", Integer{63}))
            << keys;
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "OffsetX", Integer{64}));
        const auto frame = Grab(camera).front();
        EXPECT_EQ(ZltApi::FrameStatusComplete, frame.status) << keys;
        EXPECT_EQ(static_cast<std::size_t>(32 * height), frame.image.size());
    }
}

TEST(Variants, ChartShowsItsColoursInEveryMosaicAndDepth)
{
    constexpr std::uint32_t Width = 241; // odd: the mirrored mosaic keeps its phase there
    constexpr std::uint32_t Height = 160;
    const Scene scene(Width, Height, SceneKind::Chart);
    for (const std::string filter : {"BayerRG", "BayerGR", "BayerGB", "BayerBG"})
    {
        TestRig rig(
            R"({"scene": "chart", "covered": false, "width": 241, "height": 160, "sizeIncrement": 1, "filter": ")" +
            filter + "\"}");
        const auto camera = rig.Opened();
        // Where in two by two pixels a colour sits: the filter's name is its first row, and green is beside the others.
        const bool greenFirst = filter[5] == 'G';
        const bool redRowFirst = filter.find('R', 5) != std::string::npos;
        for (const char* depth : {"8", "10", "12", "12Packed"})
        {
            const std::string format = filter + depth;
            ASSERT_EQ(ZltErrorSuccess, Set(camera, "PixelFormat", format.c_str())) << format;
            const Bytes image = Grab(camera).front().image;
            for (std::size_t patch = 0; patch < ChartPatchCount; ++patch)
            {
                const SceneRect area = scene.PatchArea(patch);
                std::array<std::vector<int>, 3> seen;
                for (std::uint32_t y = area.y; y < area.y + area.height; ++y)
                {
                    for (std::uint32_t x = area.x; x < area.x + area.width; ++x)
                    {
                        const bool green = (x + y) % 2 == (greenFirst ? 0U : 1U);
                        const bool red = (y % 2 == 0) == redRowFirst;
                        seen[green ? 1U : red ? 0U : 2U].push_back(Grey(image, format, y * Width + x));
                    }
                }
                const SceneColor& color = ChartPatches[patch];
                const std::array<int, 3> expected{color.red, color.green, color.blue};
                for (std::size_t i = 0; i < seen.size(); ++i)
                {
                    const auto middle = seen[i].begin() + static_cast<std::ptrdiff_t>(seen[i].size() / 2);
                    std::nth_element(seen[i].begin(), middle, seen[i].end());
                    EXPECT_NEAR(expected[i] + 2, *middle, 2.0) << format << " patch " << patch << " colour " << i;
                }
            }
        }
    }
}

TEST(Variants, NonuniformityShowsWithoutADataset)
{
    TestRig rig(
        R"({"nonuniformityCorrection": true, "covered": false, "scene": "chart", "width": 320, "height": 240})");
    const auto camera = rig.Opened();
    const SceneRect grey = Scene(320, 240, SceneKind::Chart).PatchArea(19);
    // Mode, exposure time, dataset, and whether an even patch shows the columns.
    for (const auto& [mode, exposure, dataset, isRough] :
         {std::tuple{"Auto", 10'000.0, "Factory dataset 2, exposure 10 ms", false},
          {"Off", 10'000.0, "No dataset", true},
          {"Dataset1", 10'000.0, "Factory dataset 1, exposure 1 ms", false},
          {"Auto", 60'000.0, "Factory dataset 3, exposure 100 ms", false}})
    {
        ASSERT_EQ(ZltErrorSuccess, Set(camera, "NUCMode", mode));
        ASSERT_EQ(ZltErrorSuccess, Set(camera, "ExposureTime", exposure));
        EXPECT_EQ(dataset, Get<std::string>(camera, "NUCDatasetActiveDescription"));
        const Bytes image = Grab(camera).front().image;
        std::vector<int> steps; // from column to column
        for (std::size_t i = (grey.y + 2) * 320 + grey.x; steps.size() + 1 < grey.width; ++i)
        {
            steps.push_back(std::abs(image[i + 1] - image[i]));
        }
        std::sort(steps.begin(), steps.end());
        EXPECT_EQ(isRough, steps[steps.size() / 2] > 5) << mode;
    }
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "NUCMode", "UserDataset")) << "not available";
}

TEST(Variants, BusyInAnotherProgram)
{
    TestRig rig(R"({"busy": true})");
    const auto camera = rig.Camera();
    const auto permitted = [&]
    {
        std::uint32_t access = 77;
        EXPECT_EQ(ZltErrorSuccess, camera->GetPermittedAccess(access));
        return access & ZltApi::AccessModeFull;
    };
    ASSERT_TRUE(camera) << "in the list all the same";
    EXPECT_EQ(0U, permitted());
    EXPECT_EQ(ZltErrorInvalidAccess, camera->Open(ZltApi::AccessModeFull));
    rig.Control({"list"});
    EXPECT_NE(std::string::npos, rig.output.find("in-use"));
    ASSERT_EQ(0, rig.Control({"busy", CameraId, "off"}));
    EXPECT_EQ(camera, rig.events.Next(ZltApi::UpdateTriggerStateChanged));
    EXPECT_EQ(1U, permitted());
    EXPECT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(1, rig.Control({"busy", CameraId, "on"})) << "somebody has it";
    EXPECT_EQ("The simulated camera CAM is in use.\n", rig.errors);
    EXPECT_EQ(ZltErrorSuccess, camera->Close());
    ASSERT_EQ(0, rig.Control({"busy", CameraId, "on"}));
    EXPECT_EQ(ZltErrorInvalidAccess, camera->Open(ZltApi::AccessModeFull));
}

TEST(Variants, ActivationThatNeverEndsChangesNothing)
{
    TestRig rig(R"({"temperatureControl": true, "faults": {"operation": "RunCommand", "call": 3, "hang": true}})");
    const auto camera = rig.Opened();
    const auto activate = [&](Integer number)
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "SensorTemperatureSetpointSelector", number));
        return RunCommand(camera, "SensorTemperatureSetpointActivate");
    };
    EXPECT_EQ(ZltErrorInvalidAccess, activate(1)) << "the camera chooses";
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "SensorTemperatureSetpointMode", "Manual"));
    EXPECT_EQ(ZltErrorSuccess, activate(2));
    EXPECT_EQ(ZltErrorSuccess, activate(1));
    std::this_thread::sleep_for(std::chrono::milliseconds(1600)); // longer than an activation takes
    bool done = true;
    EXPECT_EQ(ZltErrorSuccess, FeatureOf(*camera, "SensorTemperatureSetpointActivate")->IsCommandDone(done));
    EXPECT_FALSE(done);
    EXPECT_EQ(2, Get<Integer>(camera, "SensorTemperatureSetpointActive"));
    EXPECT_LT(Get<double>(camera, "DeviceTemperature"), 20.0);
}

} // namespace Simulation
