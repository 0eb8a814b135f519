// USB3 Vision cameras, from the bus up.
#include "FakeCamera.h"
#include "UsbCamera.h"

#include "Provider/GenICamProvider.h"

#include <gtest/gtest.h>

namespace GenICam
{

using namespace ProviderTest;

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

    EventLog events;
    GenICamProvider provider;
    ZltApi::CameraPtr camera;
};

TEST(GenICamUsb, OpensAndOpensAgain)
{
    UsbBench bench;
    std::string text;
    ZltApi::TransportLayerPtr layer;
    ASSERT_EQ(ZltErrorSuccess, bench.camera->GetTransportLayer(layer));
    EXPECT_EQ("KTR USB3 Vision", (layer->GetName(text), text));
    EXPECT_EQ(ZltErrorSuccess, Set(bench.camera, "Width", std::int64_t{0x0123}));
    Bytes bytes(4);
    EXPECT_EQ(ZltErrorSuccess, bench.camera->ReadMemory(WidthRegister, bytes));
    EXPECT_EQ((Bytes{0x23, 0x01, 0, 0}), bytes);
    EXPECT_EQ(ZltErrorSuccess, bench.camera->Close());
    EXPECT_EQ(ZltErrorDeviceNotOpen, bench.camera->ReadMemory(WidthRegister, bytes));
    EXPECT_EQ(ZltErrorSuccess, bench.camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(0x0123, Get<std::int64_t>(bench.camera, "Width"));
}

TEST(GenICamUsb, MemoryRoundTheLimits)
{
    for (const std::uint32_t longestCommand : {1024U, 2048U})
    {
        UsbBench bench({longestCommand, 1024});
        for (const std::size_t length : {1U, 3U, 1003U, 1004U, 1005U, 1012U, 2000U, 20000U})
        {
            SCOPED_TRACE(testing::Message() << length << " bytes, commands of " << longestCommand);
            const Bytes data = UsbImage(1, length, 251);
            Bytes expected(length + 2, MemoryFill); // with a neighbour on either side
            std::copy(data.begin(), data.end(), expected.begin() + 1);
            EXPECT_EQ(ZltErrorSuccess, bench.camera->WriteMemory(FreeMemory + 1, data));
            Bytes all(length + 2);
            EXPECT_EQ(ZltErrorSuccess, bench.camera->ReadMemory(FreeMemory, all));
            EXPECT_TRUE(expected == all);
            EXPECT_TRUE(length != 2000 || (Set(bench.camera, "FileAccessBuffer", data) == ZltErrorSuccess &&
                                           Get<Bytes>(bench.camera, "FileAccessBuffer") == data));
        }
    }
}

TEST(GenICamUsb, Streams)
{
    for (const UsbBehaviour& row :
         {UsbBehaviour{}, UsbBehaviour{1024, 1024, 638, 2}, UsbBehaviour{1024, 1024, 640, 0, 1024}})
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
            EXPECT_TRUE(!isWhole || frame.image == UsbImage(frame.id, std::uint64_t{row.width} * 480, row.width))
                << row.width << " pixels a line, frame " << frame.id;
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

} // namespace GenICam

int main(int argc, char** argv)
{
    GenICam::EnterOwnNetwork();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
