// All firmwares that a rig can name.
#pragma once

#include "Firmware/Firmware.h"

#include <memory>
#include <string>

namespace Simulation
{

struct FirmwareKind
{
    const char* name;   // in rig files
    const char* family; // DeviceFamilyName unless the rig gives another
    std::unique_ptr<Firmware> (*make)(const FirmwareServices& services);
};

// Null when there is none of that name.
const FirmwareKind* FindFirmware(const std::string& name);

} // namespace Simulation
