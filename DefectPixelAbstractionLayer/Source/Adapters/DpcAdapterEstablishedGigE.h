// The adapter for the established GigE cameras: one table of defect rectangles in camera memory.
#pragma once

#include "DefectRectangleTable.h"
#include "OneSetAdapter.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Names, addresses and sizes in the cameras of this family.
namespace EstablishedGigE
{
inline const std::string DPC_FeatureName = "DefectMaskEnable"; // switches the correction
constexpr std::uint64_t REG_DefectNumMax = 0x19100;            // register: capacity of the table, in units of 4 bytes
constexpr std::uint64_t REG_DefectNumEntries = 0x19104;        // register: entries now in the table
constexpr std::uint64_t REG_ReadWriteBaseAddress = 0x19300;    // memory: the table
constexpr std::size_t PvMaxGigEMemoryAccess = 256;             // bytes of the largest single access
constexpr std::size_t MaxPacketSizeInBytes = 256;              // bytes of a written packet, end mark included
// What a defect takes of the capacity, in bytes: the camera's own measure, whatever the size of its record.
constexpr std::uint64_t SinglePixelRecordSize = 4;
constexpr std::uint64_t ColumnRecordSize = 6;
constexpr std::uint64_t RowRecordSize = 6;
constexpr std::uint64_t ClusterRecordSize = 8;
} // namespace EstablishedGigE

// The camera counts the entries itself when it meets the end of a written table: nothing here writes the count.
class DpcAdapterEstablishedGigE final : public OneSetAdapter
{
public:
    // Reads sensor size, switch and capacity from the camera; throws when its switch is none of the known ones.
    DpcAdapterEstablishedGigE(const boost::shared_ptr<CameraAbstraction>& camera,
                              const std::vector<SensorDefectType>& supportedDefectTypes);

    bool IsCorrectionSetEnabled(const CorrectionSetPtr& set) override;
    void SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled) override;
    SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) override;
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // By the camera's own measure. Throws for runs of pixels, which that measure does not know.
    bool IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // Always throws.
    void RestoreFactorySettings(const CorrectionSetPtr& set) override;
    bool IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& set) override;
    void EraseCorrectionSet(CorrectionSetPtr& set) override;

private:
    void readSwitchEntries();
    std::vector<std::uint8_t> readTable();

    bool m_switchIsEnumeration;
    std::string m_offEntry; // of an enumeration, else empty
    std::string m_onEntry;
    std::uint64_t m_capacity = 0; // bytes
};

} // namespace KTR::DPC
