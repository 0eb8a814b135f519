// Real cameras that come, go and are used by somebody else.
#include "Bench.h"

#include "Aravis/Ask.h"
#include "Aravis/DevicePtr.h"
#include "Aravis/ObjectPtr.h"
#include "Discovery/ControlPort.h"

#include <csignal>
#include <thread>

namespace GenICam
{

TEST(GenICamLifecycle, Identity)
{
    Bench bench(std::make_unique<FakeCamera>(std::vector<std::string>())); // with its own description
    std::vector<ZltApi::TransportLayerPtr> layers;
    ASSERT_EQ(ZltErrorSuccess, bench.provider.GetTransportLayers(layers));
    ASSERT_EQ(2U, layers.size());
    std::string text;
    for (const auto& [layer, name] : {std::pair(layers[0], "KTR GigE Vision"), std::pair(layers[1], "KTR USB3 Vision")})
    {
        EXPECT_EQ("Korvath", (layer->GetVendor(text), text));
        EXPECT_EQ(name, (layer->GetName(text), text));
    }
    const ZltApi::CameraPtr camera = bench.Camera();
    ASSERT_TRUE(camera);
    ZltApi::TransportLayerPtr layer;
    EXPECT_EQ(layers[0], (camera->GetTransportLayer(layer), layer)) << "the same object, by which hosts compare";
    EXPECT_EQ("Fake", (camera->GetModel(text), text));
    EXPECT_EQ("BENCH1", (camera->GetSerialNumber(text), text));
    EXPECT_EQ("Fake", (camera->GetName(text), text)) << "without a name of its own";
    EXPECT_EQ("lo", (camera->GetInterfaceID(text), text));
    std::vector<ZltApi::InterfacePtr> interfaces;
    ASSERT_EQ(ZltErrorSuccess, bench.provider.GetInterfaces(interfaces));
    EXPECT_EQ("lo", (interfaces.front()->GetID(text), text));
    EXPECT_EQ(1U, Permitted(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(ZltErrorInvalidCall, camera->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(0U, Permitted(camera));
    EXPECT_EQ(10000.0, Get<double>(camera, "ExposureTimeAbs"));
    EXPECT_EQ("Continuous", Get<std::string>(camera, "AcquisitionMode"));
    const std::string name = "North line";
    EXPECT_EQ(ZltErrorSuccess, camera->WriteMemory(0xE8, Bytes(name.begin(), name.end())));
    const ZltApi::FeaturePtr feature = FeatureOf(*camera, "Width");
    ASSERT_EQ(ZltErrorSuccess, camera->Close());
    EXPECT_EQ(ZltErrorDeviceNotOpen, camera->Close());
    std::int64_t width = 5;
    EXPECT_EQ(ZltErrorDeviceNotOpen, feature->GetValue(width));
    EXPECT_EQ(0U, bench.events.Count()) << "a program is not told of what it does itself";
    bench.provider.Shutdown();
    EXPECT_EQ(ZltErrorNotFound, camera->Open(ZltApi::AccessModeFull)) << "what has gone stays gone";
    ASSERT_EQ(ZltErrorSuccess, bench.provider.Startup(bench.events));
    EXPECT_EQ(name, (bench.Camera()->GetName(text), text));
}

TEST(GenICamLifecycle, NoNetwork)
{
    if (g_hasOwnNetwork)
    {
        SetLoopback(false);
    }
    EventLog events;
    GenICamProvider provider;
    ASSERT_EQ(ZltErrorSuccess, provider.Startup(events));
    EXPECT_EQ(ZltErrorInvalidCall, provider.Startup(events));
    std::vector<ZltApi::CameraPtr> cameras = CamerasOf(provider);
    std::vector<ZltApi::InterfacePtr> interfaces;
    EXPECT_EQ(ZltErrorSuccess, provider.GetInterfaces(interfaces));
    EXPECT_TRUE(!g_hasOwnNetwork || (cameras.empty() && interfaces.size() == 1)) << "nothing but USB";
    provider.Shutdown();
    EXPECT_EQ(ZltErrorNotStarted, provider.GetCameras(cameras));
    if (g_hasOwnNetwork)
    {
        SetLoopback(true);
    }
}

TEST(GenICamLifecycle, HeldByAnotherProgram)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Camera();
    Process holder({"/proc/self/exe", "--hold"});
    ASSERT_EQ(camera, bench.events.Next(ZltApi::UpdateTriggerStateChanged));
    EXPECT_EQ(0U, Permitted(camera));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(ZltErrorInvalidAccess, camera->Open(ZltApi::AccessModeFull));
    EXPECT_GT(std::chrono::milliseconds(500), std::chrono::steady_clock::now() - begin);
    EXPECT_EQ(0, holder.End()) << "it has had the camera all the time";
    ASSERT_EQ(camera, bench.events.Next(ZltApi::UpdateTriggerStateChanged));
    EXPECT_EQ(1U, Permitted(camera));
    EXPECT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
}

TEST(GenICamLifecycle, KilledInTheMiddleOfAStream)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Small();
    const ZltApi::FeaturePtr width = FeatureOf(*camera, "Width");
    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
    ASSERT_TRUE(log->WaitFor(10));
    bench.fake.reset();
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(camera, bench.events.Next(ZltApi::UpdateTriggerUnplugged));
    EXPECT_GT(std::chrono::seconds(8), std::chrono::steady_clock::now() - begin) << "Aravis needs six to notice";
    EXPECT_FALSE(bench.Camera());
    EXPECT_EQ(0U, Permitted(camera));
    CheckLost(camera, width, log);
    bench.fake = std::make_unique<FakeCamera>();
    const ZltApi::CameraPtr back = bench.events.Next(ZltApi::UpdateTriggerPluggedIn);
    ASSERT_TRUE(back);
    EXPECT_NE(camera, back);
    const auto next = std::make_shared<FrameLog>(back);
    ASSERT_EQ(back, bench.Small());
    ASSERT_EQ(ZltErrorSuccess, Start(back, next));
    EXPECT_TRUE(next->WaitFor(10));
}

// A camera that was asleep for longer than its heartbeat allows has given itself free, and is there all the time.
TEST(GenICamLifecycle, ControlLost)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Opened();
    bench.fake->Signal(SIGSTOP);
    std::this_thread::sleep_for(std::chrono::seconds(4));
    bench.fake->Signal(SIGCONT);
    ASSERT_EQ(camera, bench.events.Next(ZltApi::UpdateTriggerUnplugged));
    const ZltApi::CameraPtr back = bench.events.Next(ZltApi::UpdateTriggerPluggedIn);
    ASSERT_TRUE(back);
    EXPECT_EQ(ZltErrorSuccess, back->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(ZltErrorSuccess, camera->Close());
    EXPECT_EQ(0, Get<std::int64_t>(back, "GainRaw")) << "closing what was lost does no harm";
}

// As a computer that sleeps: it wakes up and finds that another one has taken the camera.
TEST(GenICamLifecycle, ControlTaken)
{
    const FakeCamera fake;
    Process sleeper({"/proc/self/exe", "--hold"});
    while (ControlPort(FakeAddress).ReadControlState() != ControlState::Held)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    sleeper.Signal(SIGSTOP);
    std::this_thread::sleep_for(std::chrono::seconds(5)); // longer than its heartbeat allows
    const ObjectPtr<GInetAddress> other(g_inet_address_new_from_string("127.0.0.2"));
    const ObjectPtr<GInetAddress> address(g_inet_address_new_from_string(FakeAddress));
    const DevicePtr taker(Ask(arv_gv_device_new, other.get(), address.get()));
    ASSERT_TRUE(arv_gv_device_is_controller(ARV_GV_DEVICE(taker.get())));
    sleeper.Signal(SIGCONT);
    EXPECT_EQ(1, sleeper.End()) << "the camera is lost to it";
}

TEST(GenICamLifecycle, ResetLeavesAndReturns)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Opened();
    ASSERT_EQ(ZltErrorSuccess, RunCommand(camera, "DeviceReset"));
    EXPECT_FALSE(bench.Camera()) << "gone at once, although it still answers";
    ASSERT_EQ(camera, bench.events.Next(ZltApi::UpdateTriggerUnplugged));
    std::this_thread::sleep_for(std::chrono::seconds(3));
    EXPECT_FALSE(bench.Camera()) << "not taken for the camera that has started anew";
    bench.fake.reset();
    std::this_thread::sleep_for(std::chrono::seconds(3));
    bench.fake = std::make_unique<FakeCamera>();
    const ZltApi::CameraPtr back = bench.events.Next(ZltApi::UpdateTriggerPluggedIn);
    ASSERT_TRUE(back);
    EXPECT_EQ(ZltErrorSuccess, back->Open(ZltApi::AccessModeFull));
}

} // namespace GenICam
