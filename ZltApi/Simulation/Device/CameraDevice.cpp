// Life of a simulated camera: opening, closing, restarts, and its frames.
#include "Device/CameraDevice.h"

#include "Features/CommandNode.h"
#include "Firmware/FirmwareList.h"

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>

namespace Simulation
{

namespace
{

constexpr const char* Vendor = "Korvath";
constexpr const char* FirmwareVersion = "1.4.2";
constexpr std::chrono::milliseconds PacketSizeAdjustment{20};
constexpr std::size_t MeteringStep =
    61; // of the pixels, one in so many is metered; prime, so that no column is favoured

// As rules of faults name it.
std::string AddressText(std::uint64_t address)
{
    std::ostringstream text;
    text << std::hex << std::uppercase << address;
    return text.str();
}

double MeteredMean(const std::vector<std::uint16_t>& raw)
{
    double sum = 0.0;
    std::size_t count = 0;
    for (std::size_t i = 0; i < raw.size(); i += MeteringStep, ++count)
    {
        sum += raw[i];
    }
    return count == 0 ? 0.0 : sum / static_cast<double>(count);
}

} // namespace

CameraDevice::CameraDevice(const CameraConfig& config, const std::filesystem::path& folder,
                           std::function<void()> connectionLost)
    : m_config(config),
      m_connectionLost(std::move(connectionLost)),
      m_state(folder),
      m_faults(m_config.faults, m_state.FaultsPath()),
      m_gate(m_faults, [this] { LoseConnection(); }),
      m_camera{m_gate, {}, [this] { KeepSettings(); }},
      m_streamFeatures{m_gate, {}, {}},
      m_temperature(config.temperatureControl ? std::make_unique<TemperatureControl>() : nullptr),
      m_images(m_config,
               {[this] { return m_stream.IsRunning(); }, [this] { m_correction.reset(); }, SensorTemperature()}),
      m_firmware(FindFirmware(config.firmware)->make(Services())),
      m_covered(config.covered),
      m_lock(m_state.LockPath()),
      m_stream(*this)
{
    AddIdentity();
    m_images.AddFeatures(m_camera.features);
    AddAcquisition();
    AddSensorControl();
    m_firmware->AddFeatures(m_camera.features);
    HideFeatures();
}

FirmwareServices CameraDevice::Services()
{
    return {m_config, m_state, m_faults, [this]() -> const std::vector<PixelFault>& { return TheSensor().Faults(); },
            [this] { m_correction.reset(); }};
}

void CameraDevice::AddIdentity()
{
    const auto constant = [&](const char* name, const std::string& text)
    { m_camera.features.Add<StringNode>(name, text).ReadOnly(); };
    constant("DeviceVendorName", Vendor);
    constant("DeviceModelName", m_config.model);
    constant("DeviceFamilyName", m_config.family);
    constant("DeviceSerialNumber", m_config.serial);
    constant("DeviceID", m_config.id);
    constant("DeviceFirmwareVersion", FirmwareVersion);
    m_camera.features.Add<CommandNode>("DeviceReset", [this] { return Restart(); });
}

void CameraDevice::AddAcquisition()
{
    FeatureMap& features = m_camera.features;
    m_acquisitionMode =
        &features.Add<EnumNode>("AcquisitionMode", "Continuous", std::vector<std::string>{"Continuous", "SingleFrame"});
    m_acquisitionMode->KeepWhilePowered();
    const auto command = [&](const char* name, bool acquiring)
    {
        features.Add<CommandNode>(name,
                                  [this, acquiring]
                                  {
                                      m_acquiring = acquiring;
                                      return ZltErrorSuccess;
                                  });
    };
    command("AcquisitionStart", true);
    command("AcquisitionStop", false);
    if (m_config.adjustsPacketSize)
    {
        m_streamFeatures.features.Add<CommandNode>(
            "GVSPAdjustPacketSize", [] { return ZltErrorSuccess; }, PacketSizeAdjustment);
    }
}

std::function<double()> CameraDevice::SensorTemperature() const
{
    return m_temperature ? [this] { return m_temperature->Temperature(); } : std::function<double()>();
}

void CameraDevice::AddSensorControl()
{
    if (m_temperature)
    {
        m_temperature->AddFeatures(m_camera.features);
    }
    if (m_config.nonuniformityCorrection)
    {
        m_nonuniformity = std::make_unique<NonuniformityCorrection>(m_config.sensor.width, m_config.sensor.seed,
                                                                    [this] { return m_images.ExposureTime(); });
        m_nonuniformity->AddFeatures(m_camera.features);
    }
}

void CameraDevice::HideFeatures()
{
    for (const std::string& name : m_config.without)
    {
        if (!m_camera.features.Hide(name) && !m_streamFeatures.features.Hide(name))
        {
            m_unknownFeature = name;
        }
    }
}

bool CameraDevice::IsHeldElsewhere()
{
    const std::lock_guard lock(m_gate.Mutex());
    return !m_lock.IsHeld() && IsHeld();
}

bool CameraDevice::IsBusy() const
{
    return m_state.Control().busy.value_or(m_config.busy);
}

bool CameraDevice::IsAway() const
{
    return !m_present || !m_state.Control().plugged || m_state.RestartEnd(LongestRestart).has_value();
}

ZltErrorType CameraDevice::Open()
{
    const FaultEffect effect = m_faults.Hit("Open", {});
    std::this_thread::sleep_for(std::chrono::milliseconds(effect.delayMs));
    if (effect.unplug)
    {
        LoseConnection();
    }
    const std::lock_guard lock(m_gate.Mutex());
    if (IsAway())
    {
        return ZltErrorNotFound;
    }
    if (m_opened)
    {
        return ZltErrorInvalidCall;
    }
    if (effect.code)
    {
        return static_cast<ZltErrorType>(*effect.code);
    }
    if (!m_lock.TryAcquire())
    {
        return ZltErrorInvalidAccess;
    }
    if (IsBusy())
    {
        m_lock.Release();
        return ZltErrorInvalidAccess;
    }
    if (const ZltErrorType result = Boot(); result != ZltErrorSuccess)
    {
        m_lock.Release();
        return result;
    }
    m_opened = true;
    m_gate.SetOpen(true);
    return ZltErrorSuccess;
}

ZltErrorType CameraDevice::Boot()
{
    try
    {
        if (!m_unknownFeature.empty())
        {
            throw std::runtime_error("It has no feature \"" + m_unknownFeature + "\" that could be missing.");
        }
        if (!m_config.sensor.darkFrameFile.empty())
        {
            TheSensor(); // refuses a file that cannot be used
        }
        const auto settings = m_state.Settings();
        m_keptSettings = settings.value_or(CameraState::Values());
        m_camera.features.Restore(m_keptSettings);
        m_images.Recall();
        if (m_temperature)
        {
            m_temperature->Recall();
        }
        if (!settings)
        {
            m_firmware->PowerUp();
        }
        m_firmware->Resume();
        if (!settings)
        {
            KeepSettings();
        }
        return ZltErrorSuccess;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "The simulated camera %s cannot start: %s\n", m_config.id.c_str(), error.what());
        return ZltErrorResource;
    }
}

