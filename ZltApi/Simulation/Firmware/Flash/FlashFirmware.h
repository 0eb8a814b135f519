// Firmware of the flash family: a defect file in flash that names the neighbours of each pixel, and a switch.
#pragma once

#include "Features/ValueNode.h"
#include "Firmware/Firmware.h"
#include "Firmware/Flash/FlashMemory.h"

namespace Simulation
{

// The camera applies the user's file as it was in the flash when it got its power. It replaces a pixel by just those
// neighbours that the file names. It is delivered with the factory's file as the user's.
class FlashFirmware final : public Firmware
{
public:
    explicit FlashFirmware(const FirmwareServices& services);

    void AddFeatures(FeatureMap& features) override;
    void PowerUp() override;
    void Resume() override;
    void Disconnect() override { m_flash.Disconnect(); }
    CorrectionMap Correction(const SensorConfig& sensor, Mirroring mirroring) const override;
    ZltErrorType ReadMemory(std::uint64_t address, std::vector<unsigned char>& data) override
    {
        return m_flash.Read(address, data);
    }
    ZltErrorType WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data) override
    {
        return m_flash.Write(address, data);
    }

private:
    SensorSize Size() const { return {m_services.config.sensor.width, m_services.config.sensor.height}; }

    const FirmwareServices m_services;
    FlashMemory m_flash;
    BooleanNode* m_switch = nullptr;
    std::vector<MaskedPixel> m_pixels; // of the file in force
};

} // namespace Simulation
