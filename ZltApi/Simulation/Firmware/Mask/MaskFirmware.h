// Firmware of the older GigE cameras: one defect table in camera memory and a switch.
#pragma once

#include "Firmware/Firmware.h"
#include "Firmware/Mask/MaskTable.h"

#include <memory>

namespace Simulation
{

// A written table takes effect at once and outlives the power, as the table file in the camera's state. The switch is
// on when the camera gets power.
class MaskFirmware : public Firmware
{
public:
    void AddFeatures(FeatureMap& features) override;
    void PowerUp() override {}
    void Resume() override;
    void Disconnect() override { m_table->Disconnect(); }
    std::vector<PixelPosition> HiddenPixels(Mirroring mirroring) const override;
    ZltErrorType ReadMemory(std::uint64_t address, std::vector<unsigned char>& data) override;
    ZltErrorType WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data) override;

protected:
    enum class Switch
    {
        Boolean,
        Enumeration
    };

    MaskFirmware(const FirmwareServices& services, std::unique_ptr<MaskTable> table, const char* feature, Switch kind);

    static SensorSize SizeOf(const FirmwareServices& services);

private:
    const FirmwareServices m_services;
    const std::unique_ptr<MaskTable> m_table;
    const char* const m_feature;
    const Switch m_kind;
    std::function<bool()> m_isOn;
};

// Rectangles, switched by a boolean.
class RectangleMaskFirmware final : public MaskFirmware
{
public:
    explicit RectangleMaskFirmware(const FirmwareServices& services);
};

// Rectangles, switched by an enumeration.
class RectangleMaskModeFirmware final : public MaskFirmware
{
public:
    explicit RectangleMaskModeFirmware(const FirmwareServices& services);
};

// Stretches of columns, switched by a boolean.
class ColumnMaskFirmware final : public MaskFirmware
{
public:
    explicit ColumnMaskFirmware(const FirmwareServices& services);
};

} // namespace Simulation
