// The adapter for the Rivo U camera family: one file that shows the set which a selector names.
#include "DpcAdapterRivoU.h"

#include "AdapterFailure.h"
#include "DpcFileRivoU.h"
#include "ScopedOpenFile.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace KTR::DPC
{

DpcAdapterRivoU::DpcAdapterRivoU(const boost::shared_ptr<CameraAbstraction>& camera)
    : DpcAdapterOstrel(camera),
      m_reverseCapability(getReverseCapability(camera))
{
}

void DpcAdapterRivoU::SetCorrectionSelectorToDPC()
{
    explained("Could not set CorrectionSelector: ", [&]
              { camera()->SetFeatureEnumValue(RivoU::CORRECTION_SELECTOR_FEATURE, RivoU::CORRECTION_SELECTOR_DPC); });
}

void DpcAdapterRivoU::SetCorrectionSetSelector(const CorrectionSetPtr& set)
{
    SetCorrectionSelectorToDPC();
    explained("Could not set CorrectionSetSelector for CorrectionSet" + set->getName() + ".\n",
              [&] { camera()->SetFeatureEnumValue(RivoU::CORRECTION_SET_SELECTOR_FEATURE, set->getName()); });
}

boost::shared_ptr<FileInterface> DpcAdapterRivoU::getFileForCorrectionSet(const CorrectionSetPtr& /*set*/)
{
    return fileNamed(RivoU::CORRECTION_SET_FILENAME);
}

boost::shared_ptr<FileInterface> DpcAdapterRivoU::fileToChange(const CorrectionSetPtr& set)
{
    auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file for CorrectionSet " + set->getName());
    }
    return file;
}

std::vector<std::uint8_t> DpcAdapterRivoU::ConvertDefectsListToBinary(const SensorDefectList& defects)
{
    DpcFileRivoU file(m_reverseCapability, GetSensorWidth(), GetSensorHeight());
    addDefects(file, defects);
    return file.getRawData();
}

std::vector<DpcAdapter::CorrectionSetPtr> DpcAdapterRivoU::GetAvailableCorrectionSets()
{
    SetCorrectionSelectorToDPC();
    return setsNamed(explained("Could not get enum values of CorrectionSetSelect: ",
                               [&] { return camera()->GetFeatureEnumValues(RivoU::CORRECTION_SET_SELECTOR_FEATURE); }));
}

DpcAdapter::CorrectionSetPtr DpcAdapterRivoU::GetDefaultCorrectionSet()
{
    SetCorrectionSelectorToDPC();
    const auto name = explained("Could not get value of CorrectionSetDefault: ",
                                [&] { return camera()->GetFeatureEnumValue(RivoU::CORRECTION_SET_DEFAULT_FEATURE); });
    return boost::make_shared<CorrectionSet>(name);
}

void DpcAdapterRivoU::SetDefaultCorrectionSet(const CorrectionSetPtr& set)
{
    SetCorrectionSelectorToDPC();
    const auto names = explained("Could not get enum values of CorrectionSetDefault: ",
                                 [&] { return camera()->GetFeatureEnumValues(RivoU::CORRECTION_SET_DEFAULT_FEATURE); });
    if (std::find(names.begin(), names.end(), set->getName()) == names.end())
    {
        fail("The given CorrectionSet is not valid for CorrectionSetDefault");
    }
    explained("Could not set value of CorrectionSetDefault: ",
              [&] { camera()->SetFeatureEnumValue(RivoU::CORRECTION_SET_DEFAULT_FEATURE, set->getName()); });
}

bool DpcAdapterRivoU::IsCorrectionSetEnabled(const CorrectionSetPtr& set)
{
    SetCorrectionSetSelector(set);
    return explained("Could not get value of CorrectionMode for CorrectionSet " + set->getName() + ".\n",
                     [&] { return camera()->GetFeatureEnumValue(RivoU::CORRECTION_MODE) == "On"; });
}

void DpcAdapterRivoU::SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled)
{
    SetCorrectionSetSelector(set);
    explained("Could not set value of CorrectionMode for CorrectionSet " + set->getName() + ".\n",
              [&] { camera()->SetFeatureEnumValue(RivoU::CORRECTION_MODE, enabled ? "On" : "Off"); });
}

std::vector<SensorDefectType> DpcAdapterRivoU::GetAvailableDefectTypes()
{
    return DpcAdapterOstrel::GetAvailableDefectTypes();
}

bool DpcAdapterRivoU::IsCorrectionSetReadable(const CorrectionSetPtr& /*set*/)
{
    return true;
}

bool DpcAdapterRivoU::IsCorrectionSetWritable(const CorrectionSetPtr& set)
{
    return IsCorrectionSetReadable(set);
}

bool DpcAdapterRivoU::IsCorrectionSetAvailable(const CorrectionSetPtr& set)
{
    return IsCorrectionSetWritable(set);
}

SensorDefectList DpcAdapterRivoU::ReadCorrectionSet(const CorrectionSetPtr& set)
{
    SetCorrectionSetSelector(set);
    if (!IsCorrectionSetReadable(set))
    {
        fail("CorrectionSet " + set->getName() + " is not readable!");
    }
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file " + RivoU::CORRECTION_SET_FILENAME);
    }
    if (file->GetSize() == 0)
    {
        return {};
    }
    std::vector<std::uint8_t> bytes;
    ScopedOpenFile source(file, FileInterface::FileOpenMode::Read);
    source->Read(bytes, 0);
    source.Close();
    return DpcFileRivoU::getSensorDefectsListFromRawData(bytes, static_cast<std::uint16_t>(GetSensorWidth()));
}

void DpcAdapterRivoU::WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    SetCorrectionSetSelector(set);
    if (!IsCorrectionSetWritable(set))
    {
        fail("CorrectionSet " + set->getName() + " is not writable!");
    }
    if (!IsCorrectionSetValid(set, defects))
    {
        fail("The given CorrectionSet Data is not valid!");
    }
    const auto file = fileToChange(set);
    const auto bytes = ConvertDefectsListToBinary(defects);
    if (bytes.size() > file->GetSizeMax())
    {
        fail("Space is not sufficient: Max filesize: " + std::to_string(file->GetSizeMax()) +
             "; Size of Defects: " + std::to_string(bytes.size()));
    }
    ScopedOpenFile target(file, FileInterface::FileOpenMode::Write);
    target->Write(bytes);
    target.Close();
}

bool DpcAdapterRivoU::IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    SetCorrectionSetSelector(set);
    if (!IsCorrectionSetWritable(set))
    {
        fail("CorrectionSet " + set->getName() + " is not writable!");
    }
    const auto file = fileToChange(set);
    return ConvertDefectsListToBinary(defects).size() <= file->GetSizeMax();
}

void DpcAdapterRivoU::RestoreFactorySettings(const CorrectionSetPtr& /*set*/)
{
    fail("RestoreFactorySettings is not supported by Rivo-U");
}

bool DpcAdapterRivoU::IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& /*set*/)
{
    return false;
}

void DpcAdapterRivoU::EraseCorrectionSet(CorrectionSetPtr& set)
{
    SetCorrectionSetSelector(set);
    const auto file = fileToChange(set);
    if (file->GetSize() != 0)
    {
        ScopedOpenFile target(file, FileInterface::FileOpenMode::Write);
        target->Write({});
        target.Close();
    }
}

} // namespace KTR::DPC
