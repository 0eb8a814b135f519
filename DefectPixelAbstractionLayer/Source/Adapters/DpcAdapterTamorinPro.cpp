// The adapter for the Tamorin Pro camera family: features, files and sets.
#include "DpcAdapterTamorinPro.h"

#include "AdapterFailure.h"
#include "ScopedOpenFile.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <stdexcept>

namespace KTR::DPC
{
namespace
{

constexpr const char* SetPrefix = "DPC_";
constexpr const char* UserPrefix = "DPC_User";
constexpr unsigned FactoryDataset = 0x2000; // the set's number is added
constexpr unsigned UserDataset = 0x2800;

// The blocks with metadata stand at a file's start, so that a listing need not read whole files.
constexpr std::uint64_t MetadataRange = 200; // bytes

bool beginsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

// A failure of the number parser that reaches the user as all failures of the camera layers do.
class NumberException final : public System::Exception, public std::invalid_argument
{
public:
    explicit NumberException(const std::string& message)
        : System::Exception(message, true),
          std::invalid_argument(message)
    {
    }
};

} // namespace

DpcAdapterTamorinPro::DpcAdapterTamorinPro(const boost::shared_ptr<CameraAbstraction>& camera)
    : CameraAdapter(camera, {SensorDefectType::Pixel})
{
    camera->SetFeatureEnumValue(TamorinPro::CORRECTION_MODE, "Off");
}

std::vector<DpcAdapter::CorrectionSetPtr> DpcAdapterTamorinPro::GetAvailableCorrectionSets()
{
    return m_cacheState == 1 ? m_correctionSets : __GetAvailableCorrectionSets(false);
}

std::vector<DpcAdapter::CorrectionSetPtr> DpcAdapterTamorinPro::GetAvailableCorrectionSetsWithMetadata()
{
    return m_cacheState == 2 ? m_correctionSets : __GetAvailableCorrectionSets(true);
}

std::vector<DpcAdapter::CorrectionSetPtr>& DpcAdapterTamorinPro::__GetAvailableCorrectionSets(bool withMetadata)
{
    explained("Could not get enum values of CorrectionSetSelect : ",
              [&]
              {
                  for (const auto& name : camera()->GetFeatureEnumValues(TamorinPro::FILE_SELECTOR_FEATURE))
                  {
                      if (!beginsWith(name, SetPrefix))
                      {
                          continue;
                      }
                      const auto set = boost::make_shared<CorrectionSet>(name);
                      if (withMetadata)
                      {
                          std::vector<std::uint8_t> bytes;
                          getCorrectionSetRawData(set, bytes, MetadataRange);
                          for (const auto& [key, value] : GetCorrectionSetMetadata(bytes))
                          {
                              set->setMetadata(key, value);
                          }
                      }
                      m_correctionSets.push_back(set);
                  }
              });
    return m_correctionSets;
}

DpcAdapter::CorrectionSetPtr DpcAdapterTamorinPro::GetDefaultCorrectionSet()
{
    return boost::make_shared<CorrectionSet>(TamorinPro::CORRECTION_SET_DEFAULT_FEATURE);
}

void DpcAdapterTamorinPro::SetDefaultCorrectionSet(const CorrectionSetPtr& /*set*/)
{
    fail("SetDefaultCorrectionSet not available on Tamorin Pro");
}

std::uint16_t DpcAdapterTamorinPro::GetDatasetFileId(const CorrectionSetPtr& set)
{
    const auto name = set->getName();
    const auto end = name.substr(name.rfind('_') + 1);
    const auto digits = end.substr(0, end.find_first_not_of("0123456789"));
    unsigned long number = 0;
    try
    {
        number = std::stoul(digits);
    }
    catch (const std::logic_error&)
    {
        throw NumberException("The name of correction set " + name + " does not end in the number of a dataset.");
    }
    return static_cast<std::uint16_t>((IsCorrectionSetWritable(set) ? UserDataset : FactoryDataset) | number);
}

bool DpcAdapterTamorinPro::IsCorrectionSetEnabled(const CorrectionSetPtr& set)
{
    const auto id = GetDatasetFileId(set);
    return camera()->GetFeatureIntegerValue("DPCDatasetFileId") == id &&
           camera()->GetFeatureEnumValue("DPCMode") == "On" &&
           camera()->GetFeatureEnumValue(TamorinPro::CORRECTION_MODE) == "Off";
}

void DpcAdapterTamorinPro::SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled)
{
    if (!enabled)
    {
        camera()->SetFeatureEnumValue("DPCMode", "Off");
        return;
    }
    const auto id = GetDatasetFileId(set);
    explained("Could not set value of Correction mode for Correction Set " + set->getName() + ".\n",
              [&]
              {
                  camera()->SetFeatureEnumValue("DPCMode", "On");
                  camera()->SetFeatureIntegerValue("DPCDatasetFileId", id);
              });
}

boost::shared_ptr<FileInterface> DpcAdapterTamorinPro::getFileForCorrectionSet(const CorrectionSetPtr& set)
{
    return camera()->GetFile(set->getName());
}

bool DpcAdapterTamorinPro::IsCorrectionSetReadable(const CorrectionSetPtr& set)
{
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file " + set->getName());
    }
    return file->GetSize() != 0;
}

void DpcAdapterTamorinPro::getCorrectionSetRawData(const CorrectionSetPtr& set, std::vector<std::uint8_t>& bytes,
                                                   std::uint64_t maximum)
{
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file " + set->getName());
    }
    if (file->GetSize() == 0)
    {
        return;
    }
    ScopedOpenFile source(file, FileInterface::FileOpenMode::Read);
    if (const auto size = source->GetSize(); size != 0)
    {
        source->Read(bytes, std::min(maximum, size));
    }
    source.Close();
}

SensorDefectList DpcAdapterTamorinPro::ReadCorrectionSet(const CorrectionSetPtr& set)
{
    std::vector<std::uint8_t> bytes;
    getCorrectionSetRawData(set, bytes, 0);
    return getSensorDefectsListFromRawData(bytes);
}

bool DpcAdapterTamorinPro::IsCorrectionSetWritable(const CorrectionSetPtr& set)
{
    return beginsWith(set->getName(), UserPrefix);
}

bool DpcAdapterTamorinPro::IsCorrectionSetAvailable(const CorrectionSetPtr& set)
{
    return camera()->IsEnumEntryAvailable(TamorinPro::FILE_SELECTOR_FEATURE, set->getName());
}

void DpcAdapterTamorinPro::WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects)
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
    if (defects.empty())
    {
        EraseCorrectionSetImpl(set);
        return;
    }
    const auto bytes = ConvertDefectsListToBinary(*set, defects, GetSensorWidth(), GetSensorHeight());
    ScopedOpenFile target(file, FileInterface::FileOpenMode::Write);
    target->Write(bytes);
    target.Close();
    writeDescription(*file, *set);
}

void DpcAdapterTamorinPro::RestoreFactorySettings(const CorrectionSetPtr& /*set*/)
{
    fail("RestoreFactorySettings is not available for Tamorin Pro Cameras");
}

bool DpcAdapterTamorinPro::IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& /*set*/)
{
    return false;
}

void DpcAdapterTamorinPro::EraseCorrectionSet(CorrectionSetPtr& set)
{
    EraseCorrectionSetImpl(set);
}

void DpcAdapterTamorinPro::EraseCorrectionSetImpl(const CorrectionSetPtr& set)
{
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file for correction set " + set->getName());
    }
    file->Delete();
}

} // namespace KTR::DPC
