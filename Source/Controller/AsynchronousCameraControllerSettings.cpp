// The controller's camera settings: ranges and values for the options panel, changes from it, auto modes, temperature
// control and non-uniformity correction.
#include "AsynchronousCameraController.h"

#include "CameraFeatures.h"
#include "CameraStreamStateHolder.h"

#include <QCoreApplication>
#include <QThread>

#include <array>
#include <utility>

namespace
{

using ZltApi::CameraPtr;
using ZltApi::FeaturePtr;

// The numbers by which the settings go in signals and slots.
enum Control
{
    GammaSlider = 0,
    GainSlider = 1,
    ExposureSlider = 2,
    BlackLevelSlider = 3,
    SetpointValueSlider = 4,
    SetpointSelectorBox = 5,
    ControlModeBox = 6,
    SetpointModeBox = 7
};

constexpr int ModeAbsent = -1;
constexpr std::array<const char*, 3> ModeNames = {"Off", "Once", "Continuous"}; // by mode number

constexpr int AutoModeInterval = 500;    // milliseconds
constexpr int ActivationTimeout = 5000;  // milliseconds
constexpr int ActivationPollPause = 5;   // milliseconds
constexpr int MostSetpoints = 1000;      // of a camera that claims an absurd range
constexpr double NoTemperature = -999.0; // degrees Celsius

constexpr const char* ControlState = "SensorTemperatureControlState";
constexpr const char* ControlMode = "SensorTemperatureControlMode";
constexpr const char* SetpointMode = "SensorTemperatureSetpointMode";
constexpr const char* SetpointActive = "SensorTemperatureSetpointActive";
constexpr const char* SetpointValue = "SensorTemperatureSetpointValue";
constexpr const char* SetpointSelector = "SensorTemperatureSetpointSelector";

// The feature of a slider that is read, clamped and written alike; null for the others.
const char* PlainSliderFeature(int slider)
{
    switch (slider)
    {
    case GammaSlider:
        return "Gamma";
    case GainSlider:
        return "Gain";
    case BlackLevelSlider:
        return "BlackLevel";
    default:
        return nullptr;
    }
}

bool IsRunningMode(const QString& mode)
{
    return mode == QLatin1String("Once") || mode == QLatin1String("Continuous");
}

bool StartsWith(const QString& text, const char* beginning)
{
    return text.startsWith(QLatin1String(beginning), Qt::CaseInsensitive);
}

// Nothing when the camera does not tell.
std::optional<QString> IntegerText(const ZltApi::Feature& feature)
{
    std::int64_t value = 0;
    return feature.GetValue(value) == ZltErrorSuccess ? std::optional(QString::number(value)) : std::nullopt;
}

// The integers from the feature's minimum to its maximum.
QStringList Setpoints(const ZltApi::Feature& selector)
{
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    QStringList setpoints;
    if (selector.GetRange(minimum, maximum) == ZltErrorSuccess && minimum <= maximum)
    {
        // The maximum may be the greatest number there is.
        setpoints << QString::number(minimum);
        while (minimum < maximum && setpoints.size() < MostSetpoints)
        {
            setpoints << QString::number(++minimum);
        }
    }
    return setpoints;
}

} // namespace

// The camera when it is on the list and selected, or null.
CameraPtr AsynchronousCameraController::ListedCamera() const
{
    const std::lock_guard lock(m_cameraListMutex);
    return CheckIfCamerasAreOnTheList() && m_cameraIndex >= 0 ? m_currentCamera : nullptr;
}

// Range and value of a slider's feature; tells the value. Nothing is sent when the camera does not tell.
std::optional<double> AsynchronousCameraController::SendSlider(const ZltApi::Feature& feature, int slider)
{
    const std::optional<CameraFeatures::Range> range = CameraFeatures::ReadRange(feature);
    const std::optional<double> value = CameraFeatures::ReadNumber(feature);
    if (!range || !value)
    {
        return std::nullopt;
    }
    Q_EMIT SendSlidersValues(range->first, range->second, *value, slider);
    return value;
}

