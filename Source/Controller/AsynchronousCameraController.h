// The one object between the user interface and the cameras.
#pragma once

#include "ApiController.h"
#include "CameraAccessInfo.h"
#include "CameraInfo.h"
#include "CameraListUpdates.h"
#include "CorrectionSet.h"
#include "SensorDefect.h"

#include <QList>
#include <QObject>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <atomic>
#include <functional>
#include <initializer_list>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace KTR::DPC
{
class DpcAdapter;
} // namespace KTR::DPC

class CorrectionSetData;
class CustomListView;
class ImageDoubleBuffer;
class QImage;
class TreeModel;

// Keeps the list of usable cameras, opens and closes the selected one, starts and stops its stream.
//
// Made and destroyed on the GUI thread; in between it is moved to a thread of its own, which must have ended before it
// is destroyed. Any thread may call the public operations, unless they say otherwise: each holds the list lock from end
// to end, so that none sees the work of another half done. What an operation has to tell is emitted when it has let go
// of the lock. No operation waits for the GUI thread's event loop. A caller must not hold the image buffer's lock.
class AsynchronousCameraController : public QObject
{
    Q_OBJECT

public:
    // Starts the camera API and fills the list; without the API the list stays empty. cameraIndex and cameraId: the
    // selected camera, -1 and empty for none. The view and the buffer are borrowed until the end.
    AsynchronousCameraController(CustomListView* cameraListView, int cameraIndex, const QString& cameraId, bool unused,
                                 ImageDoubleBuffer& imageBuffer);
    // Writes what is known of the cameras to the cache, ends the stream, closes the camera and stops the API.
    ~AsynchronousCameraController() override;

    bool GetIfStreaming() const { return m_streaming; }
    bool GetIfDebayering() const { return m_debayering; }
    // Sensor size in pixels as the correction set adapter gave it, 0 before.
    int getSensorWidth() const { return m_sensorWidth; }
    int getSensorHeight() const { return m_sensorHeight; }

    bool CheckIfCamerasAreOnTheList() const;
    bool IfCameraSupportDpc() const;
    // The kinds of defects that the camera can store (DefectUiType values, appended), whether it supports the
    // correction, and the sensor size in pixels. Leaves all three alone when the camera is not on the list.
    void GetEntryCamerasSetup(std::vector<int>& availableDefects, bool& dpcSupported, QPoint& sensorSize);
    // The same kinds, without a word when the camera does not support the correction.
    void GetAvaiableDefects(std::vector<int>& availableDefects);
    // Sensor size in pixels; (0, 0) when there is no camera.
    QPoint GetMaxWidthHeight() const;
    // For the kind "Full" the model, the serial number and the ID, for any other the model. Empty without a camera.
    QString GetCameraName(const QString& kind) const;
    QString GetCameraId() const;
    QString GetCurrentPixelFormat() const;
    QString getCurrentCameraFamilyName() const;

    // Makes the camera at this position of the list, with this ID, the selected one and opens it. GUI thread, with the
    // stream stopped. A camera that cannot be opened is not reported here; starting its stream will fail.
    void SetNewIndex(int index, const QString& serial);
    // Makes the list anew.
    void TryRefreshList();
    // GUI thread.
    void StopTimers();
    // Throws a KTR::System::Exception when the camera has no such command or refuses it.
    void ResetCamera();

    // Returns whether there was a stream to stop.
    bool StopIfStreaming();

    // Settings. Ranges and values go to the options panel by signals; what the camera does not have is locked or hidden
    // there. What a camera refuses is dropped. The first six belong to the GUI thread, whose timers they start and stop
    // or whose stream they pause.
    void SetCameraSettings();
    // Writes the values of gamma, gain, black level and exposure that SetCameraSettings read first.
    void RestoreSettingsToDefault();
    // mode: 0 off, 1 once, 2 continuous.
    void SetExposureMode(int mode);
    void SetGainMode(int mode);
    // Switches mirroring off, so that image and sensor coordinates agree; true when it was on.
    bool SetOffReverseXY();
    // true: Bayer frames are shown in colour; false: as grey mosaic.
    void SetDebayeringOnOff(bool on);

    // Minimum and maximum, in microseconds and in the camera's unit of gain; zeros when there is none.
    std::pair<double, double> GetExposureRange();
    std::pair<double, double> GetGainRange();
    // Microseconds. The last known value when the camera does not tell.
    double GetCurrentExposure();
    // An exposure that the panel has sent reaches the camera now and not with the monitor's next round.
    void WritePendingExposure();
    // 0 and a message when the camera does not tell.
    double GetCurrentGain();
    // Degrees Celsius; -999 without temperature control.
    double GetCurrentTemperatureSetpointValue();
    bool IsTemperatureControlAvailable() const { return m_temperatureControlAvailable; }

