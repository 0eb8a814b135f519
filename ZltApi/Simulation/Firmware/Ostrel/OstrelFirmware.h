// Firmware of the Ostrel family: correction sets in files, chosen by enumeration features.
#pragma once

#include "Firmware/DefaultSet.h"
#include "Firmware/FileFeatures.h"
#include "Firmware/Firmware.h"

namespace Simulation
{

// The set "Preset" is the factory's, "User" the user's. The sets that are applied are those that were in the files when
// the camera got its power.
class OstrelFirmware final : public Firmware
{
public:
    explicit OstrelFirmware(const FirmwareServices& services);

    void AddFeatures(FeatureMap& features) override;
    void PowerUp() override;
    void Resume() override;
    void Disconnect() override;
    std::vector<PixelPosition> HiddenPixels(Mirroring mirroring) const override;

private:
    void AddCorrectionFeatures(FeatureMap& features);
    FileBytes FactoryFile() const;
    EnumNode::Writer ChangesCorrection() const;

    const FirmwareServices m_services;
    DefaultSet m_default;
    FileFeatures m_files;
    EnumNode* m_set = nullptr;
    EnumNode* m_mode = nullptr;
    std::map<std::string, FileBytes> m_loaded; // by set
};

} // namespace Simulation