void CameraDevice::KeepSettings()
{
    CameraState::Values values = m_camera.features.Save();
    if (values != m_keptSettings)
    {
        m_state.SetSettings(values);
        m_keptSettings = std::move(values);
    }
}

ZltErrorType CameraDevice::Close()
{
    {
        const std::lock_guard lock(m_gate.Mutex());
        if (!m_opened)
        {
            return ZltErrorDeviceNotOpen;
        }
        m_gate.SetOpen(false);
    }
    if (const ZltErrorType result = m_stream.Stop(); result != ZltErrorSuccess)
    {
        return result;
    }
    const std::lock_guard lock(m_gate.Mutex());
    m_opened = false;
    m_firmware->Disconnect();
    ZltErrorType result = ZltErrorSuccess;
    if (m_present)
    {
        try
        {
            KeepSettings();
        }
        catch (const std::exception&)
        {
            result = ZltErrorResource;
        }
    }
    m_lock.Release();
    return result;
}

void CameraDevice::Leave()
{
    m_present = false;
    {
        const std::lock_guard lock(m_gate.Mutex());
        m_gate.SetOpen(false);
    }
    m_stream.Stop();
    const std::lock_guard lock(m_gate.Mutex());
    m_firmware->Disconnect();
    m_lock.Release();
}

void CameraDevice::LoseConnection()
{
    m_present = false;
    {
        const std::lock_guard lock(m_gate.Mutex());
        m_gate.SetOpen(false);
        m_state.PowerDown();
        m_state.ChangeControl([](ControlState& control) { control.plugged = false; });
    }
    m_connectionLost();
}

ZltErrorType CameraDevice::Restart()
{
    m_state.SetRestartEnd(CameraState::Clock::now() + m_config.restartTime);
    m_present = false;
    m_gate.SetOpen(false);
    m_state.PowerDown();
    m_connectionLost();
    return ZltErrorSuccess;
}

