// Firmware of the Rivo U family: correction sets behind a selector, shown by one file.
#pragma once

#include "Firmware/DefaultSet.h"
#include "Firmware/FileFeatures.h"
#include "Firmware/Firmware.h"

namespace Simulation
{

// The set "Factory" is the factory's and cannot be changed, "User" is the user's. A set takes effect at once: as soon
// as its file is closed, or "CorrectionMode" is set to "On" while the set is selected. The mode reads "On" for the set
// that is applied; "Off", written for any set, ends the correction.
class RivoUFirmware final : public Firmware
{
public:
    explicit RivoUFirmware(const FirmwareServices& services);

    void AddFeatures(FeatureMap& features) override;
    void PowerUp() override;
    void Resume() override;
    void Disconnect() override { m_files.Disconnect(); }
    std::vector<PixelPosition> HiddenPixels(Mirroring mirroring) const override;

private:
    CameraFile File();
    Mirroring Able() const { return {m_services.config.reverseX, m_services.config.reverseY}; }
    SensorSize Size() const { return {m_services.config.sensor.width, m_services.config.sensor.height}; }

    const FirmwareServices m_services;
    DefaultSet m_default;
    FileFeatures m_files;
    EnumNode* m_set = nullptr;     // selected
    EnumNode* m_applied = nullptr; // the set in force, or "Off"; no host sees it
};

} // namespace Simulation