void AsynchronousCameraController::SetCameraSettings()
{
    const CameraPtr camera = ListedCamera();
    if (!camera)
    {
        return;
    }
    const CameraStreamStateHolder holder(*this);
    SendPlainSlider(camera, GammaSlider, m_defaultGamma);
    SendPlainSlider(camera, GainSlider, m_defaultGain);
    const FeaturePtr exposure = CameraFeatures::FindExposure(camera);
    if (!exposure)
    {
        Q_EMIT SendLockSliders(ExposureSlider, true);
    }
    else if (const std::optional<double> value = SendSlider(*exposure, ExposureSlider))
    {
        m_defaultExposure = m_defaultExposure.value_or(*value);
    }
    SendAutoMode(camera, "ExposureAuto", &AsynchronousCameraController::SendCurrentExposureMode);
    SendAutoMode(camera, "GainAuto", &AsynchronousCameraController::SendCurrentGainMode);
    SendPlainSlider(camera, BlackLevelSlider, m_defaultBlackLevel);
    if (const FeaturePtr format = CameraFeatures::Find(camera, "PixelFormat"))
    {
        Q_EMIT SendPixelFormats(CameraFeatures::AvailableEntries(*format), CameraFeatures::ReadText(*format));
    }
    m_temperatureControlAvailable = SendTemperatureControl(camera);
    m_nucAvailable = SendNuc(camera);
    Q_EMIT SendTemperatureControlEnabled(m_temperatureControlAvailable);
    Q_EMIT SendNucControlEnabled(m_nucAvailable);
}

void AsynchronousCameraController::SendPlainSlider(const CameraPtr& camera, int slider,
                                                   std::optional<double>& defaultValue)
{
    const FeaturePtr feature = CameraFeatures::Find(camera, PlainSliderFeature(slider));
    if (!feature)
    {
        Q_EMIT SendLockSliders(slider, true);
    }
    else if (const std::optional<double> value = SendSlider(*feature, slider))
    {
        defaultValue = value;
    }
}

void AsynchronousCameraController::SendAutoMode(const CameraPtr& camera, const char* name,
                                                void (AsynchronousCameraController::*signal)(int))
{
    const FeaturePtr feature = CameraFeatures::Find(camera, name);
    if (!feature)
    {
        Q_EMIT(this->*signal)(ModeAbsent);
        return;
    }
    const QString mode = CameraFeatures::ReadText(*feature);
    for (std::size_t number = 0; number < ModeNames.size(); ++number)
    {
        if (mode == QLatin1String(ModeNames[number]))
        {
            Q_EMIT(this->*signal)(static_cast<int>(number));
        }
    }
}

bool AsynchronousCameraController::SendTemperatureControl(const CameraPtr& camera)
{
    bool available = true;
    // Sends what a feature tells, or takes note that the camera lacks it.
    const auto tell = [&](const char* name, const auto& send)
    {
        const FeaturePtr feature = CameraFeatures::Find(camera, name);
        if (feature)
        {
            send(*feature);
        }
        available = available && feature;
    };
    tell(ControlState, [this](const ZltApi::Feature& feature)
         { Q_EMIT SendTemperatureControlStateValue(CameraFeatures::ReadText(feature)); });
    tell(SetpointMode,
         [this](const ZltApi::Feature& feature)
         {
             const QString mode = CameraFeatures::ReadText(feature);
             m_setpointModeIsAuto = StartsWith(mode, "Auto");
             Q_EMIT SendTemperatureSetpointMode(mode);
         });
    tell(SetpointActive, [this](const ZltApi::Feature& feature) { SendActiveSetpoint(feature); });
    tell(SetpointValue, [this](const ZltApi::Feature& feature) { SendSlider(feature, SetpointValueSlider); });
    tell(SetpointSelector,
         [this](const ZltApi::Feature& feature) {
             Q_EMIT SendComboboxValues(Setpoints(feature), IntegerText(feature).value_or(QString()),
                                       SetpointSelectorBox);
         });
    for (const auto& [name, box] : {std::pair{ControlMode, ControlModeBox}, std::pair{SetpointMode, SetpointModeBox}})
    {
        tell(name,
             [this, number = box](const ZltApi::Feature& feature) {
                 Q_EMIT SendComboboxValues(CameraFeatures::AvailableEntries(feature), CameraFeatures::ReadText(feature),
                                           number);
             });
    }
    return available;
}

