// A provider whose cameras and events a test decides.
#pragma once

#include "ZltApi/Provider.h"

#include <algorithm>
#include <string>
#include <thread>
#include <utility>

// A text that is empty cannot be read.
struct TestLayer final : ZltApi::TransportLayer
{
    TestLayer(std::string layerVendor, std::string layerName)
        : vendor(std::move(layerVendor)),
          name(std::move(layerName))
    {
    }
    ZltErrorType GetVendor(std::string& result) const override { return Tell(vendor, result); }
    ZltErrorType GetName(std::string& result) const override { return Tell(name, result); }
    static ZltErrorType Tell(const std::string& text, std::string& result)
    {
        return text.empty() ? ZltErrorTransportLayer : (result = text, ZltErrorSuccess);
    }

    const std::string vendor;
    const std::string name;
};

// Lives in a library that the camera API loads; the test finds the same object through the library's entry point.
class ListProvider final : public ZltApi::Provider
{
public:
    ZltErrorType Startup(ZltApi::ProviderEvents& events) override { return m_events = &events, ZltErrorSuccess; }
    void Shutdown() override { m_events = nullptr; }
    ZltErrorType GetTransportLayers(std::vector<ZltApi::TransportLayerPtr>& result) override
    {
        return result = layers, ZltErrorSuccess;
    }
    ZltErrorType GetInterfaces(std::vector<ZltApi::InterfacePtr>&) override { return ZltErrorSuccess; }
    ZltErrorType GetCameras(std::vector<ZltApi::CameraPtr>& result) override
    {
        return result = cameras, ZltErrorSuccess;
    }

    // On a thread of the provider's own, as always; returns when the observers have been told.
    void Report(const ZltApi::CameraPtr& camera, ZltApi::UpdateTriggerType reason)
    {
        std::thread([&] { m_events->CameraListChanged(camera, reason); }).join();
    }
    void ReportInterface()
    {
        std::thread([&] { m_events->InterfaceListChanged(nullptr, ZltApi::UpdateTriggerPluggedIn); }).join();
    }
    void Unplug(const ZltApi::CameraPtr& camera)
    {
        cameras.erase(std::remove(cameras.begin(), cameras.end(), camera), cameras.end());
        Report(camera, ZltApi::UpdateTriggerUnplugged);
    }

    const ZltApi::TransportLayerPtr good = std::make_shared<TestLayer>("Korvath", "Some KTR layer");
    const ZltApi::TransportLayerPtr foreign = std::make_shared<TestLayer>("Somebody", "KTR");
    std::vector<ZltApi::TransportLayerPtr> layers = {foreign, good};
    std::vector<ZltApi::CameraPtr> cameras;

private:
    ZltApi::ProviderEvents* m_events = nullptr;
};
