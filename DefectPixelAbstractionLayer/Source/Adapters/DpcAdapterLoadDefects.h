// The adapter for the established GigE cameras that mask columns: one table in camera memory.
#pragma once

#include "OneSetAdapter.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Addresses in the cameras of this family.
namespace LoadDefects
{
constexpr std::uint64_t DPC_DATA_SIZE_REG_ADDR = 0x19104;  // register: number of table entries
constexpr std::uint64_t DPC_DATA_RW_MEMORY_ADDR = 0x19108; // memory: the table
} // namespace LoadDefects

// A read is one access to memory, and so is a write. The camera counts the entries of a write by its length: nothing
// here writes the count.
class DpcAdapterLoadDefects final : public OneSetAdapter
{
public:
    // Reads the sensor size and the name of the switch from the camera; throws when it has none.
    explicit DpcAdapterLoadDefects(const boost::shared_ptr<CameraAbstraction>& camera);

    bool IsCorrectionSetEnabled(const CorrectionSetPtr& set) override;
    void SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled) override;
    SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) override;
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    bool IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // Beside the kinds also the places: inside of the sensor, and no two beside one another.
    bool IsCorrectionSetValid(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // Always throws.
    void RestoreFactorySettings(const CorrectionSetPtr& set) override;
    bool IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& set) override;
    // Always throws: writing an empty list empties the table.
    void EraseCorrectionSet(CorrectionSetPtr& set) override;

    // The whole table. Throws for a list that is not valid and for one that is too long; sizes are those of the sensor.
    static std::vector<std::uint8_t> ConvertDefectsListToBinary(const SensorDefectList& defects, std::uint32_t width,
                                                                std::uint32_t height);

private:
    static std::string getDpcFeatureName(const boost::shared_ptr<CameraAbstraction>& camera);

    std::string m_dpcFeatureName;
};

} // namespace KTR::DPC
