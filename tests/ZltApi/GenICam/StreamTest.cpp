// Continuous acquisition of real cameras.
#include "Bench.h"

#include "Stream/AravisFrame.h"
#include "Stream/FrameCounter.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace GenICam
{

TEST(GenICamStream, FiveHundredFrames)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Small();
    std::vector<ZltApi::StreamPtr> streams;
    ASSERT_EQ(ZltErrorSuccess, camera->GetStreams(streams));
    const ZltApi::FeaturePtr adjust = FeatureOf(*streams.at(0), "GVSPAdjustPacketSize");
    bool done = false;
    EXPECT_EQ(ZltErrorSuccess, adjust->RunCommand());
    EXPECT_EQ(ZltErrorSuccess, adjust->IsCommandDone(done));
    EXPECT_TRUE(done);
    std::int64_t packet = 0;
    EXPECT_EQ(ZltErrorSuccess, FeatureOf(*streams[0], "GVSPPacketSize")->GetValue(packet));
    EXPECT_LE(576, packet);

    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log, 20));
    EXPECT_EQ(ZltErrorInvalidCall, Start(camera, log));
    // Meanwhile a second thread works on the camera.
    std::atomic<bool> finished{false};
    std::thread settings(
        [&]
        {
            for (std::int64_t i = 0; !finished; i = (i + 1) % 5)
            {
                ASSERT_EQ(ZltErrorSuccess, Set(camera, "DefectScanReg", i));
                ASSERT_EQ(i, Get<std::int64_t>(camera, "DefectScanReg"));
            }
        });
    EXPECT_FALSE(IsWritable(camera, "Width"));
    bool writable = true;
    EXPECT_EQ(ZltErrorSuccess, adjust->IsWritable(writable));
    EXPECT_FALSE(writable);
    EXPECT_TRUE(log->WaitFor(500));
    finished = true;
    settings.join();
    ASSERT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
    EXPECT_EQ(1, log.use_count()) << "the observer is forgotten";
    EXPECT_TRUE(IsWritable(camera, "Width"));
    const std::vector<FrameLog::Entry> frames = log->Entries();
    const auto complete = static_cast<std::size_t>(
        std::count_if(frames.begin(), frames.end(),
                      [](const FrameLog::Entry& frame)
                      { return frame.status == ZltApi::FrameStatusComplete && frame.image.size() == 64U * 48U; }));
    EXPECT_LE(frames.size() * 98 / 100, complete);
    EXPECT_EQ(0U, frames.front().id);
    EXPECT_TRUE(std::is_sorted(frames.begin(), frames.end(), [](const auto& a, const auto& b) { return a.id < b.id; }));
    EXPECT_NE(frames[0].image, frames[1].image) << "the picture moves";
}

TEST(GenICamStream, LostPackets)
{
    Bench bench(std::make_unique<FakeCamera>(std::vector<std::string>{"-g", BENCH_DESCRIPTION, "-r", "100"}));
    const ZltApi::CameraPtr camera = bench.Small();
    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(100));
    ASSERT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
    std::size_t counts[2] = {};
    for (const FrameLog::Entry& frame : log->Entries())
    {
        ASSERT_TRUE(frame.status == ZltApi::FrameStatusComplete || frame.status == ZltApi::FrameStatusIncomplete);
        ++counts[frame.status == ZltApi::FrameStatusComplete];
    }
    EXPECT_LT(0U, counts[0]);
    EXPECT_LT(0U, counts[1]);
}

TEST(GenICamStream, LargerThanAnnounced)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Small();
    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(1));
    ASSERT_EQ(ZltErrorSuccess, RunCommand(camera, "AcquisitionStop"));
    std::this_thread::sleep_for(std::chrono::milliseconds(100)); // the camera makes its own buffers at the next start
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(0x100, {0, 0, 4, 0}));
    ASSERT_EQ(ZltErrorSuccess, RunCommand(camera, "AcquisitionStart"));
    ASSERT_TRUE(log->WaitFor(log->Entries().size() + 10));
    ASSERT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
    EXPECT_EQ(ZltApi::FrameStatusTooSmall, log->Entries().back().status);
    EXPECT_EQ(64U * 48U, log->Entries().back().image.size());
}

TEST(GenICamStream, KeepsTheRules)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Small();
    CheckStream(camera, 15);
    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(1));
    bench.provider.Shutdown();
    EXPECT_EQ(1, log.use_count()) << "a shutdown ends the stream";
}

// What a program leaves behind that dies while it streams, and what a stop leaves that the camera refuses.
TEST(GenICamStream, NothingStaysLocked)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Small();
    Bytes running(4);
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(0x124, {0, 0, 0, 1}));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "TLParamsLocked", std::int64_t{1}));
    EXPECT_FALSE(IsWritable(camera, "Width"));
    EXPECT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
    EXPECT_EQ(ZltErrorSuccess, camera->ReadMemory(0x124, running));
    EXPECT_EQ(Bytes(4), running);
    EXPECT_TRUE(IsWritable(camera, "Width"));
    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(1));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "StopFails", std::int64_t{1}));
    EXPECT_NE(ZltErrorSuccess, RunCommand(camera, "AcquisitionStop"));
    EXPECT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
    EXPECT_TRUE(IsWritable(camera, "Width"));
}

TEST(GenICamStream, FrameNumbers)
{
    const std::vector<std::uint64_t> rows[][2] = {
        {{1, 2, 4, 5}, {0, 1, 3, 4}},                               // one lost
        {{7, 65534, 65535, 1, 3}, {0, 65527, 65528, 65529, 65531}}, // 16 bits go round, without a 0
        {{0, 1, 2}, {0, 1, 2}},
        {{70000, 70001, 69999}, {0, 1, 2}}, // more than 16 bits do not
    };
    for (const auto& row : rows)
    {
        FrameCounter counter;
        std::vector<std::uint64_t> numbers;
        std::transform(row[0].begin(), row[0].end(), std::back_inserter(numbers),
                       [&](std::uint64_t id) { return counter.Next(id); });
        EXPECT_EQ(row[1], numbers);
    }
    EXPECT_EQ(3U, (ImageShape{1, 2, 0x010C0006}.Size())) << "12 bits a pixel";
}

} // namespace GenICam
