// The controller's start and end, and how its operations are kept apart.
#include "AsynchronousCameraController.h"

#include "CameraObserver.h"
#include "CamerasInfoWriterReader.h"
#include "CustomListView.h"
#include "InterfaceObserver.h"

#include <utility>

AsynchronousCameraController::AsynchronousCameraController(CustomListView* cameraListView, int cameraIndex,
                                                           const QString& cameraId, bool /*unused*/,
                                                           ImageDoubleBuffer& imageBuffer)
    : m_cameraIndex(cameraIndex),
      m_imageBuffer(imageBuffer),
      m_listUpdates(cameraListView->GetCamerasList())
{
    CamerasInfoWriterReader().GetInformationFromFile(m_cameraAccessInfos);
    const ZltErrorType started = m_api.StartUp();
    m_cameraId = cameraId.toStdString();
    if (started == ZltErrorSuccess)
    {
        StartUp();
    }
    connect(&m_exposureAutoTimer, &QTimer::timeout, this, &AsynchronousCameraController::ExposureSliderAutoChange);
    connect(&m_gainAutoTimer, &QTimer::timeout, this, &AsynchronousCameraController::GainSliderAutoChange);
    connect(&m_monitorTimer, &QTimer::timeout, this, &AsynchronousCameraController::MonitorExposureTimeAndTemperature);
}

void AsynchronousCameraController::StartUp()
{
    qRegisterMetaType<ZltApi::CameraPtr>("ZltApi::CameraPtr");
    qRegisterMetaType<ZltApi::UpdateTriggerType>("ZltApi::UpdateTriggerType");
    connect(qobject_cast<InterfaceObserver*>(m_api.GetInterfaceListObserver()), &InterfaceObserver::updateInterfaceList,
            this, &AsynchronousCameraController::UpdateCameraList);
    connect(qobject_cast<CameraObserver*>(m_api.GetCameraObserver()), &CameraObserver::CameraListChangedSignal, this,
            &AsynchronousCameraController::OnCameraListChanged);
    UpdateCameraList();
}

AsynchronousCameraController::~AsynchronousCameraController()
{
    CamerasInfoWriterReader().SetInformationToFile(m_cameraAccessInfos);
    StopTimers();
    StopIfStreaming();
    m_api.CloseCamera();
    m_api.ShutDown();
}

void AsynchronousCameraController::StopTimers()
{
    m_exposureAutoTimer.stop();
    m_gainAutoTimer.stop();
    m_monitorTimer.stop();
}

QString AsynchronousCameraController::GetVersion() const
{
    return QString::fromStdString(m_api.GetVersion());
}

AsynchronousCameraController::Operation::Operation(AsynchronousCameraController& controller) : m_controller(controller)
{
    m_controller.m_cameraListMutex.lock();
    ++m_controller.m_operationDepth;
}

AsynchronousCameraController::Operation::~Operation()
{
    std::vector<std::function<void()>> announcements;
    if (--m_controller.m_operationDepth == 0)
    {
        announcements.swap(m_controller.m_announcements);
    }
    m_controller.m_cameraListMutex.unlock();
    for (const std::function<void()>& emission : announcements)
    {
        emission();
    }
}

void AsynchronousCameraController::Announce(std::function<void()> emission)
{
    m_announcements.push_back(std::move(emission));
}

void AsynchronousCameraController::AnnounceLostSelection()
{
    Announce([this] { Q_EMIT CamerasListChangedSignal(); });
    Announce([this] { Q_EMIT SendCloseCameraIfBusy(); });
}

void AsynchronousCameraController::AnnounceMessage(const QString& message)
{
    Announce([this, message] { Q_EMIT ErrorSignal(message); });
}

void AsynchronousCameraController::AnnounceError(const QString& message)
{
    AnnounceMessage(message);
    Announce([this] { Q_EMIT SendCloseCameraIfBusy(); });
}
