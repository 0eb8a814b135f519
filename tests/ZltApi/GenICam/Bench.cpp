// A provider and the camera that it finds; the tests' main function.
#include "Bench.h"

#include "Device/GenICamCamera.h"

#include <csignal>
#include <cstring>
#include <stdexcept>

namespace GenICam
{

bool g_hasOwnNetwork = false;

Bench::Bench(std::unique_ptr<FakeCamera> camera) : fake(std::move(camera))
{
    EXPECT_EQ(ZltErrorSuccess, provider.Startup(events));
}

ZltApi::CameraPtr Bench::Camera()
{
    std::string id;
    for (const ZltApi::CameraPtr& camera : CamerasOf(provider))
    {
        if (camera->GetID(id) == ZltErrorSuccess && id == FakeId)
        {
            return camera;
        }
    }
    return nullptr;
}

ZltApi::CameraPtr Bench::Opened()
{
    ZltApi::CameraPtr camera = Camera();
    if (!camera || camera->Open(ZltApi::AccessModeFull) != ZltErrorSuccess)
    {
        throw std::runtime_error("No camera was found, or it does not open.");
    }
    return camera;
}

ZltApi::CameraPtr Bench::Small()
{
    ZltApi::CameraPtr camera = Opened();
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "Width", std::int64_t{64}));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "Height", std::int64_t{48}));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "AcquisitionFramePeriod", std::int64_t{2000}));
    return camera;
}

} // namespace GenICam

int main(int argc, char** argv)
{
    // As another program that has the camera open, until it is told to end. Tells whether it has lost the camera by
    // then.
    if (argc == 2 && std::strcmp(argv[1], "--hold") == 0)
    {
        sigset_t signals;
        ::sigemptyset(&signals);
        ::sigaddset(&signals, SIGTERM);
        ::sigprocmask(SIG_BLOCK, &signals, nullptr);
        GenICam::FoundDevice device;
        device.address = GenICam::FakeAddress;
        const auto camera = std::make_shared<GenICam::GenICamCamera>(device, ProviderBase::CameraIdentity(), [] {});
        camera->Open(ZltApi::AccessModeFull);
        int number = 0;
        ::sigwait(&signals, &number);
        ProviderTest::Set(camera, "GainRaw", std::int64_t{1});
        return camera->IsLost() ? 1 : 0;
    }
    GenICam::g_hasOwnNetwork = GenICam::EnterOwnNetwork();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
