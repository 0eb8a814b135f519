// The adapter for the established GigE cameras that mask columns: one table in camera memory.
#include "DpcAdapterLoadDefects.h"

#include "AdapterFailure.h"
#include "ColumnMaskTable.h"

#include <boost/format.hpp>

#include <algorithm>

namespace KTR::DPC
{

using namespace LoadDefects;

DpcAdapterLoadDefects::DpcAdapterLoadDefects(const boost::shared_ptr<CameraAbstraction>& camera)
    : OneSetAdapter(camera, "ColumnMaskingTable",
                    {SensorDefectType::Pixel, SensorDefectType::PixelColumn, SensorDefectType::Column}),
      m_dpcFeatureName(getDpcFeatureName(camera))
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

bool DpcAdapterLoadDefects::IsCorrectionSetEnabled(const CorrectionSetPtr& /*set*/)
{
    return camera()->GetFeatureBooleanValue(m_dpcFeatureName);
}

void DpcAdapterLoadDefects::SetCorrectionSetEnabled(const CorrectionSetPtr& /*set*/, const bool& enabled)
{
    camera()->SetFeatureBooleanValue(m_dpcFeatureName, enabled);
}

SensorDefectList DpcAdapterLoadDefects::ReadCorrectionSet(const CorrectionSetPtr& /*set*/)
{
    const std::size_t count = camera()->ReadRegisterZoltaLegacy(DPC_DATA_SIZE_REG_ADDR);
    if (count > MostEntries)
    {
        fail((boost::format("The camera claims %1% defects, but its table holds only %2%.") % count % MostEntries)
                 .str());
    }
    // Memory is read in steps of 4 bytes.
    const std::size_t size = (BytesPerEntry * count + 3) / 4 * 4;
    std::vector<std::uint8_t> table(size);
    camera()->ReadMemory(DPC_DATA_RW_MEMORY_ADDR, table);
    if (table.size() != size)
    {
        fail((boost::format("The camera gave %1% instead of %2% bytes of its defect table.") % table.size() % size)
                 .str());
    }
    return decodeColumnMask(table, GetSensorHeight());
}

void DpcAdapterLoadDefects::WriteCorrectionSet(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    camera()->WriteMemory(DPC_DATA_RW_MEMORY_ADDR,
                          ConvertDefectsListToBinary(defects, GetSensorWidth(), GetSensorHeight()));
}

std::vector<std::uint8_t> DpcAdapterLoadDefects::ConvertDefectsListToBinary(const SensorDefectList& defects,
                                                                            std::uint32_t width, std::uint32_t height)
{
    if (!isColumnMask(defects, width, height))
    {
        fail("Cannot Write CorrectionSet: NOT VALID!");
    }
    if (defects.size() > MostEntries)
    {
        fail("Cannot Write CorrectionSet: NOT ENOUGH SPACE!");
    }
    return encodeColumnMask(defects, height);
}

bool DpcAdapterLoadDefects::IsSpaceSufficient(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    return defects.size() <= MostEntries;
}

bool DpcAdapterLoadDefects::IsCorrectionSetValid(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    return isColumnMask(defects, GetSensorWidth(), GetSensorHeight());
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