ZltErrorType CameraDevice::ReadMemory(std::uint64_t address, std::vector<unsigned char>& data)
{
    return m_gate.Run("ReadMemory", AddressText(address),
                      [&](const FaultEffect& effect)
                      {
                          const ZltErrorType result = m_firmware->ReadMemory(address, data);
                          data.resize(data.size() - std::min<std::size_t>(data.size(), effect.shortBy));
                          return result;
                      });
}

ZltErrorType CameraDevice::WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data)
{
    return m_gate.Run("WriteMemory", AddressText(address),
                      [&](const FaultEffect&) { return m_firmware->WriteMemory(address, data); });
}

Sensor& CameraDevice::TheSensor()
{
    if (!m_sensor)
    {
        m_sensor = std::make_unique<Sensor>(m_config.sensor);
    }
    return *m_sensor;
}

ZltErrorType CameraDevice::StartStream(std::uint32_t bufferCount, const ZltApi::IFrameObserverPtr& observer)
{
    if (!m_config.stream)
    {
        return m_gate.IsOpen() ? ZltErrorNotSupported : ZltErrorDeviceNotOpen;
    }
    std::uint64_t payloadSize = 0;
    ZltErrorType result = m_gate.Run("StartAcquisition", {},
                                     [&](const FaultEffect&)
                                     {
                                         TheSensor();
                                         payloadSize = m_images.Settings().payloadSize;
                                         m_acquiring = true;
                                         return ZltErrorSuccess;
                                     });
    if (result == ZltErrorSuccess)
    {
        result = m_stream.Start(bufferCount, payloadSize, observer);
    }
    if (result == ZltErrorSuccess && !m_gate.IsOpen())
    {
        m_stream.Stop(); // closed or unplugged in between
        result = ZltErrorDeviceNotOpen;
    }
    return result;
}

ZltErrorType CameraDevice::StopStream()
{
    const ZltErrorType result = m_stream.Stop();
    return result == ZltErrorSuccess && !m_gate.IsOpen() ? ZltErrorDeviceNotOpen : result;
}

std::shared_ptr<const CorrectionMap> CameraDevice::Correction()
{
    if (!m_correction)
    {
        const SensorConfig& sensor = m_config.sensor;
        m_correction = std::make_shared<CorrectionMap>(m_firmware->Correction(sensor, m_images.CurrentMirroring()));
    }
    return m_correction;
}

std::optional<std::chrono::microseconds> CameraDevice::Begin(std::uint64_t frameId)
{
    const std::lock_guard lock(m_gate.Mutex());
    if (!m_acquiring || !m_gate.IsOpen())
    {
        return std::nullopt;
    }
    m_acquiring = m_acquisitionMode->Current() != "SingleFrame";
    m_firmware->BeginFrame(m_images.ExposureTime());
    m_exposure = {m_images.Settings(),       frameId,
                  m_images.IsAdapting(),     m_nonuniformity && m_nonuniformity->IsOff(),
                  m_faults.Hit("Frame", {}), Correction()};
    m_exposure.settings.exposure.covered = m_covered;
    m_exposure.settings.exposure.frameNumber = frameId;
    return m_exposure.settings.framePeriod + std::chrono::milliseconds(m_exposure.fault.delayMs);
}

bool CameraDevice::Render(ProviderBase::BasicFrame& frame)
{
    const ImageSettings& settings = m_exposure.settings;
    m_sensor->Expose(settings.exposure, m_raw);
    if (m_exposure.isUneven)
    {
        m_nonuniformity->Distort(m_raw);
    }
    if (m_exposure.isAdapting)
    {
        const std::lock_guard lock(m_gate.Mutex());
        m_images.Adapt(MeteredMean(m_raw), settings.framePeriod);
    }
    if (m_exposure.fault.drop)
    {
        return false;
    }
    m_exposure.correction->Apply(m_raw);
    const bool fits =
        frame.Size() >= settings.payloadSize &&
        FormatFrame(m_raw, m_config.sensor.filter, settings.geometry, settings.pixelFormat, frame.Data(), frame.Size());
    const bool isWhole = m_exposure.fault.shortBy == 0;
    if (!isWhole)
    {
        const auto lost = std::min<std::uint64_t>(m_exposure.fault.shortBy, frame.Size());
        std::fill_n(frame.Data() + (frame.Size() - lost), lost, static_cast<unsigned char>(0));
    }
    const ZltApi::FrameStatus arrived = isWhole ? ZltApi::FrameStatusComplete : ZltApi::FrameStatusIncomplete;
    frame.SetContent({settings.geometry.width, settings.geometry.height, settings.pixelFormat, m_exposure.frameId,
                      fits ? arrived : ZltApi::FrameStatusTooSmall});
    return true;
}

} // namespace Simulation
