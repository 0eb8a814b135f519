// The adapter for the Tamorin Pro camera family: numbered datasets, each a file of the generic file format.
#pragma once

#include "CameraAdapter.h"
#include "CorrectionSetMetadata.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Names in the cameras of this family.
namespace TamorinPro
{
inline const std::string FILE_SELECTOR_FEATURE = "FileSelector"; // its entries name the sets
inline const std::string CORRECTION_SELECTOR_DPC = "DefectPixelCorrection";
inline const std::string CORRECTION_SET_DEFAULT_FEATURE = "DPC_000"; // the default set itself
inline const std::string CORRECTION_MODE = "DPCDatasetAuto";         // "On" or "Off"
inline const std::string CORRECTION_SET_USER = "User";
inline const std::string CORRECTION_SET_FACTORY = "Factory";
} // namespace TamorinPro

// Sets begin with "DPC_", the user's with "DPC_User". Only single pixels can be stored. The family keeps metadata:
// gain, exposure time and temperature at which a set was made.
class DpcAdapterTamorinPro final : public CameraAdapter
{
public:
    // Reads the sensor size from the camera, and stops the camera from choosing datasets by itself.
    explicit DpcAdapterTamorinPro(const boost::shared_ptr<CameraAbstraction>& camera);

    // A second listing by the same adapter has all sets of the first one in front.
    std::vector<CorrectionSetPtr> GetAvailableCorrectionSets() override;
    std::vector<CorrectionSetPtr> GetAvailableCorrectionSetsWithMetadata() override;
    CorrectionSetPtr GetDefaultCorrectionSet() override;
    // Always throws.
    void SetDefaultCorrectionSet(const CorrectionSetPtr& set) override;
    bool IsCorrectionSetEnabled(const CorrectionSetPtr& set) override;
    void SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled) override;
    // False for an empty set.
    bool IsCorrectionSetReadable(const CorrectionSetPtr& set) override;
    SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) override;
    bool IsCorrectionSetWritable(const CorrectionSetPtr& set) override;
    bool IsCorrectionSetAvailable(const CorrectionSetPtr& set) override;
    // Takes every defect as a pixel, and tests neither space nor validity: the caller does. The set's metadata goes
    // into the file and into its description.
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // A file of exactly the maximum size counts as too large; the end mark of its coordinates does not count.
    bool IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // Always throws.
    void RestoreFactorySettings(const CorrectionSetPtr& set) override;
    bool IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& set) override;
    // Deletes the file's content.
    void EraseCorrectionSet(CorrectionSetPtr& set) override;

    // All sets found so far.
    std::vector<CorrectionSetPtr>& __GetAvailableCorrectionSets(bool withMetadata);
    // The number by which the camera knows the set's dataset. A name without a number at its end throws what the number
    // parser throws, a std::invalid_argument, which is a KTR::System::Exception as well.
    std::uint16_t GetDatasetFileId(const CorrectionSetPtr& set);
    boost::shared_ptr<FileInterface> getFileForCorrectionSet(const CorrectionSetPtr& set);
    // The first bytes of the set's file, all of them for a maximum of 0. An empty file leaves the bytes as they are.
    void getCorrectionSetRawData(const CorrectionSetPtr& set, std::vector<std::uint8_t>& bytes, std::uint64_t maximum);
    // The pixels in a whole file. A file that ends inside the four bytes behind its tag "PDA1" ends the process.
    static SensorDefectList getSensorDefectsListFromRawData(const std::vector<std::uint8_t>& bytes);
    // By key, from the first bytes of a file. A value that is not wholly there is -999999.
    static std::map<std::string, double> GetCorrectionSetMetadata(const std::vector<std::uint8_t>& bytes);
    void EraseCorrectionSetImpl(const CorrectionSetPtr& set);

    // A whole file: the pixels in the camera's order, under the conditions in the set's metadata.
    static std::vector<std::uint8_t> ConvertDefectsListToBinary(const CorrectionSet& set,
                                                                const SensorDefectList& defects, std::uint32_t width,
                                                                std::uint32_t height);

private:
    void writeDescription(FileInterface& file, const CorrectionSet& set);

    std::vector<CorrectionSetPtr> m_correctionSets;
    int m_cacheState = 0; // 1: the sets are a listing, 2: one with metadata. No listing is kept for the next one so far
};

} // namespace KTR::DPC
