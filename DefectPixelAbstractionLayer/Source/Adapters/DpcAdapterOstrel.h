// The adapter for the Ostrel camera family: one file for each correction set, in the camera's file system.
#pragma once

#include "CameraAdapter.h"
#include "DpcFileOstrel.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Names in the cameras of this family.
namespace Ostrel
{
inline const std::string CORRECTION_SELECTOR_FEATURE = "CorrectionSelector";
inline const std::string CORRECTION_SELECTOR_DPC = "DefectPixelCorrection"; // entry of the selector
inline const std::string CORRECTION_SET_SELECTOR_FEATURE = "CorrectionSet";
inline const std::string CORRECTION_SET_DEFAULT_FEATURE = "CorrectionSetDefault";
inline const std::string CORRECTION_MODE = "CorrectionMode"; // "On" or "Off"
inline const std::string CORRECTION_SET_USER = "User";
inline const std::string CORRECTION_SET_FILENAME = "DefectPixelCorrection"; // the set's name follows
inline const std::string CORRECTION_SET_FACTORY = "Preset";
} // namespace Ostrel

class DpcAdapterOstrel : public CameraAdapter
{
public:
    // Reads the sensor size from the camera.
    explicit DpcAdapterOstrel(const boost::shared_ptr<CameraAbstraction>& camera);

    std::vector<CorrectionSetPtr> GetAvailableCorrectionSets() override;
    CorrectionSetPtr GetDefaultCorrectionSet() override;
    void SetDefaultCorrectionSet(const CorrectionSetPtr& set) override;
    // Touches no selector, and answers false when the camera cannot tell.
    bool IsCorrectionSetEnabled(const CorrectionSetPtr& set) override;
    void SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled) override;
    bool IsCorrectionSetReadable(const CorrectionSetPtr& set) override;
    SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) override;
    bool IsCorrectionSetWritable(const CorrectionSetPtr& set) override;
    bool IsCorrectionSetAvailable(const CorrectionSetPtr& set) override;
    // Drops kinds that the family cannot store, and tests neither space nor validity: the caller does.
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // A file of exactly the maximum size counts as too large.
    bool IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // Always throws.
    void RestoreFactorySettings(const CorrectionSetPtr& set) override;
    bool IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& set) override;
    // Leaves a valid file without defects.
    void EraseCorrectionSet(CorrectionSetPtr& set) override;

    void SetCorrectionSelectorToDPC();
    void SetCorrectionSetSelector(const CorrectionSetPtr& set);
    std::vector<std::uint8_t> ConvertDefectsListToBinary(const SensorDefectList& defects);
    // Null when no file of the camera bears the set's name.
    boost::shared_ptr<FileInterface> getFileForCorrectionSet(const CorrectionSetPtr& set);

    // Passes the kinds that the family can store on to the file, in list order.
    static void addDefects(DpcFileOstrel& file, const SensorDefectList& defects);

protected:
    // The first file of this very name; null when the camera has none.
    boost::shared_ptr<FileInterface> fileNamed(const std::string& name);
    static std::vector<CorrectionSetPtr> setsNamed(const std::vector<std::string>& names);
};

} // namespace KTR::DPC
