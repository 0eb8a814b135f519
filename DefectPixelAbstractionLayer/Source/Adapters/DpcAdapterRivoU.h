// The adapter for the Rivo U camera family: one file that shows the set which a selector names.
#pragma once

#include "DpcAdapterOstrel.h"
#include "ReverseCapability.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Names in the cameras of this family.
namespace RivoU
{
inline const std::string CORRECTION_SELECTOR_FEATURE = "CorrectionSelector";
inline const std::string CORRECTION_SELECTOR_DPC = "DefectPixelCorrection"; // entry of the selector
inline const std::string CORRECTION_SET_SELECTOR_FEATURE = "CorrectionSetSelector";
inline const std::string CORRECTION_SET_DEFAULT_FEATURE = "CorrectionSetDefault";
inline const std::string CORRECTION_MODE = "CorrectionMode"; // "On" or "Off", of the selected set
inline const std::string CORRECTION_SET_USER = "User";
inline const std::string CORRECTION_SET_FILENAME = "DefectPixelCorrection";
inline const std::string CORRECTION_SET_FACTORY = "Factory";
} // namespace RivoU

class DpcAdapterRivoU : public DpcAdapterOstrel
{
public:
    // Reads the sensor size and the mirror features from the camera.
    explicit DpcAdapterRivoU(const boost::shared_ptr<CameraAbstraction>& camera);

    std::vector<CorrectionSetPtr> GetAvailableCorrectionSets() override;
    CorrectionSetPtr GetDefaultCorrectionSet() override;
    void SetDefaultCorrectionSet(const CorrectionSetPtr& set) override;
    // Selects the set; unlike the base, a camera that cannot tell is a failure.
    bool IsCorrectionSetEnabled(const CorrectionSetPtr& set) override;
    void SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled) override;
    std::vector<SensorDefectType> GetAvailableDefectTypes() override;
    // These three are true for every set, the factory's too.
    bool IsCorrectionSetReadable(const CorrectionSetPtr& set) override;
    bool IsCorrectionSetWritable(const CorrectionSetPtr& set) override;
    bool IsCorrectionSetAvailable(const CorrectionSetPtr& set) override;
    SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) override;
    // Refuses kinds that the family cannot store and a file that is too large.
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // A file of exactly the maximum size fits.
    bool IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // Always throws.
    void RestoreFactorySettings(const CorrectionSetPtr& set) override;
    bool IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& set) override;
    // Leaves an empty file; one that is empty already is not opened.
    void EraseCorrectionSet(CorrectionSetPtr& set) override;

    void SetCorrectionSelectorToDPC();
    void SetCorrectionSetSelector(const CorrectionSetPtr& set);
    std::vector<std::uint8_t> ConvertDefectsListToBinary(const SensorDefectList& defects);
    // The one file of all sets, whatever the set; null when the camera has none. The selector decides what it shows.
    boost::shared_ptr<FileInterface> getFileForCorrectionSet(const CorrectionSetPtr& set);

private:
    // Throws when there is none.
    boost::shared_ptr<FileInterface> fileToChange(const CorrectionSetPtr& set);

    ReverseCapability m_reverseCapability;
};

} // namespace KTR::DPC
