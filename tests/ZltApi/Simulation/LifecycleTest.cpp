// Simulated cameras that come, go, restart and are used by somebody else.
#include "TestRig.h"

#include <gtest/gtest.h>

namespace Simulation
{

TEST(Lifecycle, OneOpener)
{
    TestRig rig;
    SimulationProvider second; // as another program's
    EventLog secondEvents;
    ASSERT_EQ(ZltErrorSuccess, second.Startup(secondEvents));
    const auto other = CamerasOf(second).at(0);
    const auto camera = rig.Camera();
    EXPECT_EQ(1U, Permitted(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(ZltErrorInvalidCall, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(ZltErrorInvalidAccess, other->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(0U, Permitted(other));
    EXPECT_EQ(1, rig.Control({"erase", CameraId}));
    EXPECT_EQ(other, secondEvents.Next(ZltApi::UpdateTriggerStateChanged));
    ZltApi::FeaturePtr feature;
    EXPECT_EQ(ZltErrorDeviceNotOpen, other->GetFeatureByName("Gain", feature));
    ASSERT_EQ(ZltErrorSuccess, camera->Close());
    EXPECT_EQ(other, secondEvents.Next(ZltApi::UpdateTriggerStateChanged));
    EXPECT_EQ(ZltErrorSuccess, other->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(camera, rig.events.Next(ZltApi::UpdateTriggerStateChanged));
    EXPECT_EQ(0U, secondEvents.Count()) << "a program is not told of what it does itself";
    second.Shutdown();
    EXPECT_EQ(camera, rig.events.Next(ZltApi::UpdateTriggerStateChanged)) << "a shutdown lets go";
    EXPECT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
}

TEST(Lifecycle, UnpluggedInTheMiddleOfAStream)
{
    TestRig rig;
    const auto camera = rig.Opened();
    const auto width = FeatureOf(*camera, "Width");
    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(1));
    ASSERT_EQ(0, rig.Control({"unplug", CameraId}));
    EXPECT_EQ(camera, rig.events.Next(ZltApi::UpdateTriggerUnplugged));
    EXPECT_FALSE(rig.Camera());
    CheckLost(camera, width, log);
    ASSERT_EQ(0, rig.Control({"plug", CameraId}));
    const auto back = rig.events.Next(ZltApi::UpdateTriggerPluggedIn);
    EXPECT_EQ(back, rig.Camera());
    EXPECT_NE(back, camera);
    EXPECT_EQ(ZltErrorSuccess, back->Open(ZltApi::AccessModeFull));
}

TEST(Lifecycle, ResetLeavesAndReturns)
{
    TestRig rig(R"({"restartTime": 400})");
    const auto camera = rig.Opened();
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "Gain", 6.0));
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(ZltErrorSuccess, RunCommand(camera, "DeviceReset"));
    EXPECT_FALSE(rig.Camera()) << "gone at once";
    EventLog events;
    SimulationProvider second; // another program that starts meanwhile
    ASSERT_EQ(ZltErrorSuccess, second.Startup(events));
    EXPECT_TRUE(CamerasOf(second).empty());
    EXPECT_TRUE(events.Next(ZltApi::UpdateTriggerPluggedIn));
    EXPECT_EQ(camera, rig.events.Next(ZltApi::UpdateTriggerUnplugged));
    EXPECT_TRUE(rig.events.Next(ZltApi::UpdateTriggerPluggedIn));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(380));
    const auto fresh = rig.Opened();
    EXPECT_NE(camera, fresh);
    EXPECT_EQ(0.0, Get<double>(fresh, "Gain"));
}

TEST(Lifecycle, CoverAndEraseFromOutside)
{
    TestRig rig;
    const auto camera = rig.Opened();
    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(1));
    // The control program as a process of its own.
    ASSERT_EQ(0, std::system(CONTROL_PROGRAM " cover CAM off"));
    EXPECT_TRUE(BecomesTrue([&] { return BrightPixels(log->Entries().back().image).size() > 1000; }));
    ASSERT_EQ("Success", WriteFile(camera, {1, 2, 3}));
    ASSERT_EQ(ZltErrorSuccess, camera->Close());
    ASSERT_EQ(0, rig.Control({"erase", CameraId}));
    ASSERT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(Bytes(), ReadFile(camera, UserFile));
    EXPECT_LT(52U, ReadFile(camera, PresetFile).size()) << "the factory's set is there again";
}

} // namespace Simulation
