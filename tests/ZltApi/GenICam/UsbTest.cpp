// Real USB3 Vision cameras, as far as a camera in software can stand for them.
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
    explicit UsbBench(const UsbBehaviour& behaviour = {})
    {
        Plug(std::make_shared<UsbCamera>(behaviour));
        EXPECT_EQ(ZltErrorSuccess, provider.Startup(events));
        std::string id;
        for (const ZltApi::CameraPtr& found : CamerasOf(provider))
        {
            camera = found->GetID(id) == ZltErrorSuccess && id == UsbId ? found : camera;
        }
    }
    ~UsbBench()
    {
        provider.Shutdown();
        Plug(nullptr);
    }

    EventLog events;
    GenICamProvider provider;
    ZltApi::CameraPtr camera;
};

} // namespace

TEST(GenICamUsb, Identity)
{
    UsbBench bench;
    ASSERT_TRUE(bench.camera);
    const ZltApi::CameraPtr& camera = bench.camera;
    std::string text;
    ZltApi::TransportLayerPtr layer;
    ASSERT_EQ(ZltErrorSuccess, camera->GetTransportLayer(layer));
    EXPECT_EQ("KTR USB3 Vision", (layer->GetName(text), text));
    EXPECT_EQ(UsbModel, (camera->GetModel(text), text));
    EXPECT_EQ(1U, Permitted(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(UsbModel, Get<std::string>(camera, "DeviceModelName"));
    EXPECT_EQ(640, Get<std::int64_t>(camera, "Width"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "Width", std::int64_t{0x0123}));
    Bytes bytes(4);
    EXPECT_EQ(ZltErrorSuccess, camera->ReadMemory(WidthRegister, bytes));
    EXPECT_EQ((Bytes{0x23, 0x01, 0, 0}), bytes);
    ASSERT_EQ(ZltErrorSuccess, camera->Close());
    EXPECT_EQ(ZltErrorDeviceNotOpen, camera->ReadMemory(WidthRegister, bytes));
    ASSERT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(0x0123, Get<std::int64_t>(camera, "Width"));
}

TEST(GenICamUsb, MemoryRoundTheLimits)
{
    const auto pattern = [](std::size_t length)
    {
        Bytes bytes(length);
        for (std::size_t i = 0; i < length; ++i)
        {
            bytes[i] = static_cast<unsigned char>(1 + i * 7 + i / 256);
        }
        return bytes;
    };
    for (const std::uint32_t longestCommand : {1024U, 2048U})
    {
        UsbBehaviour behaviour;
        behaviour.longestCommand = longestCommand;
        UsbBench bench(behaviour);
        ASSERT_EQ(ZltErrorSuccess, bench.camera->Open(ZltApi::AccessModeFull));
        for (const std::size_t length : {1U, 3U, 1003U, 1004U, 1005U, 1012U, 2000U, 20000U})
        {
            const Bytes data = pattern(length);
            EXPECT_EQ(ZltErrorSuccess, bench.camera->WriteMemory(FreeMemory + 1, data)) << length;
            Bytes expected(length + 2); // with a neighbour on either side
            std::copy(data.begin(), data.end(), expected.begin() + 1);
            Bytes all(length + 2);
            EXPECT_EQ(ZltErrorSuccess, bench.camera->ReadMemory(FreeMemory, all)) << length;
            EXPECT_TRUE(expected == all) << length << " bytes, commands of " << longestCommand;
        }
        EXPECT_EQ(ZltErrorSuccess, Set(bench.camera, "FileAccessBuffer", pattern(2000)));
        EXPECT_TRUE(pattern(2000) == Get<Bytes>(bench.camera, "FileAccessBuffer"));
    }
}

TEST(GenICamUsb, Streams)
{
    struct Row
    {
        std::uint32_t width;
        std::uint16_t linePadding;
        std::size_t missing; // of every second frame
    };
    for (const Row& row : {Row{640, 0, 0}, Row{638, 2, 0}, Row{640, 0, 1024}})
    {
        SCOPED_TRACE(testing::Message() << row.width << " + " << row.linePadding << " - " << row.missing);
        UsbBehaviour behaviour;
        behaviour.width = row.width;
        behaviour.linePadding = row.linePadding;
        behaviour.missing = row.missing;
        UsbBench bench(behaviour);
        ASSERT_EQ(ZltErrorSuccess, bench.camera->Open(ZltApi::AccessModeFull));
        for (int round = 0; round < 2; ++round)
        {
            const auto log = std::make_shared<FrameLog>(bench.camera);
            ASSERT_EQ(ZltErrorSuccess, Start(bench.camera, log));
            EXPECT_TRUE(log->WaitFor(6));
            ASSERT_EQ(ZltErrorSuccess, bench.camera->StopContinuousImageAcquisition());
            for (const FrameLog::Entry& frame : log->Entries())
            {
                if (row.missing > 0 && frame.id % 2 == 1)
                {
                    EXPECT_EQ(ZltApi::FrameStatusIncomplete, frame.status) << frame.id;
                    continue;
                }
                ASSERT_EQ(ZltApi::FrameStatusComplete, frame.status) << frame.id;
                ASSERT_EQ(std::size_t{row.width} * 480, frame.image.size());
                bool isRight = true;
                for (std::size_t i = 0; i < frame.image.size(); ++i)
                {
                    isRight = isRight && frame.image[i] == UsbCamera::Pixel(frame.id, i % row.width, i / row.width);
                }
                ASSERT_TRUE(isRight) << frame.id;
            }
        }
    }
}

TEST(GenICamUsb, Unplugged)
{
    for (const bool isStreaming : {true, false})
    {
        UsbBench bench;
        ASSERT_EQ(ZltErrorSuccess, bench.camera->Open(ZltApi::AccessModeFull));
        const ZltApi::FeaturePtr width = FeatureOf(*bench.camera, "Width");
        const auto log = std::make_shared<FrameLog>(bench.camera);
        if (isStreaming)
        {
            ASSERT_EQ(ZltErrorSuccess, Start(bench.camera, log));
            ASSERT_TRUE(log->WaitFor(3));
        }
        Plug(nullptr);
        ASSERT_EQ(bench.camera, bench.events.Next(ZltApi::UpdateTriggerUnplugged));
        CheckLost(bench.camera, width, log);
        Plug(std::make_shared<UsbCamera>(UsbBehaviour()));
        const ZltApi::CameraPtr back = bench.events.Next(ZltApi::UpdateTriggerPluggedIn);
        ASSERT_TRUE(back);
        EXPECT_EQ(ZltErrorSuccess, back->Open(ZltApi::AccessModeFull));
    }
}

TEST(GenICamUsb, HeldByAnotherProgram)
{
    UsbBehaviour behaviour;
    behaviour.isBusy = true;
    UsbBench bench(behaviour);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(ZltErrorInvalidAccess, bench.camera->Open(ZltApi::AccessModeFull));
    EXPECT_GT(std::chrono::milliseconds(500), std::chrono::steady_clock::now() - begin);
}

TEST(GenICamUsb, LeftAcquiringByAnotherHost)
{
    UsbBehaviour behaviour;
    behaviour.isLeftAcquiring = true;
    UsbBench bench(behaviour);
    ASSERT_EQ(ZltErrorSuccess, bench.camera->Open(ZltApi::AccessModeFull));
    EXPECT_FALSE(IsWritable(bench.camera, "Width"));
    ASSERT_EQ(ZltErrorSuccess, bench.camera->StopContinuousImageAcquisition());
    Bytes acquisition(4);
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
