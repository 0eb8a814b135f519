// Defects vanish from the picture when, and only when, a camera has its correction set loaded and switched on.
#include "TestRig.h"

#include "Firmware/Ostrel/OstrelFile.h"

#include <gtest/gtest.h>

namespace Simulation
{

namespace
{

constexpr std::uint32_t Width = 64;
constexpr std::uint32_t Height = 48;
constexpr SensorSize Size{Width, Height};

using Positions = std::vector<PixelPosition>;

// The sensor of the test rig's camera.
Positions Hot()
{
    SensorConfig config;
    config.width = Width;
    config.height = Height;
    config.seed = 3;
    const Sensor sensor(config);
    Positions positions;
    for (const PixelFault& fault : sensor.Faults())
    {
        if (fault.kind == FaultKind::Hot)
        {
            positions.push_back({fault.x, fault.y});
        }
    }
    return positions;
}

// How many of these sensor pixels stand out from a dark frame.
std::size_t Visible(const Bytes& image, const Positions& pixels, Mirroring mirroring = {})
{
    std::size_t count = 0;
    for (const PixelPosition& pixel : pixels)
    {
        const std::uint32_t x = mirroring.x ? Width - 1 - pixel.x : pixel.x;
        const std::uint32_t y = mirroring.y ? Height - 1 - pixel.y : pixel.y;
        count += image.at(y * Width + x) > 40 ? 1 : 0;
    }
    return count;
}

// Resets the camera and opens it again when it has returned.
ZltApi::CameraPtr Restarted(TestRig& rig, const ZltApi::CameraPtr& camera)
{
    EXPECT_EQ(ZltErrorSuccess, RunCommand(camera, "DeviceReset"));
    EXPECT_TRUE(rig.events.Next(ZltApi::UpdateTriggerUnplugged));
    EXPECT_TRUE(rig.events.Next(ZltApi::UpdateTriggerPluggedIn));
    return rig.Opened();
}

} // namespace

TEST(Correction, WrittenSetWorksAfterRestartOnly)
{
    TestRig rig;
    auto camera = rig.Opened();
    const Positions hot = Hot();
    ASSERT_GT(hot.size(), 20U);
    EXPECT_EQ("Preset", Get<std::string>(camera, "CorrectionSet"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "Off"));
    const Bytes raw = GrabDark(camera);
    EXPECT_EQ(hot.size(), Visible(raw, hot));

    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "On"));
    const Bytes factory = GrabDark(camera);
    EXPECT_GT(Visible(factory, hot), hot.size() / 4) << "the factory knows some";
    EXPECT_LT(Visible(factory, hot), hot.size() * 3 / 4);

    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSet", "User"));
    ASSERT_EQ("Success", WriteFile(camera, EncodeOstrelFile(hot, Size, true, true)));
    EXPECT_EQ(raw, GrabDark(camera)) << "written, but not loaded";

    camera = Restarted(rig, camera);
    EXPECT_EQ("Preset", Get<std::string>(camera, "CorrectionSet")) << "the set to start with";
    EXPECT_EQ(factory, GrabDark(camera));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSet", "User"));
    const Bytes clean = GrabDark(camera);
    EXPECT_EQ(0U, Visible(clean, hot));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSetDefault", "User"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "Off"));
    camera = Restarted(rig, camera);
    EXPECT_EQ("User", Get<std::string>(camera, "CorrectionSet"));
    EXPECT_EQ(clean, GrabDark(camera)) << "a restart switches the correction on";
}

TEST(Correction, FollowsTheMirroringInSensorCoordinates)
{
    TestRig rig;
    auto camera = rig.Opened();
    const Positions hot = Hot();
    ASSERT_EQ("Success", WriteFile(camera, EncodeOstrelFile(hot, Size, true, true)));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSetDefault", "User"));
    camera = Restarted(rig, camera);
    for (const Mirroring mirroring : {Mirroring{false, false}, {true, false}, {false, true}, {true, true}})
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "ReverseX", mirroring.x));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "ReverseY", mirroring.y));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "Off"));
        EXPECT_EQ(hot.size(), Visible(GrabDark(camera), hot, mirroring)) << mirroring.x << mirroring.y;
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "On"));
        EXPECT_EQ(0U, Visible(GrabDark(camera), hot, mirroring)) << mirroring.x << mirroring.y;
    }
}

TEST(Correction, PowerLastsBetweenPrograms)
{
    TestRig rig;
    auto camera = rig.Opened();
    ASSERT_EQ("Success", WriteFile(camera, EncodeOstrelFile(Hot(), Size, true, true)));
    camera = Restarted(rig, camera);
    // Loaded, and then replaced by an empty file that is not loaded yet.
    ASSERT_EQ("Success", Execute(camera, UserFile, "Delete"));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSet", "User"));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "PixelFormat", "Mono12"));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "ReverseY", true));
    const Bytes before = GrabDark(camera);
    rig.provider.Shutdown(); // closes the camera
    ASSERT_EQ(ZltErrorSuccess, rig.provider.Startup(rig.events));
    camera = rig.Opened();
    EXPECT_EQ(before, GrabDark(camera));

    // Switching on and off is written down at once: a program that dies keeps it.
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "Off"));
    EXPECT_EQ("Off", CameraState(rig.StateFolder()).Settings().value()["CorrectionMode"]);

    ASSERT_EQ(0, rig.Control({"unplug", CameraId}));
    ASSERT_TRUE(rig.events.Next(ZltApi::UpdateTriggerUnplugged));
    camera->Close();
    ASSERT_EQ(0, rig.Control({"plug", CameraId}));
    ASSERT_TRUE(rig.events.Next(ZltApi::UpdateTriggerPluggedIn));
    camera = rig.Opened();
    EXPECT_EQ("Preset", Get<std::string>(camera, "CorrectionSet"));
    EXPECT_EQ("Mono8", Get<std::string>(camera, "PixelFormat"));
}

} // namespace Simulation
