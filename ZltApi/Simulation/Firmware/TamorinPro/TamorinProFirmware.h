// Firmware of the Tamorin Pro family: numbered datasets in files, chosen by number or by the camera itself.
#pragma once

#include "Firmware/FileFeatures.h"
#include "Firmware/Firmware.h"
#include "Firmware/TamorinPro/TamorinProFile.h"

#include <map>

namespace Simulation
{

// The datasets "DPC_000" to "DPC_003" are the factory's, "DPC_User_1" to "DPC_User_8" the user's. The camera applies
// them as they were in the files when it got its power. While "DPCDatasetAuto" is on, it takes the one that was made
// for the exposure next to the present one.
class TamorinProFirmware final : public Firmware
{
public:
    explicit TamorinProFirmware(const FirmwareServices& services);

    void AddFeatures(FeatureMap& features) override;
    void PowerUp() override;
    void Resume() override;
    void Disconnect() override;
    void BeginFrame(double exposureUs) override;
    std::vector<PixelPosition> HiddenPixels(Mirroring mirroring) const override;

private:
    std::int64_t NextTo(double exposureUs) const;

    const FirmwareServices m_services;
    FileFeatures m_files;
    EnumNode* m_mode = nullptr;
    EnumNode* m_auto = nullptr;
    IntegerNode* m_dataset = nullptr;
    std::int64_t m_chosen = 0;                            // by the camera itself
    std::map<std::int64_t, TamorinProDataset> m_datasets; // by number, those that can be used
};

} // namespace Simulation
