// Camera variants: missing and other features, odd sizes, a camera in somebody else's hands.
#include "TestRig.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Simulation
{

using Integer = std::int64_t;

TEST(Variants, FeaturesComeAndGo)
{
    // Rig keys, features that the camera then has, and those that it has no longer.
    const std::tuple<const char*, std::vector<const char*>, std::vector<const char*>> cases[] = {
        {R"({"exposureFeature": "ExposureTimeAbs"})", {"ExposureTimeAbs"}, {"ExposureTime"}},
        {R"({"without": ["Gamma", "DeviceReset", "PixelFormat"]})", {"Gain"}, {"Gamma", "DeviceReset", "PixelFormat"}},
        {R"({"nonuniformityCorrection": true})", {"NUCMode"}, {"SensorTemperatureSetpointMode"}},
        {R"({"temperatureControl": true, "without": ["SensorTemperatureControlMode"]})",
         {"SensorTemperatureControlState", "SensorTemperatureSetpointMode"},
         {"SensorTemperatureControlMode", "NUCMode"}},
        {R"({"firmware": "plain"})", {"Gain"}, {"CorrectionMode"}},
    };
    for (const auto& [keys, present, missing] : cases)
    {
        TestRig rig(keys);
        const auto camera = rig.Opened();
        ZltApi::FeaturePtr feature;
        for (const char* name : present)
        {
            EXPECT_EQ(ZltErrorSuccess, camera->GetFeatureByName(name, feature)) << name;
        }
        for (const char* name : missing)
        {
            EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName(name, feature)) << name;
        }
        EXPECT_FALSE(Grab(camera).front().image.empty());
    }
    TestRig rig(R"({"stream": false})");
    EXPECT_EQ(ZltErrorNotSupported, rig.Opened()->StartContinuousImageAcquisition(
                                        3, std::make_shared<FrameLog>(rig.Camera()), ZltApi::FrameAllocationAnnounced));
    EXPECT_EQ(ZltErrorResource, TestRig(R"({"without": ["Gama"]})").Camera()->Open(ZltApi::AccessModeFull));
}

TEST(Variants, SizesStepByTheIncrement)
{
    // Sensor and increment, then the largest width and height, and whether width and offset may be odd.
    const std::tuple<const char*, Integer, Integer, bool> cases[] = {
        {R"({"width": 97, "height": 61, "sizeIncrement": 1})", 97, 61, true},
        {R"({"width": 97, "height": 61, "sizeIncrement": 16})", 96, 48, false},
        {R"({"width": 97, "height": 61, "sizeIncrement": 1, "filter": "BayerGB"})", 97, 61, true},
    };
    for (const auto& [keys, width, height, odd] : cases)
    {
        TestRig rig(keys);
        const auto camera = rig.Opened();
        EXPECT_EQ(width, Get<Integer>(camera, "Width")) << keys;
        EXPECT_EQ(97, Get<Integer>(camera, "WidthMax"));
        EXPECT_EQ(odd ? ZltErrorSuccess : ZltErrorInvalidValue, Set(camera, "Width", Integer{35})) << keys;
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "Width", Integer{32}));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "ReverseX", true));
        const bool isMosaic = std::string(keys).find("Bayer") != std::string::npos;
        EXPECT_EQ(odd && !isMosaic ? ZltErrorSuccess : ZltErrorInvalidValue, Set(camera, "OffsetX", Integer{63}))
            << keys;
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "OffsetX", Integer{64}));
        EXPECT_EQ(static_cast<std::size_t>(32 * height), Grab(camera).front().image.size());
    }
}

TEST(Variants, BusyInAnotherProgram)
{
    TestRig rig(R"({"busy": true})");
    const auto camera = rig.Camera();
    ASSERT_TRUE(camera) << "in the list all the same";
    EXPECT_EQ(ZltErrorInvalidAccess, camera->Open(ZltApi::AccessModeFull));
    ASSERT_EQ(0, rig.Control({"busy", CameraId, "off"}));
    EXPECT_EQ(camera, rig.events.Next(ZltApi::UpdateTriggerStateChanged));
    EXPECT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(1, rig.Control({"busy", CameraId, "on"})) << "somebody has it";
    EXPECT_EQ("The simulated camera CAM is in use.\n", rig.errors);
}

} // namespace Simulation