bool AsynchronousCameraController::SendNuc(const CameraPtr& camera)
{
    const FeaturePtr mode = CameraFeatures::Find(camera, "NUCMode");
    if (mode)
    {
        Q_EMIT SendNucModeValues(CameraFeatures::AvailableEntries(*mode), CameraFeatures::ReadText(*mode));
    }
    const FeaturePtr description = CameraFeatures::Find(camera, "NUCDatasetActiveDescription");
    if (description)
    {
        Q_EMIT SencNucDatasetDescription(CameraFeatures::ReadText(*description));
    }
    return mode && description;
}

void AsynchronousCameraController::RestoreSettingsToDefault()
{
    const CameraPtr camera = ListedCamera();
    if (!camera)
    {
        return;
    }
    const CameraStreamStateHolder holder(*this);
    const auto restore = [this](const FeaturePtr& feature, int slider, std::optional<double> value)
    {
        if (feature && value)
        {
            CameraFeatures::WriteNumber(*feature, *value);
            SendSlider(*feature, slider);
        }
    };
    restore(CameraFeatures::Find(camera, "Gamma"), GammaSlider, m_defaultGamma);
    restore(CameraFeatures::Find(camera, "Gain"), GainSlider, m_defaultGain);
    restore(CameraFeatures::Find(camera, "BlackLevel"), BlackLevelSlider, m_defaultBlackLevel);
    restore(CameraFeatures::FindExposure(camera), ExposureSlider, m_defaultExposure);
}

void AsynchronousCameraController::SetExposureMode(int mode)
{
    SetAutoMode("ExposureAuto", mode, m_exposureAutoTimer);
}

void AsynchronousCameraController::SetGainMode(int mode)
{
    SetAutoMode("GainAuto", mode, m_gainAutoTimer);
}

void AsynchronousCameraController::SetAutoMode(const char* name, int mode, QTimer& timer)
{
    const FeaturePtr feature = CameraFeatures::Find(CurrentCamera(), name);
    if (!feature || mode < 0 || mode >= static_cast<int>(ModeNames.size()))
    {
        return;
    }
    feature->SetValue(ModeNames[static_cast<std::size_t>(mode)]);
    if (mode == 0)
    {
        timer.stop();
    }
    else
    {
        timer.start(AutoModeInterval);
    }
}

void AsynchronousCameraController::ExposureSliderAutoChange()
{
    // The older name first, unlike everywhere else.
    SendAutoValue("ExposureAuto", {"ExposureTimeAbs", "ExposureTime"}, ExposureSlider);
}

void AsynchronousCameraController::GainSliderAutoChange()
{
    SendAutoValue("GainAuto", {"Gain"}, GainSlider);
}

void AsynchronousCameraController::SendAutoValue(const char* modeName, std::initializer_list<const char*> valueNames,
                                                 int slider)
{
    const CameraPtr camera = ListedCamera();
    const FeaturePtr mode = CameraFeatures::Find(camera, modeName);
    if (!mode || !IsRunningMode(CameraFeatures::ReadText(*mode)))
    {
        return;
    }
    const FeaturePtr feature = CameraFeatures::Find(camera, valueNames);
    const std::optional<double> value = feature ? CameraFeatures::ReadNumber(*feature) : std::nullopt;
    if (value)
    {
        Q_EMIT SendUpdatedSLiderValue(*value, slider);
    }
}

void AsynchronousCameraController::UpdateSliderFeatures(double value, int slider)
{
    if (slider == ExposureSlider)
    {
        // The monitor writes it: only the last of many values reaches the camera.
        m_exposureValue = value;
        m_exposurePending = true;
        return;
    }
    const CameraPtr camera = CurrentCamera();
    if (slider == SetpointValueSlider)
    {
        if (const FeaturePtr setpoint = CameraFeatures::Find(camera, SetpointValue))
        {
            setpoint->SetValue(static_cast<std::int64_t>(value));
        }
    }
    else if (const char* const name = PlainSliderFeature(slider))
    {
        if (const FeaturePtr feature = CameraFeatures::Find(camera, name))
        {
            CameraFeatures::WriteClamped(*feature, value);
        }
    }
}

