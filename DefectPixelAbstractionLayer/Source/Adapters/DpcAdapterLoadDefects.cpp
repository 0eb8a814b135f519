// The adapter for the established GigE cameras that mask columns: one table in camera memory.
#include "DpcAdapterLoadDefects.h"

#include "AdapterFailure.h"
#include "ColumnMaskTable.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>

namespace KTR::DPC
{

using namespace LoadDefects;

DpcAdapterLoadDefects::DpcAdapterLoadDefects(const boost::shared_ptr<CameraAbstraction>& camera)
    : m_sensorWidth(static_cast<std::uint32_t>(camera->GetFeatureIntegerValue("SensorWidth"))),
      m_sensorHeight(static_cast<std::uint32_t>(camera->GetFeatureIntegerValue("SensorHeight"))),
      m_dpcFeatureName(getDpcFeatureName(camera)),
      m_set(boost::make_shared<CorrectionSet>("ColumnMaskingTable")),
      m_camera(camera),
      m_supportedDefectTypes({SensorDefectType::Pixel, SensorDefectType::PixelColumn, SensorDefectType::Column})
{
}

std::string DpcAdapterLoadDefects::getDpcFeatureName(const boost::shared_ptr<CameraAbstraction>& camera)
{
    const auto features = camera->GetAvailableFeatures();
    for (const char* name : {"DefectMaskColumnEnable", "DefectMaskEnable"})
    {
        if (std::find(features.begin(), features.end(), name) != features.end())
        {
            return name;
        }
    }
    fail("Camera is not supported. Feature\"DefectMaskColumnEnable\" or \"DefectMaskEnable\" is missing.");
}

std::uint32_t DpcAdapterLoadDefects::GetSensorWidth()
{
    return m_sensorWidth;
}

std::uint32_t DpcAdapterLoadDefects::GetSensorHeight()
{
    return m_sensorHeight;
}

std::vector<DpcAdapter::CorrectionSetPtr> DpcAdapterLoadDefects::GetAvailableCorrectionSets()
{
    return {m_set};
}

DpcAdapter::CorrectionSetPtr DpcAdapterLoadDefects::GetDefaultCorrectionSet()
{
    return m_set;
}

void DpcAdapterLoadDefects::SetDefaultCorrectionSet(const CorrectionSetPtr& /*set*/) {}

bool DpcAdapterLoadDefects::IsCorrectionSetEnabled(const CorrectionSetPtr& /*set*/)
{
    return m_camera->GetFeatureBooleanValue(m_dpcFeatureName);
}

void DpcAdapterLoadDefects::SetCorrectionSetEnabled(const CorrectionSetPtr& /*set*/, const bool& enabled)
{
    m_camera->SetFeatureBooleanValue(m_dpcFeatureName, enabled);
}

std::vector<SensorDefectType> DpcAdapterLoadDefects::GetAvailableDefectTypes()
{
    return m_supportedDefectTypes;
}

bool DpcAdapterLoadDefects::IsCorrectionSetReadable(const CorrectionSetPtr& /*set*/)
{
    return true;
}

SensorDefectList DpcAdapterLoadDefects::ReadCorrectionSet(const CorrectionSetPtr& /*set*/)
{
    const std::size_t count = m_camera->ReadRegisterZoltaLegacy(DPC_DATA_SIZE_REG_ADDR);
    if (count > MostEntries)
    {
        fail((boost::format("The camera claims %1% defects, but its table holds only %2%.") % count % MostEntries)
                 .str());
    }
    // Memory is read in steps of 4 bytes.
    const std::size_t size = (BytesPerEntry * count + 3) / 4 * 4;
    std::vector<std::uint8_t> table(size);
    m_camera->ReadMemory(DPC_DATA_RW_MEMORY_ADDR, table);
    if (table.size() != size)
    {
        fail((boost::format("The camera gave %1% instead of %2% bytes of its defect table.") % table.size() % size)
                 .str());
    }
    return decodeColumnMask(table, m_sensorHeight);
}

bool DpcAdapterLoadDefects::IsCorrectionSetWritable(const CorrectionSetPtr& /*set*/)
{
    return true;
}

bool DpcAdapterLoadDefects::IsCorrectionSetAvailable(const CorrectionSetPtr& set)
{
    return IsCorrectionSetWritable(set);
}

void DpcAdapterLoadDefects::WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    if (!IsCorrectionSetValid(set, defects))
    {
        fail("Cannot Write CorrectionSet: NOT VALID!");
    }
    if (!IsSpaceSufficient(set, defects))
    {
        fail("Cannot Write CorrectionSet: NOT ENOUGH SPACE!");
    }
    m_camera->WriteMemory(DPC_DATA_RW_MEMORY_ADDR, encodeColumnMask(defects, m_sensorHeight));
}

bool DpcAdapterLoadDefects::IsSpaceSufficient(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    return defects.size() <= MostEntries;
}

bool DpcAdapterLoadDefects::IsCorrectionSetValid(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    return isColumnMask(defects, m_sensorWidth, m_sensorHeight);
}

void DpcAdapterLoadDefects::RestoreFactorySettings(const CorrectionSetPtr& /*set*/)
{
    fail("RestoreFactorySettings is not supported!");
}

bool DpcAdapterLoadDefects::IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& /*set*/)
{
    return false;
}

void DpcAdapterLoadDefects::EraseCorrectionSet(CorrectionSetPtr& /*set*/)
{
    fail("Erase is not supported!");
}

} // namespace KTR::DPC
