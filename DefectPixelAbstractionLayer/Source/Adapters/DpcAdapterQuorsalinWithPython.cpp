// Correction set operations of the flash family.
#include "DpcAdapterQuorsalinWithPython.h"

#include "AdapterFailure.h"
#include "PixelDefect.h"
#include "QuorsalinFlashRegisters.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <limits>

namespace KTR::DPC
{

using namespace QuorsalinWithPython;

namespace
{

constexpr std::uint64_t HeldBack = 256; // bytes of the flash that no file gets

// Beyond what 16 bits hold is beyond any sensor, and stays so.
std::uint16_t saturated(std::uint32_t coordinate)
{
    return static_cast<std::uint16_t>(std::min<std::uint32_t>(coordinate, std::numeric_limits<std::uint16_t>::max()));
}

std::vector<PixelCoords> pixelsAmong(const SensorDefectList& defects)
{
    std::vector<PixelCoords> places;
    places.reserve(defects.size());
    for (const auto& defect : defects)
    {
        if (defect->GetSensorDefectType() == SensorDefectType::Pixel)
        {
            const auto& pixel = static_cast<const PixelDefect&>(*defect);
            places.push_back({saturated(pixel.getY()), saturated(pixel.getX())});
        }
    }
    return places;
}

std::uint16_t coordinate(const unsigned char* bytes, bool littleEndian)
{
    return static_cast<std::uint16_t>(littleEndian ? bytes[0] | bytes[1] << 8 : bytes[0] << 8 | bytes[1]);
}

} // namespace

CameraInfo QuorsalinWithPython::initializeCameraInfo(const boost::shared_ptr<CameraAbstraction>& camera)
{
    CameraInfo info;
    const auto features = camera->GetAvailableFeatures();
    const auto readIfThere = [&](const std::string& name, std::string& value)
    {
        if (std::find(features.begin(), features.end(), name) != features.end())
        {
            value = camera->GetFeatureStringValue(name);
        }
    };
    readIfThere(deviceModelFeatureName, info.modelName);
    readIfThere(serialNumberFeatureName, info.serialNumber);
    info.sensorWidth = static_cast<std::uint64_t>(camera->GetFeatureIntegerValue("SensorWidth"));
    info.sensorHeight = static_cast<std::uint64_t>(camera->GetFeatureIntegerValue("SensorHeight"));
    info.sensorType = camera->GetFeatureEnumValue("SensorType");
    return info;
}

DpcAdapterQuorsalinWithPython::DpcAdapterQuorsalinWithPython(const boost::shared_ptr<CameraAbstraction>& camera,
                                                             std::chrono::milliseconds pollPeriod)
    : OneSetAdapter(camera, "Defect Pixel List", {SensorDefectType::Pixel}),
      m_cameraInfo(initializeCameraInfo(camera)),
      m_maxDefects(0),
      m_maxFileSize(camera->ReadRegisterZoltaLegacy(FlashFileMaxSize)),
      m_pollPeriod(pollPeriod)
{
    // Wraps round for a camera with next to no flash: then only the size of the file is a limit.
    m_maxDefects = (std::uint64_t{m_maxFileSize} - (DpcHeader::Size + HeldBack)) / DpcHeader::RecordSize;
}

bool DpcAdapterQuorsalinWithPython::IsCorrectionSetEnabled(const CorrectionSetPtr& /*set*/)
{
    return camera()->GetFeatureBooleanValue(dpcFeatureName);
}

void DpcAdapterQuorsalinWithPython::SetCorrectionSetEnabled(const CorrectionSetPtr& /*set*/, const bool& enabled)
{
    camera()->SetFeatureBooleanValue(dpcFeatureName, enabled);
}

SensorDefectList DpcAdapterQuorsalinWithPython::ReadCorrectionSet(const CorrectionSetPtr& /*set*/)
{
    if (!CameraSupportsFlashFileAccess())
    {
        fail("Camera does not support Flash file access!");
    }
    std::vector<unsigned char> file;
    DownloadFlashFile(FF_ID_UserDefect, file);
    return DecodeBinaryDefectFile(file);
}

void DpcAdapterQuorsalinWithPython::WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    if (!IsCorrectionSetValid(set, defects))
    {
        fail("The given CorrectionSet is invalid!");
    }
    if (!IsSpaceSufficient(set, defects))
    {
        fail("Not enough flash memory for the given CorrectionSet!");
    }
    UploadDefectivePixelList(CreateBinaryDefectFile(defects, m_cameraInfo));
}

