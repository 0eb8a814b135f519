// Continuous acquisition of simulated cameras.
#include "TestRig.h"

#include <gtest/gtest.h>

#include <chrono>
#include <numeric>
#include <thread>
#include <tuple>

namespace Simulation
{

using Clock = std::chrono::steady_clock;

TEST(Stream, KeepsTheRules)
{
    TestRig rig;
    const auto camera = rig.Opened();
    CheckStream(camera, 200);
    ASSERT_EQ(ZltErrorSuccess, camera->Close());
    EXPECT_EQ(ZltErrorDeviceNotOpen, Start(camera, std::make_shared<FrameLog>(camera)));
}

TEST(Stream, WithoutFreeBuffersFramesAreLost)
{
    TestRig rig;
    const auto camera = rig.Opened();
    const auto log = std::make_shared<FrameLog>(camera);
    log->keep = 3;
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(3));
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(3U, log->Entries().size());
    for (const auto& frame : log->Kept())
    {
        EXPECT_EQ(ZltErrorSuccess, camera->QueueFrame(frame));
    }
    ASSERT_TRUE(log->WaitFor(5));
    camera->StopContinuousImageAcquisition();
    const auto entries = log->Entries();
    EXPECT_EQ(2U, entries[2].id);
    EXPECT_GT(entries[3].id, 3U) << "lost frames are counted";
    EXPECT_EQ(entries[3].id + 1, entries[4].id);
}

TEST(Stream, FramesComeAtTheirRate)
{
    TestRig rig(R"({"frameRate": 100})");
    const auto camera = rig.Opened();
    const auto timed = [&](double exposureUs, double rate)
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "ExposureTime", exposureUs));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "AcquisitionFrameRate", rate));
        const auto begin = Clock::now();
        Grab(camera, 6);
        return std::chrono::duration<double>(Clock::now() - begin).count();
    };
    EXPECT_GE(timed(1'000.0, 50.0), 0.120); // a busy machine may be slower
    EXPECT_GE(timed(40'000.0, 100.0), 0.240) << "an exposure takes its time";
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "ExposureTime", 10'000'000.0));
    ASSERT_EQ(ZltErrorSuccess, Start(camera, std::make_shared<FrameLog>(camera)));
    const auto begin = Clock::now();
    camera->StopContinuousImageAcquisition();
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5)) << "a stop does not wait for the exposure";
}

TEST(Stream, RegionOfTheMirroredImage)
{
    TestRig rig(R"({"covered": false})");
    const auto camera = rig.Opened();
    const Bytes whole = Grab(camera).front().image;
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "ReverseX", true));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "Width", std::int64_t{20}));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "OffsetX", std::int64_t{6}));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "Height", std::int64_t{16}));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "OffsetY", std::int64_t{4}));
    const auto region = Grab(camera).front();
    ASSERT_EQ(20U * 16U, region.image.size());
    for (std::size_t i = 0; i < region.image.size(); ++i)
    {
        ASSERT_EQ(whole[(4 + i / 20) * 64 + 63 - (6 + i % 20)], region.image[i]) << i;
    }
}

TEST(Stream, AutomaticModesActOnFrames)
{
    // Exposure at the start, modes of exposure and gain, and the exposure at the end.
    const std::tuple<double, const char*, const char*, double> cases[] = {
        {5'000.0, "Off", "Once", 5'000.0},
        {500.0, "Once", "Once", 10'000.0},
        {60'000.0, "Once", "Off", 10'000.0},
    };
    for (const auto& [start, exposureMode, gainMode, end] : cases)
    {
        TestRig rig(R"({"covered": false})");
        const auto camera = rig.Opened();
        ASSERT_EQ(ZltErrorSuccess, Set(camera, "ExposureTime", start));
        ASSERT_EQ(ZltErrorSuccess, Set(camera, "ExposureAuto", exposureMode));
        ASSERT_EQ(ZltErrorSuccess, Set(camera, "GainAuto", gainMode));
        const auto log = std::make_shared<FrameLog>(camera);
        ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
        EXPECT_TRUE(BecomesTrue(
            [&] {
                return Get<std::string>(camera, "ExposureAuto") == "Off" &&
                       Get<std::string>(camera, "GainAuto") == "Off";
            }));
        EXPECT_TRUE(log->WaitFor(log->Entries().size() + 2));
        camera->StopContinuousImageAcquisition();
        const Bytes image = log->Entries().back().image;
        EXPECT_NEAR(1800.0 / 16.0, std::accumulate(image.begin(), image.end(), 0.0) / (64.0 * 48.0), 12.0) << start;
        EXPECT_NEAR(end, Get<double>(camera, "ExposureTime"), end * 0.3) << start;
    }
}

} // namespace Simulation
