#include "ApiController.h"

#include "CameraObserver.h"
#include "FrameObserver.h"
#include "InterfaceObserver.h"
#include "TransportLayerFilter.h"

#include <algorithm>
#include <stdexcept>

namespace
{

constexpr std::uint32_t FrameBufferCount = 3;

// Lets the camera find the largest packet that the network carries. Cameras without the feature skip this.
void AdjustPacketSize(ZltApi::Stream& stream)
{
    ZltApi::FeaturePtr adjust;
    if (stream.GetFeatureByName("GVSPAdjustPacketSize", adjust) != ZltErrorSuccess || !adjust ||
        adjust->RunCommand() != ZltErrorSuccess)
    {
        return;
    }
    bool done = false;
    while (adjust->IsCommandDone(done) == ZltErrorSuccess && !done)
    {
    }
}

} // namespace

ApiController::ApiController() : m_system(ZltApi::ZltSystem::GetInstance()) {}

ApiController::~ApiController() = default;

ZltErrorType ApiController::StartUp()
{
    const ZltErrorType started = m_system.Startup();
    if (started != ZltErrorSuccess)
    {
        return started;
    }
    m_interfaceObserver = std::make_shared<InterfaceObserver>();
    m_system.RegisterInterfaceListObserver(m_interfaceObserver);
    m_cameraObserver = std::make_shared<CameraObserver>();
    m_system.RegisterCameraListObserver(m_cameraObserver);

    std::vector<ZltApi::TransportLayerPtr> transportLayers;
    const ZltErrorType listed = m_system.GetTransportLayers(transportLayers);
    if (listed != ZltErrorSuccess)
    {
        return listed;
    }
    m_supportedTransportLayers.clear();
    for (const ZltApi::TransportLayerPtr& layer : transportLayers)
    {
        std::string vendor;
        std::string name;
        if (layer->GetVendor(vendor) == ZltErrorSuccess && layer->GetName(name) == ZltErrorSuccess &&
            TransportLayerFilter::TLisSupported(vendor, name))
        {
            m_supportedTransportLayers.push_back(layer);
        }
    }
    return listed;
}

ZltErrorType ApiController::ShutDown()
{
    return m_system.Shutdown();
}

std::vector<ZltApi::CameraPtr> ApiController::GetCameraList()
{
    std::vector<ZltApi::CameraPtr> cameras;
    if (m_system.GetCameras(cameras) != ZltErrorSuccess)
    {
        return {};
    }
    const auto isForeign = [this](const ZltApi::CameraPtr& camera)
    {
        ZltApi::TransportLayerPtr layer;
        return camera->GetTransportLayer(layer) != ZltErrorSuccess ||
               std::find(m_supportedTransportLayers.begin(), m_supportedTransportLayers.end(), layer) ==
                   m_supportedTransportLayers.end();
    };
    cameras.erase(std::remove_if(cameras.begin(), cameras.end(), isForeign), cameras.end());
    return cameras;
}

ZltErrorType ApiController::OpenCamera(const ZltApi::CameraPtr& camera)
{
    if (camera->Open(ZltApi::AccessModeFull) == ZltErrorSuccess)
    {
        camera->StopContinuousImageAcquisition();
        camera->Close();
    }
    const ZltErrorType opened = camera->Open(ZltApi::AccessModeFull);
    if (opened != ZltErrorSuccess)
    {
        CloseCamera();
        return opened;
    }
    {
        const std::lock_guard lock(m_framePathMutex);
        m_camera = camera;
    }
    m_openStatus = ZltErrorSuccess;
    return opened;
}

ZltErrorType ApiController::CloseCamera()
{
    return m_camera ? m_camera->Close() : ZltErrorSuccess;
}

ZltErrorType ApiController::StartContinuousImageAcquisition()
{
    if (m_openStatus != ZltErrorSuccess)
    {
        return m_openStatus;
    }
    std::vector<ZltApi::StreamPtr> streams;
    if (!m_camera || m_camera->GetStreams(streams) != ZltErrorSuccess || streams.empty())
    {
        return ZltErrorNotSupported;
    }
    ZltApi::FeaturePtr mode;
    if (m_camera->GetFeatureByName("AcquisitionMode", mode) == ZltErrorSuccess)
    {
        mode->SetValue("Continuous");
    }
    AdjustPacketSize(*streams.front());
    StartStream();
    return m_openStatus;
}

