// The interface between the camera API and its providers: shared libraries that bring transport layers and cameras.
#pragma once

#include "ZltApi/Camera.h"
#include "ZltApi/Types.h"

#include <cstdint>
#include <vector>

namespace ZltApi
{

// Grows whenever a class that crosses the library boundary changes shape.
constexpr std::uint32_t ProviderInterfaceVersion = 1;

// Where a provider reports plug, unplug and access changes. Called on the provider's own threads.
class ProviderEvents
{
public:
    virtual ~ProviderEvents() = default;

    virtual void CameraListChanged(const CameraPtr& camera, UpdateTriggerType reason) noexcept = 0;
    virtual void InterfaceListChanged(const InterfacePtr& interface, UpdateTriggerType reason) noexcept = 0;
};

// One provider. No operation throws, and after Shutdown has returned no event and no frame callback is running or will
// come. The same object can be started again.
class Provider
{
public:
    virtual ~Provider() = default;

    virtual ZltErrorType Startup(ProviderEvents& events) = 0;
    virtual void Shutdown() = 0;

    virtual ZltErrorType GetTransportLayers(std::vector<TransportLayerPtr>& transportLayers) = 0;
    virtual ZltErrorType GetInterfaces(std::vector<InterfacePtr>& interfaces) = 0;
    virtual ZltErrorType GetCameras(std::vector<CameraPtr>& cameras) = 0;
};

} // namespace ZltApi

// A provider library exports these two functions with C linkage:
//
//   std::uint32_t ZltProviderVersion();         returns ProviderInterfaceVersion as the library was compiled with
//   ZltApi::Provider* ZltProviderInstance();    the library's one provider; the library keeps the ownership
#define ZLT_PROVIDER_EXPORT extern "C" __attribute__((visibility("default")))
