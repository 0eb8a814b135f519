// USB3 Vision cameras, from the bus up.
#include "../ProviderTools.h"
#include "FakeCamera.h"
#include "UsbCamera.h"

#include "Provider/GenICamProvider.h"

#include <gtest/gtest.h>

#include <chrono>

namespace GenICam
{

using namespace ProviderTest;

namespace
{

struct UsbBench
{
    explicit UsbBench(const UsbBehaviour& behaviour = {}, ZltErrorType opened = ZltErrorSuccess)
    {
        Plug(behaviour);
        EXPECT_EQ(ZltErrorSuccess, provider.Startup(events));
        const std::vector<ZltApi::CameraPtr> cameras = CamerasOf(provider);
        camera = cameras.at(cameras.size() - 1); // those on networks come first
        EXPECT_EQ(opened, camera->Open(ZltApi::AccessModeFull));
    }
    ~UsbBench() { provider.Shutdown(); }

    EventLog events;
    GenICamProvider provider;
    ZltApi::CameraPtr camera;
};

} // namespace

TEST(GenICamUsb, Identity)
{
    UsbBench bench;
    std::string text;
    ZltApi::TransportLayerPtr layer;
    ASSERT_EQ(ZltErrorSuccess, bench.camera->GetTransportLayer(layer));
    EXPECT_EQ("KTR USB3 Vision", (layer->GetName(text), text));
    EXPECT_EQ("Test-0123456789AB-", (bench.camera->GetID(text), text));
    EXPECT_EQ("UsbBench", Get<std::string>(bench.camera, "DeviceModelName"));
    EXPECT_EQ(ZltErrorSuccess, Set(bench.camera, "Width", std::int64_t{0x0123}));
    Bytes bytes(4);
    EXPECT_EQ(ZltErrorSuccess, bench.camera->ReadMemory(WidthRegister, bytes));
    EXPECT_EQ((Bytes{0x23, 0x01, 0, 0}), bytes);
    ASSERT_EQ(ZltErrorSuccess, bench.camera->Close());
    EXPECT_EQ(ZltErrorDeviceNotOpen, bench.camera->ReadMemory(WidthRegister, bytes));
    ASSERT_EQ(ZltErrorSuccess, bench.camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(0x0123, Get<std::int64_t>(bench.camera, "Width"));
}

TEST(GenICamUsb, MemoryRoundTheLimits)
{
    for (const std::uint32_t longestCommand : {1024U, 2048U})
    {
        UsbBench bench({longestCommand, 1024});
        for (const std::size_t length : {1U, 3U, 1003U, 1004U, 1005U, 1012U, 2000U, 20000U})
        {
            Bytes expected(length + 2); // with a neighbour on either side
            for (std::size_t i = 1; i <= length; ++i)
            {
                expected[i] = static_cast<unsigned char>(i * 7 + i / 256 + 1);
            }
            const Bytes data(expected.begin() + 1, expected.end() - 1);
            EXPECT_EQ(ZltErrorSuccess, bench.camera->WriteMemory(FreeMemory + 1, data)) << length;
            Bytes all(length + 2);
            EXPECT_EQ(ZltErrorSuccess, bench.camera->ReadMemory(FreeMemory, all)) << length;
            EXPECT_TRUE(expected == all) << length << " bytes, commands of " << longestCommand;
            if (length == 2000)
            {
                EXPECT_EQ(ZltErrorSuccess, Set(bench.camera, "FileAccessBuffer", data));
                EXPECT_TRUE(data == Get<Bytes>(bench.camera, "FileAccessBuffer"));
            }
        }
    }
}

TEST(GenICamUsb, Streams)
{
    for (const UsbBehaviour& row :
         {UsbBehaviour(), UsbBehaviour{1024, 1024, 638, 2}, UsbBehaviour{1024, 1024, 640, 0, 1024}})
    {
        UsbBench bench(row);
        const auto log = std::make_shared<FrameLog>(bench.camera);
        ASSERT_EQ(ZltErrorSuccess, Start(bench.camera, log));
        EXPECT_TRUE(log->WaitFor(6));
        ASSERT_EQ(ZltErrorSuccess, bench.camera->StopContinuousImageAcquisition());
        for (const FrameLog::Entry& frame : log->Entries())
        {
            const bool isWhole = row.missing == 0 || frame.id % 2 == 0;
            EXPECT_EQ(isWhole ? ZltApi::FrameStatusComplete : ZltApi::FrameStatusIncomplete, frame.status) << frame.id;
            std::size_t same = 0;
            for (std::size_t i = 0; i < frame.image.size(); ++i)
            {
                same += frame.image[i] == UsbPixel(frame.id, i % row.width, i / row.width) ? 1U : 0U;
            }
            EXPECT_TRUE(!isWhole || (same == row.width * 480 && same == frame.image.size()))
                << row.width << " " << same;
        }
    }
}

TEST(GenICamUsb, UnpluggedInTheMiddleOfAStream)
{
    UsbBench bench;
    const ZltApi::FeaturePtr width = FeatureOf(*bench.camera, "Width");
    const auto log = std::make_shared<FrameLog>(bench.camera);
    ASSERT_EQ(ZltErrorSuccess, Start(bench.camera, log));
    ASSERT_TRUE(log->WaitFor(3));
    Plug(std::nullopt);
    ASSERT_EQ(bench.camera, bench.events.Next(ZltApi::UpdateTriggerUnplugged));
    CheckLost(bench.camera, width, log);
}

TEST(GenICamUsb, HeldByAnotherProgram)
{
    UsbBench bench({1024, 1024, 640, 0, 0, true}, ZltErrorInvalidAccess);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(ZltErrorInvalidAccess, bench.camera->Open(ZltApi::AccessModeFull));
    EXPECT_GT(std::chrono::milliseconds(500), std::chrono::steady_clock::now() - begin);
}

TEST(GenICamUsb, LeftAcquiringByAnotherHost)
{
    UsbBench bench({1024, 1024, 640, 0, 0, false, true});
    EXPECT_FALSE(IsWritable(bench.camera, "Width"));
    ASSERT_EQ(ZltErrorSuccess, bench.camera->StopContinuousImageAcquisition());
    Bytes acquisition(4, 1);
    EXPECT_EQ(ZltErrorSuccess, bench.camera->ReadMemory(AcquisitionRegister, acquisition));
    EXPECT_EQ(Bytes(4), acquisition);
    EXPECT_EQ(ZltErrorSuccess, Set(bench.camera, "Width", std::int64_t{512}));
    const auto log = std::make_shared<FrameLog>(bench.camera);
    ASSERT_EQ(ZltErrorSuccess, Start(bench.camera, log));
    ASSERT_TRUE(log->WaitFor(3));
    EXPECT_EQ(512U * 480U, log->Entries().front().image.size());
}

} // namespace GenICam

int main(int argc, char** argv)
{
    GenICam::EnterOwnNetwork();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
