// Continuous acquisition of simulated cameras.
#include "TestRig.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <numeric>
#include <thread>
#include <tuple>

namespace Simulation
{

namespace
{

using Clock = std::chrono::steady_clock;

ZltErrorType Start(const ZltApi::CameraPtr& camera, const std::shared_ptr<FrameLog>& log, std::uint32_t buffers = 3)
{
    return camera->StartContinuousImageAcquisition(buffers, log, ZltApi::FrameAllocationAnnounced);
}

} // namespace

TEST(Stream, StartsAndStopsAgainAndAgain)
{
    TestRig rig;
    const auto camera = rig.Opened();
    for (int i = 0; i < 200; ++i)
    {
        std::atomic<bool> stopped{false};
        std::atomic<bool> late{false};
        const auto log = std::make_shared<FrameLog>(camera);
        log->onFrame = [&](const ZltApi::FramePtr& frame)
        {
            late = late || stopped;
            camera->QueueFrame(frame);
        };
        ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
        if (i % 3 == 0)
        {
            ASSERT_TRUE(log->WaitFor(2));
        }
        ASSERT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
        stopped = true;
        ASSERT_EQ(1, log.use_count()) << "the observer is forgotten";
        ASSERT_EQ(ZltErrorSuccess, camera->ReleaseAllFrames());
        EXPECT_FALSE(late);
    }
}

TEST(Stream, CallsThatDoNotFit)
{
    TestRig rig;
    const auto camera = rig.Opened();
    const auto log = std::make_shared<FrameLog>(camera);
    log->keep = 1;
    EXPECT_EQ(ZltErrorBadParameter, Start(camera, nullptr));
    EXPECT_EQ(ZltErrorBadParameter, Start(camera, log, 0));
    std::atomic<ZltErrorType> inside{ZltErrorSuccess};
    log->onFrame = [&](const ZltApi::FramePtr&) { inside = camera->StopContinuousImageAcquisition(); };
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(2));
    EXPECT_EQ(ZltErrorInvalidCall, Start(camera, log));
    EXPECT_EQ(ZltErrorInvalidCall, camera->ReleaseAllFrames());
    const ZltApi::FramePtr frame = log->Kept().at(0);
    EXPECT_EQ(ZltErrorSuccess, camera->QueueFrame(frame));
    EXPECT_EQ(ZltErrorInvalidCall, camera->QueueFrame(frame)) << "queued already";
    ASSERT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
    EXPECT_EQ(ZltErrorInvalidCall, inside);
    const auto next = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, next));
    EXPECT_EQ(ZltErrorInvalidCall, camera->QueueFrame(frame)) << "a frame of an earlier acquisition";
    ASSERT_EQ(ZltErrorSuccess, camera->Close());
    unsigned char* image = nullptr;
    frame->GetImage(image);
    image[0] = 1; // the memory of a frame lives as long as the frame
    EXPECT_EQ(ZltErrorDeviceNotOpen, Start(camera, next));
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
        const auto deadline = Clock::now() + std::chrono::seconds(20);
        while ((Get<std::string>(camera, "ExposureAuto") != "Off" || Get<std::string>(camera, "GainAuto") != "Off") &&
               Clock::now() < deadline)
        {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        EXPECT_TRUE(log->WaitFor(log->Entries().size() + 2));
        camera->StopContinuousImageAcquisition();
        const Bytes image = log->Entries().back().image;
        EXPECT_NEAR(1800.0 / 16.0, std::accumulate(image.begin(), image.end(), 0.0) / (64.0 * 48.0), 12.0) << start;
        EXPECT_NEAR(end, Get<double>(camera, "ExposureTime"), end * 0.3) << start;
    }
}

} // namespace Simulation
