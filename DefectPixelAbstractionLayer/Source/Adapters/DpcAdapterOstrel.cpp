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
    : m_sensorWidth(static_cast<std::uint32_t>(camera->GetFeatureIntegerValue("SensorWidth"))),
      m_sensorHeight(static_cast<std::uint32_t>(camera->GetFeatureIntegerValue("SensorHeight"))),
      m_supportedDefectTypes(initializeSupportedSensorDefectTypes()),
      m_camera(camera)
{
}

std::vector<SensorDefectType> DpcAdapterOstrel::initializeSupportedSensorDefectTypes()
{
    return {SensorDefectType::Pixel, SensorDefectType::Row, SensorDefectType::PixelRow};
}

void DpcAdapterOstrel::SetCorrectionSelectorToDPC()
{
    explained("Could not set CorrectionSelector: ", [&]
              { m_camera->SetFeatureEnumValue(Ostrel::CORRECTION_SELECTOR_FEATURE, Ostrel::CORRECTION_SELECTOR_DPC); });
}

void DpcAdapterOstrel::SetCorrectionSetSelector(const CorrectionSetPtr& set)
{
    SetCorrectionSelectorToDPC();
    explained("Could not set CorrectionSetSelector for CorrectionSet" + set->getName() + ".\n",
              [&] { m_camera->SetFeatureEnumValue(Ostrel::CORRECTION_SET_SELECTOR_FEATURE, set->getName()); });
}

boost::shared_ptr<FileInterface> DpcAdapterOstrel::getFileForCorrectionSet(const CorrectionSetPtr& set)
{
    const auto name = Ostrel::CORRECTION_SET_FILENAME + set->getName();
    const auto files = m_camera->GetFiles();
    const auto found =
        std::find_if(files.begin(), files.end(), [&](const auto& file) { return file->GetName() == name; });
    return found == files.end() ? nullptr : *found;
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
    DpcFileOstrel file(getReverseCapability(m_camera), m_sensorWidth, m_sensorHeight);
    addDefects(file, defects);
    return file.getRawData();
}

std::uint32_t DpcAdapterOstrel::GetSensorWidth()
{
    return m_sensorWidth;
}

std::uint32_t DpcAdapterOstrel::GetSensorHeight()
{
    return m_sensorHeight;
}

std::vector<DpcAdapter::CorrectionSetPtr> DpcAdapterOstrel::GetAvailableCorrectionSets()
{
    SetCorrectionSelectorToDPC();
    const auto names = explained("Could not get enum values of CorrectionSetSelect : ", [&]
                                 { return m_camera->GetFeatureEnumValues(Ostrel::CORRECTION_SET_SELECTOR_FEATURE); });
    std::vector<CorrectionSetPtr> sets;
    std::transform(names.begin(), names.end(), std::back_inserter(sets),
                   [](const std::string& name) { return boost::make_shared<CorrectionSet>(name); });
    return sets;
}

DpcAdapter::CorrectionSetPtr DpcAdapterOstrel::GetDefaultCorrectionSet()
{
    SetCorrectionSelectorToDPC();
    const auto name = explained("Could not get enum value of CorrectionSetDefault: ",
                                [&] { return m_camera->GetFeatureEnumValue(Ostrel::CORRECTION_SET_DEFAULT_FEATURE); });
    return boost::make_shared<CorrectionSet>(name);
}

void DpcAdapterOstrel::SetDefaultCorrectionSet(const CorrectionSetPtr& set)
{
    SetCorrectionSelectorToDPC();
    const auto names = explained("Could not get enum values of CorrectionSetDefault: ", [&]
                                 { return m_camera->GetFeatureEnumValues(Ostrel::CORRECTION_SET_DEFAULT_FEATURE); });
    if (std::find(names.begin(), names.end(), set->getName()) == names.end())
    {
        fail("The given CorrectionSet " + set->getName() + " is not valid for CorrectionSetDefault");
    }
    explained("Could not set value of CorrectionSetDefault: ",
              [&] { m_camera->SetFeatureEnumValue(Ostrel::CORRECTION_SET_DEFAULT_FEATURE, set->getName()); });
}

bool DpcAdapterOstrel::IsCorrectionSetEnabled(const CorrectionSetPtr& set)
{
    try
    {
        const auto name = m_camera->GetFeatureEnumValue(Ostrel::CORRECTION_SET_SELECTOR_FEATURE);
        const auto mode = m_camera->GetFeatureEnumValue(Ostrel::CORRECTION_MODE);
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
              [&] { m_camera->SetFeatureEnumValue(Ostrel::CORRECTION_MODE, enabled ? "On" : "Off"); });
}

std::vector<SensorDefectType> DpcAdapterOstrel::GetAvailableDefectTypes()
{
    return m_supportedDefectTypes;
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
    return DpcFileOstrel::getSensorDefectsListFromRawData(bytes, static_cast<std::uint16_t>(m_sensorWidth));
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
    return m_camera->IsEnumEntryAvailable(Ostrel::CORRECTION_SET_SELECTOR_FEATURE, set->getName());
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

bool DpcAdapterOstrel::IsCorrectionSetValid(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    return std::all_of(defects.begin(), defects.end(),
                       [&](const auto& defect)
                       {
                           const auto& types = m_supportedDefectTypes;
                           return std::find(types.begin(), types.end(), defect->GetSensorDefectType()) != types.end();
                       });
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
