// Succeeds when the providers beside the library that it runs with bring two cameras.
#include "ZltApi/ZltSystem.h"

int main()
{
    ZltApi::ZltSystem& system = ZltApi::ZltSystem::GetInstance();
    std::vector<ZltApi::CameraPtr> cameras;
    const bool found = system.Startup() == ZltErrorSuccess && system.GetCameras(cameras) == ZltErrorSuccess;
    system.Shutdown();
    return found && cameras.size() == 2 ? 0 : 1;
}
