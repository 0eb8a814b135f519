// The inside of a simulated camera: features, firmware, sensor and stream, from one plugging in to the next unplugging.
#pragma once

#include "Device/ImageControl.h"
#include "Device/NonuniformityCorrection.h"
#include "Device/TemperatureControl.h"
#include "Faults/FaultPlan.h"
#include "Features/FeatureGate.h"
#include "Features/FeatureHandle.h"
#include "Firmware/Firmware.h"
#include "Rig/CameraConfig.h"
#include "State/CameraState.h"
#include "State/FileLock.h"
#include "Stream/FrameStream.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Simulation
{

// Thread-safe. The camera's lock is never held while an observer runs or a thread is waited for.
class CameraDevice final : private FrameSource
{
public:
    // The folder is the camera's own in the state directory. connectionLost is called, on any thread, when the camera
    // takes itself away: by a restart or by a fault. Leave must follow.
    CameraDevice(const CameraConfig& config, const std::filesystem::path& folder, std::function<void()> connectionLost);

    const CameraConfig& Config() const { return m_config; }
    FeatureAccess& Features() { return m_camera; }
    FeatureAccess& StreamFeatures() { return m_streamFeatures; }

    bool IsPresent() const { return m_present; }
    // Somebody else has the camera open.
    bool IsHeldElsewhere();
    // Anybody has the camera open.
    bool IsHeld() const { return IsBusy() || FileLock::IsTaken(m_state.LockPath()); }

    ZltErrorType Open();
    ZltErrorType Close();
    // The camera is gone for good as this object: what is open ends in order, Close is still accepted.
    void Leave();

    ZltErrorType StartStream(std::uint32_t bufferCount, const ZltApi::IFrameObserverPtr& observer);
    ZltErrorType StopStream();
    FrameStream& Stream() { return m_stream; }

    ZltErrorType ReadMemory(std::uint64_t address, std::vector<unsigned char>& data);
    ZltErrorType WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data);

    // Reaches the camera from outside of the programs that use it.
    void SetCovered(bool covered) { m_covered = covered; }

private:
    // What one exposure was begun with, for the stream's thread.
    struct Exposure
    {
        ImageSettings settings;
        std::uint64_t frameId = 0;
        bool isAdapting = false;
        bool isUneven = false;
        FaultEffect fault;
        std::shared_ptr<const CorrectionMap> correction;
    };

    std::optional<std::chrono::microseconds> Begin(std::uint64_t frameId) override;
    bool Render(ProviderBase::BasicFrame& frame) override;

    void AddIdentity();
    void AddAcquisition();
    void AddSensorControl();
    std::function<double()> SensorTemperature() const; // empty where the sensor is not cooled
    void HideFeatures();
    FirmwareServices Services();
    ZltErrorType Boot();
    ZltErrorType Restart();
    void LoseConnection();
    void KeepSettings();
    bool IsAway() const;
    bool IsBusy() const; // as if another program had it open
    Sensor& TheSensor();
    std::shared_ptr<const CorrectionMap> Correction();

    const CameraConfig m_config;
    const std::function<void()> m_connectionLost;
    CameraState m_state;
    FaultPlan m_faults;
    FeatureGate m_gate;
    FeatureAccess m_camera;
    FeatureAccess m_streamFeatures;
    std::unique_ptr<TemperatureControl> m_temperature;        // null where the sensor is not cooled
    std::unique_ptr<NonuniformityCorrection> m_nonuniformity; // null where there is none
    ImageControl m_images;
    std::unique_ptr<Firmware> m_firmware;

    std::atomic<bool> m_present{true};
    std::atomic<bool> m_covered{false};

    // Guarded by the camera's lock.
    FileLock m_lock;
    bool m_opened = false; // by a host that has not closed it yet
    bool m_acquiring = false;
    CameraState::Values m_keptSettings; // as they stand in the state folder
    EnumNode* m_acquisitionMode = nullptr;
    std::unique_ptr<Sensor> m_sensor; // made at the first need, used for exposures by the stream's thread alone
    std::shared_ptr<const CorrectionMap> m_correction; // null: to be made from what the firmware says now
    std::string m_unknownFeature;                      // of those that are to be missing; empty when all are known

    // The stream's thread only.
    Exposure m_exposure;
    std::vector<std::uint16_t> m_raw;

    FrameStream m_stream; // last, so that its thread ends before anything else goes
};

} // namespace Simulation
