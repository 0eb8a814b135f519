// The adapter for the Ostrel camera family: one file for each correction set, in the camera's file system.
#include "DpcAdapterOstrel.h"

#include "AdapterFailure.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "ReverseCapability.h"
#include "RowDefect.h"
#include "ScopedOpenFile.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <iterator>

namespace KTR::DPC
{

DpcAdapterOstrel::DpcAdapterOstrel(const boost::shared_ptr<CameraAbstraction>& camera)
    : CameraAdapter(camera, {SensorDefectType::Pixel, SensorDefectType::Row, SensorDefectType::PixelRow})
{
}

void DpcAdapterOstrel::SetCorrectionSelectorToDPC()
{
    explained("Could not set CorrectionSelector: ", [&]
              { camera()->SetFeatureEnumValue(Ostrel::CORRECTION_SELECTOR_FEATURE, Ostrel::CORRECTION_SELECTOR_DPC); });
}

void DpcAdapterOstrel::SetCorrectionSetSelector(const CorrectionSetPtr& set)
{
    SetCorrectionSelectorToDPC();
    explained("Could not set CorrectionSetSelector for CorrectionSet" + set->getName() + ".\n",
              [&] { camera()->SetFeatureEnumValue(Ostrel::CORRECTION_SET_SELECTOR_FEATURE, set->getName()); });
}

boost::shared_ptr<FileInterface> DpcAdapterOstrel::getFileForCorrectionSet(const CorrectionSetPtr& set)
{
    return fileNamed(Ostrel::CORRECTION_SET_FILENAME + set->getName());
}

boost::shared_ptr<FileInterface> DpcAdapterOstrel::fileNamed(const std::string& name)
{
    const auto files = camera()->GetFiles();
    const auto found =
        std::find_if(files.begin(), files.end(), [&](const auto& file) { return file->GetName() == name; });
    return found == files.end() ? nullptr : *found;
}

std::vector<DpcAdapter::CorrectionSetPtr> DpcAdapterOstrel::setsNamed(const std::vector<std::string>& names)
{
    std::vector<CorrectionSetPtr> sets;
    std::transform(names.begin(), names.end(), std::back_inserter(sets),
                   [](const std::string& name) { return boost::make_shared<CorrectionSet>(name); });
    return sets;
}

void DpcAdapterOstrel::addDefects(DpcFileOstrel& file, const SensorDefectList& defects)
{
    const auto cut = [](std::uint32_t coordinate) { return static_cast<std::uint16_t>(coordinate); };
    for (const auto& defect : defects)
    {
        switch (defect->GetSensorDefectType())
        {
        case SensorDefectType::Pixel:
        {
            const auto& pixel = static_cast<const PixelDefect&>(*defect);
            file.addSinglePixelDefect(cut(pixel.getX()), cut(pixel.getY()));
            break;
        }
        case SensorDefectType::PixelRow:
        {
            const auto& run = static_cast<const PixelRowDefect&>(*defect);
            file.addPixelRowDefect(cut(run.getX()), cut(run.getX() + run.getWidth() - 1), cut(run.getY()));
            break;
        }
        case SensorDefectType::Row:
            file.addRowDefect(cut(static_cast<const RowDefect&>(*defect).getY()));
            break;
        default:
            break;
        }
    }
}

std::vector<std::uint8_t> DpcAdapterOstrel::ConvertDefectsListToBinary(const SensorDefectList& defects)
{
    DpcFileOstrel file(getReverseCapability(camera()), GetSensorWidth(), GetSensorHeight());
    addDefects(file, defects);
    return file.getRawData();
}

std::vector<DpcAdapter::CorrectionSetPtr> DpcAdapterOstrel::GetAvailableCorrectionSets()
{
    SetCorrectionSelectorToDPC();
    return setsNamed(explained("Could not get enum values of CorrectionSetSelect : ", [&]
                               { return camera()->GetFeatureEnumValues(Ostrel::CORRECTION_SET_SELECTOR_FEATURE); }));
}

DpcAdapter::CorrectionSetPtr DpcAdapterOstrel::GetDefaultCorrectionSet()
{
    SetCorrectionSelectorToDPC();
    const auto name = explained("Could not get enum value of CorrectionSetDefault: ",
                                [&] { return camera()->GetFeatureEnumValue(Ostrel::CORRECTION_SET_DEFAULT_FEATURE); });
    return boost::make_shared<CorrectionSet>(name);
}

void DpcAdapterOstrel::SetDefaultCorrectionSet(const CorrectionSetPtr& set)
{
    SetCorrectionSelectorToDPC();
    const auto names = explained("Could not get enum values of CorrectionSetDefault: ", [&]
                                 { return camera()->GetFeatureEnumValues(Ostrel::CORRECTION_SET_DEFAULT_FEATURE); });
    if (std::find(names.begin(), names.end(), set->getName()) == names.end())
    {
        fail("The given CorrectionSet " + set->getName() + " is not valid for CorrectionSetDefault");
    }
    explained("Could not set value of CorrectionSetDefault: ",
              [&] { camera()->SetFeatureEnumValue(Ostrel::CORRECTION_SET_DEFAULT_FEATURE, set->getName()); });
}

bool DpcAdapterOstrel::IsCorrectionSetEnabled(const CorrectionSetPtr& set)
{
    try
    {
        const auto name = camera()->GetFeatureEnumValue(Ostrel::CORRECTION_SET_SELECTOR_FEATURE);
        const auto mode = camera()->GetFeatureEnumValue(Ostrel::CORRECTION_MODE);
        return name == set->getName() && mode == "On";
    }
    catch (const System::Exception&)
    {
        return false;
    }
}

void DpcAdapterOstrel::SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled)
{
    SetCorrectionSetSelector(set);
    explained("Could not set value of Correction mode for Correction Set " + set->getName() + ".\n",
              [&] { camera()->SetFeatureEnumValue(Ostrel::CORRECTION_MODE, enabled ? "On" : "Off"); });
}