    // Correction sets, see also the slots of the same name. GUI thread.
    // Brings back the factory content of the set, with the stream stopped.
    void RestoreSetToDefault(const QString& name);
    // The set that the camera applies after start-up, asked and chosen under the running stream. Empty when there is
    // none; choosing throws a KTR::System::Exception when the camera refuses or has no such set.
    std::string GetDefaultCorrectionSet();
    void SetDefaultCorrectionSet(const std::string& name);

    // Conversions into 32-bit images of the acquisition's size: a mosaic as grey values, pixel for pixel, and any
    // format of the camera in colour. colorMatrix: nine floats, row by row, or null. What cannot be converted leaves
    // the image as it is.
    void TransformBayer8Image(unsigned char* source, QImage& img);
    void TransformBayer10Image(unsigned char* source, QImage& img);
    void TransformBayer12Image(unsigned char* source, QImage& img);
    void TransformBayer12PackedImage(unsigned char* source, QImage& img);
    void CopyToImage(unsigned char* buffer, unsigned int format, QImage& image, const float* colorMatrix);

Q_SIGNALS:
    void SendPixmapToArea();
    void ErrorSignal(QString message);
    void CamerasListChangedSignal();
    void CameraDisconnected();
    void SendPixelFormats(QStringList formats, QString current);
    void SendSlidersValues(double minimum, double maximum, double value, int type);
    void SendLockSliders(int type, bool locked);
    void SendCloseCameraIfBusy();
    void SendCurrentExposureMode(int mode);
    void SendCurrentGainMode(int mode);
    void SendUpdatedSLiderValue(double value, int type);
    void SendComboboxValues(QStringList values, QString currentValue, int type);
    void SendTemperatureControlEnabled(bool enabled);
    void SendTemperatureControlStateValue(QString value);
    void SendTemperatureSetpointMode(QString value);
    void SendActiveSetpointValue(QString val);
    void SendSetpointActivationDone();
    void SendTemperatureStatusUnstable(QString status);
    void SendNucModeValues(QStringList values, QString currentValue);
    void SencNucDatasetDescription(QString description);
    void SendNucControlEnabled(bool enabled);

public Q_SLOTS:
    // Toggles between streaming and not. Does nothing without a selected camera.
    void StartStopAcquisition();
    // Takes the next frame of the running acquisition. status: a ZltApi::FrameStatus. Controller's thread.
    void OnFrameReady(int status);
    void OnCameraListChanged(ZltApi::CameraPtr camera, ZltApi::UpdateTriggerType reason);
    // Correction sets of the selected camera. GUI thread, which they keep for as long as the camera takes; pending
    // events run first, then the stream stops until the end. Every failure goes out as a message, when the stream runs
    // again and before the call returns, which then has nothing to return.
    // Appends the camera's sets, which belong to the list from then on, and takes note of the sensor's size. A camera
    // without the correction has none, without a word.
    void GetCorrectionSets(QList<CorrectionSetData*>* list);
    KTR::DPC::SensorDefectList ReadCorrectionSet(const QString& name, TreeModel* unused);
    // Replaces the set by the list's defects of those kinds that the camera stores. Returns what the camera holds
    // then, also when the write failed half-way.
    KTR::DPC::SensorDefectList WriteCorrectionSet(const std::string& name,
                                                  const std::map<std::string, double>& metadata, TreeModel* model);
    // Switches the correction with this set on if it was off, and off if it was on.
    void SetDpcOnOff(const QString& name);
    // By the entry's name; takes force with the restart of the stream.
    void SetPixelFormat(const QString& name);
    // slider: 0 gamma, 1 gain, 2 exposure, 3 black level, 4 temperature setpoint. An exposure is written by the
    // monitor.
    void UpdateSliderFeatures(double value, int slider);
    // number: 5 setpoint selector, 6 control mode, 7 setpoint mode.
    void UpdateComboboxFeatures(const QString& text, int number);
    // Waits up to 5 s for the camera, while the thread's events go on.
    void OnActivateSetpoint();
    void SetNucModeValue(const QString& text);
    // Version of the camera API. Throws std::exception when it cannot be asked.
    QString GetVersion() const;

private Q_SLOTS:
    void ExposureSliderAutoChange();
    void GainSliderAutoChange();
    void MonitorExposureTimeAndTemperature();
    void UpdateCameraList();
    void SetTemperatureSetpointActivateTimeout();

private:
    // One operation: holds the list lock. Operations nest; at the end of the outermost one, after the lock is released,
    // what was announced meanwhile is emitted in order.
    class Operation
    {
    public:
        explicit Operation(AsynchronousCameraController& controller);
        ~Operation();
        Operation(const Operation&) = delete;
        Operation& operator=(const Operation&) = delete;

