// Entry point of the camera API: start-up, camera and transport layer lists, list observers.
#pragma once

#include "ZltApi/Camera.h"
#include "ZltApi/Export.h"
#include "ZltApi/Observers.h"
#include "ZltApi/Types.h"

#include <memory>
#include <vector>

namespace ZltApi
{

// The one instance of the camera API in a process. Thread-safe; never throws.
class ZLTAPI_EXPORT ZltSystem
{
public:
    static ZltSystem& GetInstance();

    ZltSystem(const ZltSystem&) = delete;
    ZltSystem& operator=(const ZltSystem&) = delete;

    // Loads the providers from the directories in the environment variable ZLT_PROVIDER_PATH (separated by colons), or
    // else from the folder "zlt-providers" beside this library. A provider that is missing, broken or throws is
    // skipped. Returns ZltErrorNoTransportLayer when none is left. A second call without Shutdown in between returns
    // success.
    ZltErrorType Startup();

    // Closes what is open and unloads the providers. When it returns no callback is running or will come, and the
    // list observers are forgotten. Must not be called from within a callback.
    ZltErrorType Shutdown();

    // Before Startup these return ZltErrorNotStarted.
    ZltErrorType RegisterCameraListObserver(const ICameraListObserverPtr& observer);
    ZltErrorType UnregisterCameraListObserver(const ICameraListObserverPtr& observer);
    ZltErrorType RegisterInterfaceListObserver(const IInterfaceListObserverPtr& observer);
    ZltErrorType UnregisterInterfaceListObserver(const IInterfaceListObserverPtr& observer);
    ZltErrorType GetTransportLayers(std::vector<TransportLayerPtr>& transportLayers);
    ZltErrorType GetInterfaces(std::vector<InterfacePtr>& interfaces);
    ZltErrorType GetCameras(std::vector<CameraPtr>& cameras);

    // Works at any time.
    ZltErrorType QueryVersion(VersionInfo& version) const;

private:
    ZltSystem();
    ~ZltSystem();

    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace ZltApi
