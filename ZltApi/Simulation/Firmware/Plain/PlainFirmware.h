// Firmware of a camera without defect pixel correction.
#pragma once

#include "Firmware/Firmware.h"

namespace Simulation
{

class PlainFirmware final : public Firmware
{
public:
    explicit PlainFirmware(const FirmwareServices&) {}

    void AddFeatures(FeatureMap&) override {}
    void PowerUp() override {}
    void Resume() override {}
    void Disconnect() override {}
};

} // namespace Simulation
