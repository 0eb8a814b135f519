// The adapter for the established GigE cameras: one table of defect rectangles in camera memory.
#include "DpcAdapterEstablishedGigE.h"

#include "AdapterFailure.h"

#include <boost/format.hpp>

#include <algorithm>
#include <tuple>
#include <utility>

namespace KTR::DPC
{
namespace
{

using namespace EstablishedGigE;

// The switch as the messages name it.
std::string quotedFeature()
{
    return "\"" + DPC_FeatureName + "\"";
}

std::uint64_t measure(const SensorDefect& defect)
{
    switch (defect.GetSensorDefectType())
    {
    case SensorDefectType::Row:
        return RowRecordSize;
    case SensorDefectType::Column:
        return ColumnRecordSize;
    case SensorDefectType::Pixel:
        return SinglePixelRecordSize;
    case SensorDefectType::Cluster:
        return ClusterRecordSize;
    default:
        fail("Unsupported Defect Type (PixelRow or PixelColumn)!");
    }
}

} // namespace

DpcAdapterEstablishedGigE::DpcAdapterEstablishedGigE(const boost::shared_ptr<CameraAbstraction>& camera,
                                                     const std::vector<SensorDefectType>& supportedDefectTypes)
    : OneSetAdapter(camera, "DefectMaskingTable", supportedDefectTypes),
      m_switchIsEnumeration(camera->GetFeatureType(DPC_FeatureName) == FeatureType::Enumeration)
{
    const auto features = camera->GetAvailableFeatures();
    if (std::find(features.begin(), features.end(), DPC_FeatureName) == features.end())
    {
        fail("Camera is not supported. Feature" + quotedFeature() + " is missing.");
    }
    if (m_switchIsEnumeration)
    {
        readSwitchEntries();
    }
    m_capacity = std::uint64_t{camera->ReadRegisterZoltaLegacy(REG_DefectNumMax)} * 4;
}

void DpcAdapterEstablishedGigE::readSwitchEntries()
{
    const auto entries = camera()->GetFeatureEnumValues(DPC_FeatureName);
    if (entries.size() != 2)
    {
        fail("Invalid enum value count for feature" + quotedFeature() + ".");
    }
    const auto pair = std::make_pair(entries[0], entries[1]);
    if (pair != std::pair<std::string, std::string>("Off", "On") &&
        pair != std::pair<std::string, std::string>("Disabled", "Enabled"))
    {
        fail("Invalid enum values for feature" + quotedFeature() + ".");
    }
    std::tie(m_offEntry, m_onEntry) = pair;
}

bool DpcAdapterEstablishedGigE::IsCorrectionSetEnabled(const CorrectionSetPtr& /*set*/)
{
    if (!m_switchIsEnumeration)
    {
        return camera()->GetFeatureBooleanValue(DPC_FeatureName);
    }
    if (m_onEntry.empty())
    {
        fail("Unknown enum values for feature" + quotedFeature() + ".");
    }
    return camera()->GetFeatureEnumValue(DPC_FeatureName) == m_onEntry;
}

void DpcAdapterEstablishedGigE::SetCorrectionSetEnabled(const CorrectionSetPtr& /*set*/, const bool& enabled)
{
    if (!m_switchIsEnumeration)
    {
        camera()->SetFeatureBooleanValue(DPC_FeatureName, enabled);
        return;
    }
    if (m_offEntry.empty() || m_onEntry.empty())
    {
        fail("Unknown enum values for feature" + quotedFeature() + ".");
    }
    camera()->SetFeatureEnumValue(DPC_FeatureName, enabled ? m_onEntry : m_offEntry);
}

SensorDefectList DpcAdapterEstablishedGigE::ReadCorrectionSet(const CorrectionSetPtr& /*set*/)
{
    return decodeDefectRectangles(readTable(), GetSensorWidth(), GetSensorHeight());
}

std::vector<std::uint8_t> DpcAdapterEstablishedGigE::readTable()
{
    const std::uint64_t count = camera()->ReadRegisterZoltaLegacy(REG_DefectNumEntries);
    if (count > std::uint64_t{GetSensorWidth()} * GetSensorHeight())
    {
        fail((boost::format("The camera claims %1% defects, but its sensor has %2% x %3% pixels.") % count %
              GetSensorWidth() % GetSensorHeight())
                 .str());
    }
    std::vector<std::uint8_t> table;
    const std::size_t size = static_cast<std::size_t>(count) * BytesPerRecord;
    while (table.size() < size)
    {
        const std::uint64_t address = REG_ReadWriteBaseAddress + table.size();
        const std::size_t wanted = std::min(size - table.size(), PvMaxGigEMemoryAccess);
        std::vector<std::uint8_t> part(wanted);
        camera()->ReadMemory(address, part);
        if (part.size() != wanted)
        {
            fail((boost::format("The camera gave %1% instead of %2% bytes of its defect table at %3$#x.") %
                  part.size() % wanted % address)
                     .str());
        }
        table.insert(table.end(), part.begin(), part.end());
    }
    return table;
}

void DpcAdapterEstablishedGigE::WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    if (!IsCorrectionSetValid(set, defects))
    {
        fail("Given CorrectionSet is invalid!");
    }
    if (!IsSpaceSufficient(set, defects))
    {
        fail("Space is not sufficient!");
    }
    auto table = convertToBinary(defects, GetSensorWidth(), GetSensorHeight());
    if (table.size() != defects.size() * BytesPerRecord)
    {
        fail("A defect has coordinates that the camera's table cannot hold.");
    }
    // Every packet but the last one ends with a mark, over which the next packet is written.
    constexpr std::size_t DataSize = MaxPacketSizeInBytes - sizeof(END_OF_PACKET);
    const std::size_t fullPackets = table.empty() ? 0 : (table.size() - 1) / DataSize;
    auto data = table.begin();
    std::uint64_t address = REG_ReadWriteBaseAddress;
    for (std::size_t i = 0; i < fullPackets; ++i)
    {
        std::vector<std::uint8_t> packet(data, data + DataSize);
        packet.resize(MaxPacketSizeInBytes, 0xFF); // END_OF_PACKET
        camera()->WriteMemory(address, packet);
        data += DataSize;
        address += DataSize;
    }
    std::vector<std::uint8_t> packet(data, table.end());
    const auto mark = endOfDefinition();
    packet.insert(packet.end(), mark.begin(), mark.end());
    camera()->WriteMemory(address, packet);
}

bool DpcAdapterEstablishedGigE::IsSpaceSufficient(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    std::uint64_t sum = 0;
    for (const auto& defect : defects)
    {
        sum += measure(*defect);
    }
    return sum <= m_capacity;
}

void DpcAdapterEstablishedGigE::RestoreFactorySettings(const CorrectionSetPtr& /*set*/)
{
    fail("RestoreFactorySettings is not supported!");
}

bool DpcAdapterEstablishedGigE::IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& /*set*/)
{
    return false;
}

void DpcAdapterEstablishedGigE::EraseCorrectionSet(CorrectionSetPtr& /*set*/)
{
    camera()->WriteMemory(REG_ReadWriteBaseAddress, endOfDefinition());
}

} // namespace KTR::DPC