void AsynchronousCameraController::UpdateComboboxFeatures(const QString& text, int number)
{
    const CameraPtr camera = CurrentCamera();
    if (number == SetpointSelectorBox)
    {
        if (const FeaturePtr selector = CameraFeatures::Find(camera, SetpointSelector))
        {
            selector->SetValue(static_cast<std::int64_t>(text.toLongLong()));
        }
        // Each setpoint has a value of its own.
        if (const FeaturePtr setpoint = CameraFeatures::Find(camera, SetpointValue))
        {
            SendSlider(*setpoint, SetpointValueSlider);
        }
        return;
    }
    const FeaturePtr feature = CameraFeatures::Find(camera, number == ControlModeBox    ? ControlMode
                                                            : number == SetpointModeBox ? SetpointMode
                                                                                        : "");
    if (feature)
    {
        feature->SetValue(text.toStdString().c_str());
    }
}

void AsynchronousCameraController::WritePendingExposure()
{
    const CameraPtr camera = ListedCamera();
    if (camera && m_exposurePending.exchange(false))
    {
        if (const FeaturePtr exposure = CameraFeatures::FindExposure(camera))
        {
            CameraFeatures::WriteClamped(*exposure, m_exposureValue);
        }
    }
}

void AsynchronousCameraController::MonitorExposureTimeAndTemperature()
{
    const CameraPtr camera = ListedCamera();
    if (!camera)
    {
        return;
    }
    WritePendingExposure();
    if (m_temperatureControlAvailable)
    {
        MonitorControlState(camera);
    }
    if (m_setpointModeIsAuto)
    {
        if (const FeaturePtr active = CameraFeatures::Find(camera, SetpointActive))
        {
            SendActiveSetpoint(*active);
        }
    }
}

void AsynchronousCameraController::SendActiveSetpoint(const ZltApi::Feature& feature)
{
    if (const std::optional<QString> active = IntegerText(feature))
    {
        Q_EMIT SendActiveSetpointValue(*active);
    }
}

void AsynchronousCameraController::MonitorControlState(const CameraPtr& camera)
{
    const FeaturePtr feature = CameraFeatures::Find(camera, ControlState);
    std::string text;
    if (!feature || feature->GetValue(text) != ZltErrorSuccess)
    {
        return; // no answer is no state
    }
    const QString state = QString::fromStdString(text);
    Q_EMIT SendTemperatureControlStateValue(state);
    QString last;
    {
        const std::lock_guard lock(m_cameraListMutex);
        last = std::exchange(m_lastControlState, state);
    }
    if (state != last && StartsWith(last, "Stable"))
    {
        Q_EMIT SendTemperatureStatusUnstable(state);
    }
}

void AsynchronousCameraController::OnActivateSetpoint()
{
    m_setpointActivationTimedOut = false;
    const CameraPtr camera = CurrentCamera();
    const FeaturePtr activate = CameraFeatures::Find(camera, "SensorTemperatureSetpointActivate");
    if (activate && activate->RunCommand() == ZltErrorSuccess)
    {
        WaitForSetpoint(*activate);
        if (m_setpointActivationTimedOut)
        {
            Q_EMIT ErrorSignal(tr("Activating new sensor temperature setpoint has run into a timeout!"));
        }
        if (const FeaturePtr active = CameraFeatures::Find(camera, SetpointActive))
        {
            SendActiveSetpoint(*active);
        }
    }
    Q_EMIT SendSetpointActivationDone();
}

void AsynchronousCameraController::WaitForSetpoint(const ZltApi::Feature& activate)
{
    QTimer timeout;
    timeout.setSingleShot(true);
    connect(&timeout, &QTimer::timeout, this, &AsynchronousCameraController::SetTemperatureSetpointActivateTimeout);
    timeout.start(ActivationTimeout);
    bool done = false;
    ZltErrorType result = ZltErrorSuccess;
    while (!done && result == ZltErrorSuccess && !QThread::currentThread()->isInterruptionRequested())
    {
        QCoreApplication::processEvents();
        if (m_setpointActivationTimedOut)
        {
            return;
        }
        result = activate.IsCommandDone(done);
        QThread::msleep(ActivationPollPause);
    }
}

void AsynchronousCameraController::SetTemperatureSetpointActivateTimeout()
{
    m_setpointActivationTimedOut = true;
}

