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
    std::vector<ZltApi::CameraPtr> cameras;
    EXPECT_EQ(ZltErrorSuccess, provider.GetCameras(cameras));
    for (const ZltApi::CameraPtr& camera : cameras)
    {
        std::string id;
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
    if (!camera)
    {
        throw std::runtime_error("No camera was found.");
    }
    EXPECT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
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

std::uint32_t Permitted(const ZltApi::CameraPtr& camera)
{
    std::uint32_t access = 77;
    EXPECT_EQ(ZltErrorSuccess, camera->GetPermittedAccess(access));
    return access;
}

ZltErrorType Start(const ZltApi::CameraPtr& camera, const std::shared_ptr<FrameLog>& log, std::uint32_t buffers)
{
    return camera->StartContinuousImageAcquisition(buffers, log, ZltApi::FrameAllocationAnnounced);
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