ZltErrorType ApiController::StartStream()
{
    ZltErrorType result = SetValueIntMod2(m_camera, "Width", m_width);
    if (result == ZltErrorSuccess)
    {
        result = SetValueIntMod2(m_camera, "Height", m_height);
    }
    ZltApi::FeaturePtr format;
    if (result == ZltErrorSuccess)
    {
        result = m_camera->GetFeatureByName("PixelFormat", format);
    }
    if (result == ZltErrorSuccess)
    {
        std::int64_t value = 0;
        result = format->GetValue(value);
        if (result == ZltErrorSuccess)
        {
            m_pixelFormat = value;
        }
    }
    if (result == ZltErrorSuccess)
    {
        auto observer = std::make_shared<FrameObserver>(m_camera);
        {
            const std::lock_guard lock(m_framePathMutex);
            m_frameObserver.swap(observer);
        }
        result = m_camera->StartContinuousImageAcquisition(FrameBufferCount, m_frameObserver,
                                                           ZltApi::FrameAllocationAnnounced);
    }
    return result;
}

void ApiController::StopContinuousImageAcquisition()
{
    if (m_camera)
    {
        m_camera->StopContinuousImageAcquisition();
    }
}

ZltErrorType ApiController::SetValueIntMod2(const ZltApi::CameraPtr& camera, const char* name,
                                            std::atomic<std::int64_t>& out) const
{
    ZltApi::FeaturePtr feature;
    ZltErrorType result = camera->GetFeatureByName(name, feature);
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    std::int64_t increment = 0;
    if (result == ZltErrorSuccess)
    {
        result = feature->GetRange(minimum, maximum);
    }
    if (result == ZltErrorSuccess)
    {
        result = feature->GetIncrement(increment);
    }
    if (result != ZltErrorSuccess)
    {
        return result;
    }
    if (increment <= 0)
    {
        return ZltErrorInvalidValue;
    }
    std::int64_t value = maximum / increment * increment;
    if (value % 2 != 0)
    {
        value -= increment;
    }
    result = feature->SetValue(value);
    if (result == ZltErrorSuccess)
    {
        out = value;
    }
    return result;
}

std::shared_ptr<FrameObserver> ApiController::CurrentFrameObserver() const
{
    const std::lock_guard lock(m_framePathMutex);
    return m_frameObserver;
}

ZltApi::FramePtr ApiController::GetFrame()
{
    const std::shared_ptr<FrameObserver> observer = CurrentFrameObserver();
    return observer ? observer->GetFrame() : nullptr;
}

ZltErrorType ApiController::QueueFrame(const ZltApi::FramePtr& frame)
{
    ZltApi::CameraPtr camera;
    {
        const std::lock_guard lock(m_framePathMutex);
        camera = m_camera;
    }
    return camera ? camera->QueueFrame(frame) : ZltErrorDeviceNotOpen;
}

void ApiController::ClearFrameQueue()
{
    if (m_frameObserver)
    {
        m_frameObserver->ClearFrameQueue();
    }
}

QObject* ApiController::GetCameraObserver()
{
    return m_cameraObserver.get();
}

QObject* ApiController::GetFrameObserver()
{
    return m_frameObserver.get();
}

QObject* ApiController::GetInterfaceListObserver()
{
    return m_interfaceObserver.get();
}

std::string ApiController::ErrorCodeToMessage(ZltErrorType code)
{
    switch (code)
    {
    case ZltErrorSuccess:
        return "Success.";
    case ZltErrorUnexpectedFault:
        return "Unexpected fault in ZltApi or driver.";
    case ZltErrorNotStarted:
        return "API not started.";
    case ZltErrorNotFound:
        return "Not found.";
    case ZltErrorInvalidHandle:
        return "Invalid handle ";
    case ZltErrorDeviceNotOpen:
        return "Device not open.";
    case ZltErrorInvalidAccess:
        return "Invalid access.";
    case ZltErrorBadParameter:
        return "Bad parameter.";
    case ZltErrorWrongVersion:
        return "Wrong DLL version.";
    case ZltErrorMoreData:
        return "More data returned than memory provided.";
    case ZltErrorWrongType:
        return "Wrong type.";
    case ZltErrorInvalidValue:
        return "Invalid value.";
    case ZltErrorTimeout:
        return "Timeout.";
    case ZltErrorTransportLayer:
        return "TL error.";
    case ZltErrorResource:
        return "Resource not available.";
    case ZltErrorInvalidCall:
        return "Invalid call.";
    case ZltErrorNoTransportLayer:
        return "TL not loaded.";
    case ZltErrorNotImplemented:
        return "Not implemented.";
    case ZltErrorNotSupported:
        return "Not supported.";
    case ZltErrorFileOpen:
        break;
    }
    return "Unknown";
}

std::string ApiController::GetVersion() const
{
    ZltApi::VersionInfo version;
    if (m_system.QueryVersion(version) != ZltErrorSuccess)
    {
        throw std::runtime_error("The version of the camera API could not be read.");
    }
    return std::to_string(version.major) + "." + std::to_string(version.minor) + "." + std::to_string(version.patch);
}
