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
    // else from the folder "zlt-providers" beside this library: every file that ends in ".so", sorted by name. A
    // provider that is missing, broken or throws is skipped. Returns ZltErrorNoTransportLayer when none is left. A
    // second call without Shutdown in between returns success. Within a list observer's callback: ZltErrorInvalidCall.
    ZltErrorType Startup();

    // Stops the providers, which closes what is open. When it returns no callback is running or will come, and the list
    // observers are forgotten. Pointers to cameras and the like stay valid: provider libraries remain loaded until the
    // process ends. ZltErrorNotStarted before Startup. Must not be called from within a callback; within a list
    // observer's it returns ZltErrorInvalidCall.
    ZltErrorType Shutdown();

    // Before Startup these return ZltErrorNotStarted, and leave their out arguments alone.

    // The observer is called on threads of the providers, from several at once if need be; it may call everything here
    // but Startup and Shutdown. What it throws is dropped. ZltErrorBadParameter for null, ZltErrorInvalidCall when it
    // is registered already.
    ZltErrorType RegisterCameraListObserver(const ICameraListObserverPtr& observer);
    ZltErrorType RegisterInterfaceListObserver(const IInterfaceListObserverPtr& observer);
    // No further callback begins; one that is running may go on for a while. ZltErrorNotFound when it is not
    // registered.
    ZltErrorType UnregisterCameraListObserver(const ICameraListObserverPtr& observer);
    ZltErrorType UnregisterInterfaceListObserver(const IInterfaceListObserverPtr& observer);
    // What all providers announce, in the order of the providers. A provider that fails contributes nothing.
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
