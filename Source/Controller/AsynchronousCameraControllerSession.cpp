// The controller's session with one camera: selecting, asking, streaming.
#include "AsynchronousCameraController.h"

#include "CameraFeatures.h"
#include "DpcAdapterManager.h"
#include "Exception.h"
#include "FrameObserver.h"
#include "ImageDoubleBuffer.h"
#include "ZltCamera.h"

#include <boost/make_shared.hpp>

namespace
{

using ZltApi::CameraPtr;

constexpr int MonitorInterval = 500; // milliseconds

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

boost::shared_ptr<KTR::DPC::CameraAbstraction> Abstraction(const CameraPtr& camera)
{
    return boost::make_shared<KTR::DPC::ZltCamera>(camera);
}

} // namespace

ZltApi::CameraPtr AsynchronousCameraController::CurrentCamera() const
{
    const std::lock_guard lock(m_cameraListMutex);
    return m_currentCamera;
}

bool AsynchronousCameraController::CheckIfCamerasAreOnTheList() const
{
    const std::lock_guard lock(m_cameraListMutex);
    return (m_cameraIndex < static_cast<int>(m_cameras.size()) || m_cameras.empty()) && m_currentCamera;
}

// What follows talks to the camera without the lock, on a pointer of its own.

bool AsynchronousCameraController::IfCameraSupportDpc() const
{
    const CameraPtr camera = CurrentCamera();
    return camera && KTR::DPC::DpcAdapterManager::IsCompatible(Abstraction(camera));
}

void AsynchronousCameraController::GetEntryCamerasSetup(std::vector<int>& availableDefects, bool& dpcSupported,
                                                        QPoint& sensorSize)
{
    if (CheckIfCamerasAreOnTheList())
    {
        dpcSupported = IfCameraSupportDpc();
        sensorSize = GetMaxWidthHeight();
        GetAvaiableDefects(availableDefects);
    }
}

QPoint AsynchronousCameraController::GetMaxWidthHeight() const
{
    if (!CheckIfCamerasAreOnTheList())
    {
        return {};
    }
    const CameraPtr camera = CurrentCamera();
    return {static_cast<int>(CameraFeatures::Read<std::int64_t>(camera, "WidthMax")),
            static_cast<int>(CameraFeatures::Read<std::int64_t>(camera, "HeightMax"))};
}

QString AsynchronousCameraController::GetCameraName(const QString& kind) const
{
    const std::lock_guard lock(m_cameraListMutex);
    if (!CheckIfCamerasAreOnTheList() || m_cameraIndex < 0)
    {
        return {};
    }
    std::string model;
    std::string serial;
    std::string id;
    m_currentCamera->GetModel(model);
    m_currentCamera->GetSerialNumber(serial);
    m_currentCamera->GetID(id);
    return Text(kind == QLatin1String("Full") ? model + "-" + serial + "(" + id + ")" : model);
}

QString AsynchronousCameraController::GetCameraId() const
{
    const CameraPtr camera = CurrentCamera();
    std::string id;
    if (camera)
    {
        camera->GetID(id);
    }
    return Text(id);
}

QString AsynchronousCameraController::GetCurrentPixelFormat() const
{
    CameraPtr camera;
    {
        const std::lock_guard lock(m_cameraListMutex);
        if (CheckIfCamerasAreOnTheList() && m_cameraIndex >= 0 && !m_cameras.empty())
        {
            camera = m_currentCamera;
        }
    }
    return Text(CameraFeatures::Read<std::string>(camera, "PixelFormat"));
}

QString AsynchronousCameraController::getCurrentCameraFamilyName() const
{
    return Text(CameraFeatures::Read<std::string>(CurrentCamera(), "DeviceFamilyName"));
}

void AsynchronousCameraController::ResetCamera()
{
    const CameraPtr camera = CurrentCamera();
    if (!CameraFeatures::Find(camera, "DeviceReset"))
    {
        throw KTR::System::Exception("Cannot reset camera: DeviceReset feature not available!", true);
    }
    Abstraction(camera)->RunFeatureCommand("DeviceReset");
}

