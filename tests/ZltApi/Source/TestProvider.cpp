// A provider with two transport layers and a stream of events, or with the one fault that its kind names.
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

class TestLayer final : public TransportLayer
{
public:
    explicit TestLayer(int number) : m_name(std::string(Kind) + std::to_string(number)) {}
    ZltErrorType GetVendor(std::string&) const override { return ZltErrorNotImplemented; }
    ZltErrorType GetName(std::string& name) const override { return name = m_name, ZltErrorSuccess; }

private:
    std::string m_name;
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
        if (Kind != "StartupFails" && !m_running.exchange(true))
        {
            m_thread = std::thread([this, &events] { SendEvents(events); });
        }
        return Kind == "StartupFails" ? ZltErrorTransportLayer : ZltErrorSuccess;
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

    ZltErrorType GetTransportLayers(std::vector<TransportLayerPtr>& layers) override
    {
        layers = {std::make_shared<TestLayer>(1), nullptr, std::make_shared<TestLayer>(2)};
        return Kind == "ListsThrow" ? throw std::string(Kind) : ZltErrorSuccess;
    }
    ZltErrorType GetInterfaces(std::vector<InterfacePtr>&) override { return ZltErrorNotSupported; }
    ZltErrorType GetCameras(std::vector<CameraPtr>&) override { throw 42; }

private:
    void SendEvents(ProviderEvents& events)
    {
        for (; m_running; std::this_thread::sleep_for(std::chrono::microseconds(200)))
        {
            events.CameraListChanged(nullptr, UpdateTriggerStateChanged);
            events.InterfaceListChanged(nullptr, UpdateTriggerUnplugged);
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
    return Kind == "InstanceThrows" ? throw std::string(Kind) : Kind == "NullInstance" ? nullptr : &provider;
}
