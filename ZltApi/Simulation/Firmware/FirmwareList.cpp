// The firmwares by name: a new family adds one line.
#include "Firmware/FirmwareList.h"

#include "Firmware/Flash/FlashFirmware.h"
#include "Firmware/Mask/MaskFirmware.h"
#include "Firmware/Ostrel/OstrelFirmware.h"
#include "Firmware/Plain/PlainFirmware.h"
#include "Firmware/RivoU/RivoUFirmware.h"
#include "Firmware/TamorinPro/TamorinProFirmware.h"

#include <algorithm>
#include <array>

namespace Simulation
{

namespace
{

template <typename Kind> std::unique_ptr<Firmware> Make(const FirmwareServices& services)
{
    return std::make_unique<Kind>(services);
}

constexpr std::array Kinds = {
    FirmwareKind{"ostrel", "OSTREL", &Make<OstrelFirmware>},
    FirmwareKind{"plain", "Vesk", &Make<PlainFirmware>},
    FirmwareKind{"rivo-u", "Rivo", &Make<RivoUFirmware>},
    FirmwareKind{"rectangle-mask", "Rivo", &Make<RectangleMaskFirmware>},
    FirmwareKind{"rectangle-mask-mode", "Rivo", &Make<RectangleMaskModeFirmware>},
    FirmwareKind{"column-mask", "Dreli", &Make<ColumnMaskFirmware>},
    FirmwareKind{"flash", "Quorsalin", &Make<FlashFirmware>},
    FirmwareKind{"tamorin-pro", "Tamorin Pro", &Make<TamorinProFirmware>},
};

} // namespace

const FirmwareKind* FindFirmware(const std::string& name)
{
    const auto* const found =
        std::find_if(Kinds.begin(), Kinds.end(), [&](const FirmwareKind& kind) { return name == kind.name; });
    return found == Kinds.end() ? nullptr : found;
}

} // namespace Simulation