    private:
        AsynchronousCameraController& m_controller;
    };

    // Within an operation only.
    void Announce(std::function<void()> emission);
    void AnnounceLostSelection();
    void AnnounceMessage(const QString& message);
    void AnnounceError(const QString& message);

    void StartUp();
    ZltApi::CameraPtr CurrentCamera() const;

    int FindSelectedCamera() const;
    void CloseSelectedCamera();
    void CheckIfListHasChanged();
    void AddCamera(const ZltApi::CameraPtr& camera);
    void RemoveCamera(const ZltApi::CameraPtr& camera);
    bool CheckIfCameraOccuredInFileList(CameraInfo& info) const;
    void CheckAccessAndDPC(const ZltApi::CameraPtr& camera, bool& accessible, bool& dpcSupported,
                           bool& accessChecked) const;
    void CheckAccessState(const ZltApi::CameraPtr& camera);

    void StartAcquisition();
    void StopAcquisition();
    void ConnectFrames();
    // False when the frame cannot be shown.
    bool ShowFrame(ZltApi::Frame& frame);
    void Convert(unsigned char* source, unsigned int format, QImage& image);
    void CopyMosaic(unsigned char* source, unsigned int monoFormat, QImage& img);

    // Runs beside the GUI thread and touches the camera alone; the user is told its messages afterwards.
    using SetWork = std::function<void(KTR::DPC::DpcAdapter&, const boost::shared_ptr<KTR::DPC::CorrectionSet>&,
                                       QStringList& messages)>;
    void WorkOnSet(const std::string& name, const SetWork& work);
    // Within an operation only.
    void TellFailure(const std::function<void()>& work);

    ZltApi::CameraPtr ListedCamera() const;
    std::optional<double> SendSlider(const ZltApi::Feature& feature, int slider);
    void SendPlainSlider(const ZltApi::CameraPtr& camera, int slider, std::optional<double>& defaultValue);
    void SendAutoMode(const ZltApi::CameraPtr& camera, const char* name,
                      void (AsynchronousCameraController::*signal)(int));
    // These two tell whether the camera has all of their features.
    bool SendTemperatureControl(const ZltApi::CameraPtr& camera);
    bool SendNuc(const ZltApi::CameraPtr& camera);
    void SetAutoMode(const char* name, int mode, QTimer& timer);
    void SendAutoValue(const char* modeName, std::initializer_list<const char*> valueNames, int slider);
    void MonitorControlState(const ZltApi::CameraPtr& camera);
    void SendActiveSetpoint(const ZltApi::Feature& feature);
    void WaitForSetpoint(const ZltApi::Feature& activate);
    // Within an operation only.
    void CheckFeaturesWritable();

    int m_cameraIndex;
    std::atomic<int> m_sensorWidth{0};
    std::atomic<int> m_sensorHeight{0};
    std::atomic<bool> m_cameraBusyReported{false};
    std::atomic<bool> m_debayering{true};
    std::atomic<bool> m_streaming{false};
    std::atomic<bool> m_exposurePending{false};
    // As read from this camera, for restoring; nothing before. GUI thread. Exposures in microseconds.
    std::optional<double> m_defaultGamma;
    std::optional<double> m_defaultGain;
    std::optional<double> m_defaultBlackLevel;
    std::optional<double> m_defaultExposure; // only the first reading
    std::atomic<double> m_exposureValue{0.0};
    std::string m_cameraId;
    // Without a parent, so that they stay on the GUI thread when the controller moves.
    QTimer m_exposureAutoTimer;
    QTimer m_gainAutoTimer;
    QTimer m_monitorTimer;
    ApiController m_api;
    std::vector<ZltApi::CameraPtr> m_cameras; // in the API's order
    ZltApi::CameraPtr m_currentCamera;
    ImageDoubleBuffer& m_imageBuffer;
    mutable std::recursive_mutex m_cameraListMutex; // the list lock
    int m_operationDepth = 0;
    std::vector<std::function<void()>> m_announcements;
    std::vector<CameraInfo> m_cameraInfos;
    std::vector<CameraAccessInfo> m_cameraAccessInfos;
    CameraListUpdates m_listUpdates;
    std::atomic<bool> m_temperatureControlAvailable{false};
    std::atomic<bool> m_nucAvailable{false};
    std::atomic<bool> m_setpointModeIsAuto{false};
    std::atomic<bool> m_setpointActivationTimedOut{false};
    QString m_lastControlState;
};
