// Entry point of the camera API: starting and stopping the providers, and what they announce.
#include "ZltApi/ZltSystem.h"

#include "ProviderLibrary.h"
#include "ProviderSearch.h"
#include "SystemGate.h"
#include "ZltApi/Provider.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <mutex>
#include <new>

namespace ZltApi
{

namespace
{

// Turns whatever a provider throws into a result.
template <class Call> ZltErrorType Guarded(const Call& call) noexcept
{
    try
    {
        return call();
    }
    catch (const std::bad_alloc&)
    {
        return ZltErrorResource;
    }
    catch (...)
    {
        return ZltErrorUnexpectedFault;
    }
}

} // namespace

class ZltSystem::Impl
{
public:
    ZltErrorType Startup();
    ZltErrorType Shutdown();

    template <class Item>
    ZltErrorType Collect(std::vector<std::shared_ptr<Item>>& items,
                         ZltErrorType (Provider::*list)(std::vector<std::shared_ptr<Item>>&));

    SystemGate& GetGate() { return m_gate; }

private:
    Provider* FindProvider(const std::filesystem::path& file);

    std::mutex m_lifecycle; // held by Startup and Shutdown from end to end
    SystemGate m_gate;
    // Changed only while the gate is closed, read only inside it.
    std::vector<Provider*> m_providers;
    // Never unloaded: a program may keep its pointers to cameras for as long as it likes.
    std::map<std::filesystem::path, ProviderLibrary> m_libraries;
};

ZltErrorType ZltSystem::Impl::Startup()
{
    if (SystemGate::IsInsideCallback())
    {
        return ZltErrorInvalidCall;
    }
    const std::lock_guard<std::mutex> lock(m_lifecycle);
    if (!m_providers.empty())
    {
        return ZltErrorSuccess;
    }
    const std::vector<std::filesystem::path> files = FindProviderFiles();
    m_providers.reserve(files.size());
    for (const std::filesystem::path& file : files)
    {
        Provider* provider = nullptr;
        const ZltErrorType result = Guarded(
            [&]
            {
                provider = FindProvider(file);
                return provider != nullptr ? provider->Startup(m_gate) : ZltErrorNotFound;
            });
        if (result == ZltErrorSuccess)
        {
            m_providers.push_back(provider);
        }
    }
    if (m_providers.empty())
    {
        return ZltErrorNoTransportLayer;
    }
    m_gate.Open();
    return ZltErrorSuccess;
}

ZltErrorType ZltSystem::Impl::Shutdown()
{
    if (SystemGate::IsInsideCallback())
    {
        return ZltErrorInvalidCall;
    }
    const std::lock_guard<std::mutex> lock(m_lifecycle);
    if (!m_gate.Close())
    {
        return ZltErrorNotStarted;
    }
    for (; !m_providers.empty(); m_providers.pop_back())
    {
        Guarded(
            [this]
            {
                m_providers.back()->Shutdown();
                return ZltErrorSuccess;
            });
    }
    return ZltErrorSuccess;
}

// Null for a provider that another file has brought already, as hard links do.
Provider* ZltSystem::Impl::FindProvider(const std::filesystem::path& file)
{
    Provider* const provider = m_libraries.try_emplace(file, file).first->second.GetProvider();
    return std::find(m_providers.begin(), m_providers.end(), provider) == m_providers.end() ? provider : nullptr;
}

template <class Item>
ZltErrorType ZltSystem::Impl::Collect(std::vector<std::shared_ptr<Item>>& items,
                                      ZltErrorType (Provider::*list)(std::vector<std::shared_ptr<Item>>&))
{
    const SystemGate::Passage passage(m_gate);
    if (!passage)
    {
        return ZltErrorNotStarted;
    }
    std::vector<std::shared_ptr<Item>> collected;
    for (Provider* const provider : m_providers)
    {
        std::vector<std::shared_ptr<Item>> announced;
        if (Guarded([&] { return (provider->*list)(announced); }) == ZltErrorSuccess)
        {
            std::copy_if(announced.begin(), announced.end(), std::back_inserter(collected),
                         [](const std::shared_ptr<Item>& item) { return item != nullptr; });
        }
    }
    items = std::move(collected);
    return ZltErrorSuccess;
}

// Never destroyed: a provider may still report events while the process ends.
ZltSystem& ZltSystem::GetInstance()
{
    static ZltSystem& instance = *new ZltSystem;
    return instance;
}

ZltSystem::ZltSystem() : m_impl(std::make_unique<Impl>()) {}

ZltSystem::~ZltSystem() = default;

ZltErrorType ZltSystem::Startup()
{
    return Guarded([this] { return m_impl->Startup(); });
}

ZltErrorType ZltSystem::Shutdown()
{
    return Guarded([this] { return m_impl->Shutdown(); });
}

ZltErrorType ZltSystem::RegisterCameraListObserver(const ICameraListObserverPtr& observer)
{
    return Guarded([&] { return m_impl->GetGate().Register(observer); });
}

ZltErrorType ZltSystem::UnregisterCameraListObserver(const ICameraListObserverPtr& observer)
{
    return Guarded([&] { return m_impl->GetGate().Unregister(observer); });
}

ZltErrorType ZltSystem::RegisterInterfaceListObserver(const IInterfaceListObserverPtr& observer)
{
    return Guarded([&] { return m_impl->GetGate().Register(observer); });
}

ZltErrorType ZltSystem::UnregisterInterfaceListObserver(const IInterfaceListObserverPtr& observer)
{
    return Guarded([&] { return m_impl->GetGate().Unregister(observer); });
}

ZltErrorType ZltSystem::GetTransportLayers(std::vector<TransportLayerPtr>& transportLayers)
{
    return Guarded([&] { return m_impl->Collect(transportLayers, &Provider::GetTransportLayers); });
}

ZltErrorType ZltSystem::GetInterfaces(std::vector<InterfacePtr>& interfaces)
{
    return Guarded([&] { return m_impl->Collect(interfaces, &Provider::GetInterfaces); });
}

ZltErrorType ZltSystem::GetCameras(std::vector<CameraPtr>& cameras)
{
    return Guarded([&] { return m_impl->Collect(cameras, &Provider::GetCameras); });
}

ZltErrorType ZltSystem::QueryVersion(VersionInfo& version) const
{
    version = {ZLTAPI_VERSION_MAJOR, ZLTAPI_VERSION_MINOR, ZLTAPI_VERSION_PATCH};
    return ZltErrorSuccess;
}

} // namespace ZltApi