bool DpcAdapterQuorsalinWithPython::IsSpaceSufficient(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    return defects.size() <= m_maxDefects;
}

bool DpcAdapterQuorsalinWithPython::IsCorrectionSetValid(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    if (!CameraAdapter::IsCorrectionSetValid(set, defects))
    {
        return false;
    }
    NeighborByteEncoding encoding;
    encoding.Initialize(m_cameraInfo, pixelsAmong(defects));
    std::vector<PixelCoords> refused;
    return encoding.Generate1DNbEncodingFromDefectList() &&
           ValidateDefectivePixelCoordinates(refused, encoding, m_cameraInfo) &&
           encoding.GetDefectFileSize() % FileSizeStep == 0;
}

void DpcAdapterQuorsalinWithPython::RestoreFactorySettings(const CorrectionSetPtr& /*set*/)
{
    std::vector<unsigned char> file;
    if (!DownloadFlashFile(FF_ID_FactoryDefect, file))
    {
        fail("Error! Could not download factory defect list.");
    }
    UploadDefectivePixelList(file);
}

bool DpcAdapterQuorsalinWithPython::IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& /*set*/)
{
    return true;
}

void DpcAdapterQuorsalinWithPython::EraseCorrectionSet(CorrectionSetPtr& set)
{
    RestoreFactorySettings(set);
}

SensorDefectList DpcAdapterQuorsalinWithPython::DecodeBinaryDefectFile(const std::vector<unsigned char>& file)
{
    if (file.empty())
    {
        return {};
    }
    if (file.size() < DpcHeader::Size)
    {
        fail((boost::format("The defect file has %1% bytes, less than its header of %2%.") % file.size() %
              DpcHeader::Size)
                 .str());
    }
    const DpcHeader header(file);
    const std::size_t count = header.GetDefectCount();
    if (count > (file.size() - DpcHeader::Size) / DpcHeader::RecordSize)
    {
        fail((boost::format("The defect file claims %1% defects, more than its %2% bytes hold.") % count % file.size())
                 .str());
    }
    SensorDefectList defects;
    defects.reserve(count);
    const unsigned char* record = file.data() + DpcHeader::Size;
    for (std::size_t i = 0; i < count; ++i, record += DpcHeader::RecordSize)
    {
        const std::uint16_t column = coordinate(record, header.IsLittleEndian());
        defects.push_back(boost::make_shared<PixelDefect>(column, coordinate(record + 2, header.IsLittleEndian())));
    }
    return defects;
}

std::vector<unsigned char> DpcAdapterQuorsalinWithPython::CreateBinaryDefectFile(const SensorDefectList& defects,
                                                                                 const CameraInfo& info)
{
    NeighborByteEncoding encoding;
    encoding.Initialize(info, pixelsAmong(defects));
    if (!encoding.Generate1DNbEncodingFromDefectList())
    {
        fail("Generate1DNbEncodingFromDefectImage() failed");
    }
    std::vector<PixelCoords> refused;
    if (!ValidateDefectivePixelCoordinates(refused, encoding, info))
    {
        fail("ValidateDefectivePixelCoordinates() failed");
    }
    const std::size_t size = encoding.GetDefectFileSize();
    if (size % FileSizeStep != 0)
    {
        fail("Defect File size is not multiple of 4.");
    }
    std::vector<unsigned char> file(size);
    if (!encoding.PrepareBinaryDefectFile(file))
    {
        fail("Formating Defect File data failed");
    }
    return file;
}

bool DpcAdapterQuorsalinWithPython::ValidateDefectivePixelCoordinates(std::vector<PixelCoords>& refused,
                                                                      NeighborByteEncoding& encoding,
                                                                      const CameraInfo& info)
{
    refused = encoding.RemoveOutOfRangeDefects(info);
    if (refused.empty())
    {
        refused = encoding.RemoveUncorrectableDefects();
    }
    if (refused.empty())
    {
        refused = encoding.GetUnrecommendedDefects();
    }
    return refused.empty();
}

} // namespace KTR::DPC