void AsynchronousCameraController::SetNucModeValue(const QString& text)
{
    if (const FeaturePtr mode = CameraFeatures::Find(CurrentCamera(), "NUCMode"))
    {
        mode->SetValue(text.toStdString().c_str());
    }
}

void AsynchronousCameraController::CheckFeaturesWritable()
{
    const CameraPtr camera = CurrentCamera();
    const auto check = [&](int slider, const FeaturePtr& feature)
    {
        bool writable = false;
        if (feature && feature->IsWritable(writable) == ZltErrorSuccess)
        {
            Announce([this, slider, writable] { Q_EMIT SendLockSliders(slider, !writable); });
        }
    };
    check(ExposureSlider, CameraFeatures::FindExposure(camera));
    check(GainSlider, CameraFeatures::Find(camera, "Gain"));
    check(GammaSlider, CameraFeatures::Find(camera, "Gamma"));
    check(BlackLevelSlider, CameraFeatures::Find(camera, "BlackLevel"));
}

std::pair<double, double> AsynchronousCameraController::GetExposureRange()
{
    const FeaturePtr feature = CameraFeatures::FindExposure(CurrentCamera());
    const std::optional<CameraFeatures::Range> range = feature ? CameraFeatures::ReadRange(*feature) : std::nullopt;
    if (range)
    {
        // A slider's value that comes meanwhile on the other thread is not lost.
        double value = m_exposureValue;
        while (!m_exposureValue.compare_exchange_weak(value, CameraFeatures::Clamped(value, *range)))
        {
        }
    }
    return range.value_or(CameraFeatures::Range{});
}

std::pair<double, double> AsynchronousCameraController::GetGainRange()
{
    const FeaturePtr feature = CameraFeatures::Find(CurrentCamera(), "Gain");
    return feature ? CameraFeatures::ReadRange(*feature).value_or(CameraFeatures::Range{}) : CameraFeatures::Range{};
}

double AsynchronousCameraController::GetCurrentExposure()
{
    const FeaturePtr feature = CameraFeatures::FindExposure(CurrentCamera());
    const std::optional<double> value = feature ? CameraFeatures::ReadNumber(*feature) : std::nullopt;
    if (value)
    {
        m_exposureValue = *value;
    }
    return m_exposureValue;
}

double AsynchronousCameraController::GetCurrentGain()
{
    double gain = 0;
    const FeaturePtr feature = CameraFeatures::Find(CurrentCamera(), "Gain");
    ZltErrorType result = feature ? feature->GetValue(gain) : ZltErrorNotFound;
    std::int64_t integer = 0;
    if (result == ZltErrorWrongType && (result = feature->GetValue(integer)) == ZltErrorSuccess)
    {
        gain = static_cast<double>(integer);
    }
    if (result != ZltErrorSuccess)
    {
        Q_EMIT ErrorSignal(tr("Cannot retrieve the current value of 'Gain'. Error: %1").arg(result));
        return 0;
    }
    return gain;
}

double AsynchronousCameraController::GetCurrentTemperatureSetpointValue()
{
    if (!m_temperatureControlAvailable)
    {
        return NoTemperature;
    }
    std::int64_t value = 0;
    const FeaturePtr feature = CameraFeatures::Find(CurrentCamera(), SetpointValue);
    if (!feature)
    {
        Q_EMIT ErrorSignal(
            tr("Cannot retrieve the current 'SensorTemperatureSetpointValue'. Error: %1").arg(ZltErrorNotFound));
        return NoTemperature;
    }
    return feature->GetValue(value) == ZltErrorSuccess ? static_cast<double>(value) : NoTemperature;
}

bool AsynchronousCameraController::SetOffReverseXY()
{
    const CameraPtr camera = CurrentCamera();
    bool switchedOff = false;
    for (const char* name : {"ReverseX", "ReverseY"})
    {
        bool reversed = false;
        const FeaturePtr feature = CameraFeatures::Find(camera, name);
        if (feature && feature->GetValue(reversed) == ZltErrorSuccess && reversed &&
            feature->SetValue(false) == ZltErrorSuccess)
        {
            switchedOff = true;
        }
    }
    return switchedOff;
}