void AsynchronousCameraController::SetNewIndex(int index, const QString& serial)
{
    const Operation operation(*this);
    m_cameraId.clear();
    m_api.CloseCamera();
    m_cameraBusyReported = false;
    m_debayering = true;
    m_exposureValue = 0.0;
    m_exposurePending = false;
    m_defaultGamma.reset();
    m_defaultGain.reset();
    m_defaultBlackLevel.reset();
    m_defaultExposure.reset();
    m_setpointModeIsAuto = false;
    m_lastControlState.clear();
    m_cameraIndex = index;
    m_cameraId = serial.toStdString();
    m_currentCamera = nullptr;
    if (index >= 0 && index < static_cast<int>(m_cameras.size()))
    {
        m_currentCamera = m_cameras[static_cast<std::size_t>(index)];
        if (m_api.OpenCamera(m_currentCamera) == ZltErrorSuccess)
        {
            m_monitorTimer.start(MonitorInterval);
        }
        m_temperatureControlAvailable =
            CameraFeatures::Find(m_currentCamera, "SensorTemperatureControlState") != nullptr;
        m_nucAvailable = CameraFeatures::Find(m_currentCamera, "NUCMode") != nullptr;
    }
}

void AsynchronousCameraController::StartStopAcquisition()
{
    const Operation operation(*this);
    if (m_cameraIndex < 0)
    {
        return;
    }
    if (m_streaming)
    {
        StopAcquisition();
    }
    else if (m_cameras.empty())
    {
        CheckFeaturesWritable();
    }
    else
    {
        StartAcquisition();
    }
}

bool AsynchronousCameraController::StopIfStreaming()
{
    const Operation operation(*this);
    const bool wasStreaming = m_streaming;
    if (wasStreaming)
    {
        StartStopAcquisition();
    }
    return wasStreaming;
}

void AsynchronousCameraController::StopAcquisition()
{
    m_streaming = false; // first, so that queued frames fall through
    m_api.StopContinuousImageAcquisition();
    m_api.ClearFrameQueue();
    if (m_currentCamera)
    {
        m_currentCamera->ReleaseAllFrames();
    }
    m_imageBuffer.SetDefImages();
    CheckFeaturesWritable();
}

void AsynchronousCameraController::StartAcquisition()
{
    std::string id;
    if (CheckIfCamerasAreOnTheList())
    {
        m_cameras[static_cast<std::size_t>(m_cameraIndex)]->GetID(id);
    }
    if (!CheckIfCamerasAreOnTheList() || id != m_cameraId)
    {
        AnnounceError(tr("Camera can't be opened, \n because could be in use by another application, or isn't on the "
                         "list"));
        m_cameraIndex = -1;
        return;
    }
    const ZltErrorType started = m_api.StartContinuousImageAcquisition();
    if (started == ZltErrorSuccess && !m_imageBuffer.SetImages(m_api.GetWidth(), m_api.GetHeight()))
    {
        StopAcquisition(); // no memory for images of the size that the camera claims
        AnnounceError(tr("Cannot open camera stream"));
        return;
    }
    if (started == ZltErrorSuccess)
    {
        m_streaming = true; // before the first frame can come: one that falls through stays in the queue
        ConnectFrames();
    }
    else if (started == ZltErrorNotSupported)
    {
        AnnounceError(tr("Cannot open camera stream"));
    }
    else if (!m_cameraBusyReported)
    {
        AnnounceError(tr("Camera is in use by another application"));
        m_cameraBusyReported = true;
    }
    CheckFeaturesWritable();
}

// A start that failed without telling has left the observer of the acquisition before it, or none.
void AsynchronousCameraController::ConnectFrames()
{
    auto* const observer = qobject_cast<FrameObserver*>(m_api.GetFrameObserver());
    if (observer != nullptr)
    {
        connect(observer, &FrameObserver::FrameReceivedSignal, this, &AsynchronousCameraController::OnFrameReady,
                Qt::ConnectionType(Qt::AutoConnection | Qt::UniqueConnection));
    }
}
