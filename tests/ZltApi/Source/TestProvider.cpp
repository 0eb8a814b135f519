// A provider with two cameras and a stream of events, or with the one fault that its kind names.
#include "ZltApi/Provider.h"

#include <atomic>
#include <chrono>
#include <string>
#include <string_view>
#include <thread>

using namespace ZltApi;

#ifndef TEST_PROVIDER_VERSION
#define TEST_PROVIDER_VERSION ProviderInterfaceVersion
#endif

std::uint32_t NowhereDefined();

namespace
{

constexpr std::string_view Kind = TEST_PROVIDER_KIND;
constexpr ZltErrorType None = ZltErrorNotImplemented;

class TestCamera final : public Camera
{
public:
    explicit TestCamera(std::string id) : m_id(std::move(id)) {}

    ZltErrorType GetID(std::string& id) const override { return id = m_id, ZltErrorSuccess; }
    ZltErrorType GetName(std::string&) const override { return None; }
    ZltErrorType GetModel(std::string&) const override { return None; }
    ZltErrorType GetSerialNumber(std::string&) const override { return None; }
    ZltErrorType GetInterfaceID(std::string&) const override { return None; }
    ZltErrorType GetTransportLayer(TransportLayerPtr&) const override { return None; }
    ZltErrorType GetPermittedAccess(std::uint32_t&) const override { return None; }
    ZltErrorType Open(AccessMode) override { return None; }
    ZltErrorType Close() override { return None; }
    ZltErrorType GetStreams(std::vector<StreamPtr>&) override { return None; }
    ZltErrorType GetFeatures(std::vector<FeaturePtr>&) override { return None; }
    ZltErrorType GetFeatureByName(const char*, FeaturePtr&) override { return None; }
    ZltErrorType ReadMemory(std::uint64_t, std::vector<unsigned char>&) override { return None; }
    ZltErrorType WriteMemory(std::uint64_t, const std::vector<unsigned char>&) override { return None; }
    ZltErrorType StartContinuousImageAcquisition(std::uint32_t, const IFrameObserverPtr&, FrameAllocationMode) override
    {
        return None;
    }
    ZltErrorType StopContinuousImageAcquisition() override { return None; }
    ZltErrorType QueueFrame(const FramePtr&) override { return None; }
    ZltErrorType ReleaseAllFrames() override { return None; }

private:
    std::string m_id;
};

class TestProvider final : public Provider
{
public:
    ~TestProvider() override { StopEvents(); }

    ZltErrorType Startup(ProviderEvents& events) override
    {
        if (Kind == "StartupThrows")
        {
            throw 42;
        }
        if (Kind == "StartupFails")
        {
            return ZltErrorTransportLayer;
        }
        if (!m_running.exchange(true))
        {
            m_thread = std::thread([this, &events] { SendEvents(events); });
        }
        return ZltErrorSuccess;
    }

    // A rogue goes on after it was told to stop.
    void Shutdown() override
    {
        if (Kind != "Rogue")
        {
            StopEvents();
        }
        if (Kind == "ShutdownThrows")
        {
            throw 42;
        }
    }

    ZltErrorType GetTransportLayers(std::vector<TransportLayerPtr>&) override { return ZltErrorSuccess; }
    ZltErrorType GetInterfaces(std::vector<InterfacePtr>&) override { throw 42; }
    ZltErrorType GetCameras(std::vector<CameraPtr>& cameras) override
    {
        const std::string kind(Kind);
        cameras = {std::make_shared<TestCamera>(kind + "1"), nullptr, std::make_shared<TestCamera>(kind + "2")};
        if (Kind == "ListsThrow")
        {
            throw std::string(kind);
        }
        return ZltErrorSuccess;
    }

private:
    void SendEvents(ProviderEvents& events)
    {
        while (m_running)
        {
            events.CameraListChanged(std::make_shared<TestCamera>("event"), UpdateTriggerStateChanged);
            events.InterfaceListChanged(nullptr, UpdateTriggerUnplugged);
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    }

    void StopEvents()
    {
        m_running = false;
        if (m_thread.joinable())
        {
            m_thread.join();
        }
    }

    std::atomic<bool> m_running{false};
    std::thread m_thread;
};

} // namespace

ZLT_PROVIDER_EXPORT std::uint32_t ZltProviderVersion()
{
    return TEST_PROVIDER_VERSION;
}

ZLT_PROVIDER_EXPORT Provider* ZltProviderInstance()
{
    static TestProvider provider;
    if (Kind == "InstanceThrows")
    {
        throw std::string("no instance");
    }
    return Kind == "NullInstance" ? nullptr : &provider;
}