bool DpcAdapterOstrel::IsCorrectionSetReadable(const CorrectionSetPtr& /*set*/)
{
    return true;
}

SensorDefectList DpcAdapterOstrel::ReadCorrectionSet(const CorrectionSetPtr& set)
{
    if (!IsCorrectionSetReadable(set))
    {
        fail("CorrectionSet " + set->getName() + " is not readable!");
    }
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file " + Ostrel::CORRECTION_SET_FILENAME);
    }
    ScopedOpenFile sized(file, FileInterface::FileOpenMode::Read);
    const std::uint64_t size = sized->GetSize();
    sized.Close();
    if (size == 0)
    {
        return {};
    }
    std::vector<std::uint8_t> bytes;
    ScopedOpenFile source(file, FileInterface::FileOpenMode::Read);
    source->Read(bytes, 0);
    source.Close();
    return DpcFileOstrel::getSensorDefectsListFromRawData(bytes, static_cast<std::uint16_t>(GetSensorWidth()));
}

bool DpcAdapterOstrel::IsCorrectionSetWritable(const CorrectionSetPtr& set)
{
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file " + Ostrel::CORRECTION_SET_FILENAME);
    }
    return file->IsWritable();
}

bool DpcAdapterOstrel::IsCorrectionSetAvailable(const CorrectionSetPtr& set)
{
    SetCorrectionSelectorToDPC();
    return camera()->IsEnumEntryAvailable(Ostrel::CORRECTION_SET_SELECTOR_FEATURE, set->getName());
}

void DpcAdapterOstrel::WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    if (!IsCorrectionSetWritable(set))
    {
        fail("The given correction set cannot be overwritten");
    }
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file for correction set " + set->getName());
    }
    // Encoded before the file is opened, so that a list that cannot be encoded leaves the camera as it is.
    const auto bytes = ConvertDefectsListToBinary(defects);
    ScopedOpenFile target(file, FileInterface::FileOpenMode::Write);
    target->Write(bytes);
    target.Close();
}

bool DpcAdapterOstrel::IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file for correction set " + set->getName());
    }
    return file->GetSizeMax() > ConvertDefectsListToBinary(defects).size();
}

void DpcAdapterOstrel::RestoreFactorySettings(const CorrectionSetPtr& /*set*/)
{
    fail("RestoreFactorySettings is not available for Ostrel Cameras");
}

bool DpcAdapterOstrel::IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& /*set*/)
{
    return false;
}

void DpcAdapterOstrel::EraseCorrectionSet(CorrectionSetPtr& set)
{
    WriteCorrectionSet(set, {});
}

} // namespace KTR::DPC
