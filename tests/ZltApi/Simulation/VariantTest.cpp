// Camera variants: missing features, odd sizes.
#include "TestRig.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Simulation
{

using Integer = std::int64_t;

TEST(Variants, LackFeatures)
{
    TestRig rig(R"({"stream": false, "without": ["Gamma", "PixelFormat"]})");
    const auto camera = rig.Opened();
    ZltApi::FeaturePtr feature;
    for (const char* name : {"Gamma", "PixelFormat", "NUCMode", "SensorTemperatureSetpointMode"})
    {
        EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName(name, feature)) << name;
    }
    EXPECT_EQ(ZltErrorNotSupported, Start(camera, std::make_shared<FrameLog>(camera)));
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
    EXPECT_EQ("The simulated camera CAM is in use.\n", (rig.Control({"busy", CameraId, "on"}), rig.errors));
}

} // namespace Simulation
