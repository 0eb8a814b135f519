#include "Families.h"

#include "ColumnMaskTable.h"
#include "DefectRectangleTable.h"
#include "DpcAdapterLoadDefects.h"
#include "DpcAdapterOstrel.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "DpcAdapterTamorinPro.h"
#include "DpcFileOstrel.h"
#include "DpcFileRivoU.h"
#include "Exception.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>

namespace CommandLine
{

namespace
{

std::vector<std::uint8_t> EncodeOstrel(const KTR::DPC::SensorDefectList& defects, const SensorDescription& sensor,
                                       const Conditions&)
{
    KTR::DPC::DpcFileOstrel file(sensor.reverse, sensor.width, sensor.height);
    KTR::DPC::DpcAdapterOstrel::addDefects(file, defects);
    return file.getRawData();
}

KTR::DPC::SensorDefectList DecodeOstrel(const std::vector<std::uint8_t>& bytes, const SensorDescription& sensor)
{
    return KTR::DPC::DpcFileOstrel::getSensorDefectsListFromRawData(bytes, static_cast<std::uint16_t>(sensor.width));
}

std::vector<std::uint8_t> EncodeRivoU(const KTR::DPC::SensorDefectList& defects, const SensorDescription& sensor,
                                      const Conditions&)
{
    KTR::DPC::DpcFileRivoU file(sensor.reverse, sensor.width, sensor.height);
    KTR::DPC::DpcAdapterOstrel::addDefects(file, defects);
    return file.getRawData();
}

KTR::DPC::SensorDefectList DecodeRivoU(const std::vector<std::uint8_t>& bytes, const SensorDescription& sensor)
{
    return KTR::DPC::DpcFileRivoU::getSensorDefectsListFromRawData(bytes, static_cast<std::uint16_t>(sensor.width));
}

std::vector<std::uint8_t> EncodeEstablishedGigE(const KTR::DPC::SensorDefectList& defects,
                                                const SensorDescription& sensor, const Conditions&)
{
    return KTR::DPC::encodeDefectTable(defects, sensor.width, sensor.height);
}

KTR::DPC::SensorDefectList DecodeEstablishedGigE(const std::vector<std::uint8_t>& bytes,
                                                 const SensorDescription& sensor)
{
    return KTR::DPC::decodeDefectTable(bytes, sensor.width, sensor.height);
}

std::vector<std::uint8_t> EncodeLoadDefects(const KTR::DPC::SensorDefectList& defects, const SensorDescription& sensor,
                                            const Conditions&)
{
    return KTR::DPC::DpcAdapterLoadDefects::ConvertDefectsListToBinary(defects, sensor.width, sensor.height);
}

KTR::DPC::SensorDefectList DecodeLoadDefects(const std::vector<std::uint8_t>& bytes, const SensorDescription& sensor)
{
    return KTR::DPC::decodeColumnMask(bytes, sensor.height);
}

std::vector<std::uint8_t> EncodeTamorinPro(const KTR::DPC::SensorDefectList& defects, const SensorDescription& sensor,
                                           const Conditions& conditions)
{
    KTR::DPC::CorrectionSet set("DPC_User_1"); // the file does not hold its name
    for (const auto& [key, value] : Metadata(conditions))
    {
        set.setMetadata(key, value);
    }
    return KTR::DPC::DpcAdapterTamorinPro::ConvertDefectsListToBinary(set, defects, sensor.width, sensor.height);
}

KTR::DPC::SensorDefectList DecodeTamorinPro(const std::vector<std::uint8_t>& bytes, const SensorDescription&)
{
    return KTR::DPC::DpcAdapterTamorinPro::getSensorDefectsListFromRawData(bytes);
}

std::vector<std::uint8_t> EncodeFlash(const KTR::DPC::SensorDefectList& defects, const SensorDescription& sensor,
                                      const Conditions&)
{
    KTR::DPC::CameraInfo info;
    info.sensorType = sensor.sensorType;
    info.sensorWidth = sensor.width;
    info.sensorHeight = sensor.height;
    return KTR::DPC::DpcAdapterQuorsalinWithPython::CreateBinaryDefectFile(defects, info);
}

KTR::DPC::SensorDefectList DecodeFlash(const std::vector<std::uint8_t>& bytes, const SensorDescription&)
{
    return KTR::DPC::DpcAdapterQuorsalinWithPython::DecodeBinaryDefectFile(bytes);
}

const std::vector<Family>& Families()
{
    using Type = KTR::DPC::SensorDefectType;
    static const std::vector<Family> families = {
        {"ostrel", {Type::Pixel, Type::Row, Type::PixelRow}, EncodeOstrel, DecodeOstrel},
        {"rivo-u", {Type::Pixel, Type::Row, Type::PixelRow}, EncodeRivoU, DecodeRivoU},
        {"tamorin-pro", {Type::Pixel}, EncodeTamorinPro, DecodeTamorinPro},
        {"flash", {Type::Pixel}, EncodeFlash, DecodeFlash},
        {"load-defects", {Type::Pixel, Type::PixelColumn, Type::Column}, EncodeLoadDefects, DecodeLoadDefects},
        {"established-gige", {Type::Pixel}, EncodeEstablishedGigE, DecodeEstablishedGigE},
    };
    return families;
}

} // namespace

std::map<std::string, double> Metadata(const Conditions& conditions)
{
    namespace Keys = KTR::DPC::TamorinPro;
    std::map<std::string, double> metadata;
    for (const auto& [key, value] : {std::pair(Keys::CORRECTION_SET_METADATA_GAIN, conditions.gain),
                                     std::pair(Keys::CORRECTION_SET_METADATA_EXPOSURE, conditions.exposureUs),
                                     std::pair(Keys::CORRECTION_SET_METADATA_TEMPERATURE, conditions.temperatureC)})
    {
        if (value)
        {
            metadata[key] = *value;
        }
    }
    return metadata;
}

void AddSensorSize(CLI::App& command, SensorDescription& sensor)
{
    // On-camera forms hold sizes in 16 bits.
    command.add_option("--width", sensor.width, "Sensor width in pixels")->required()->check(CLI::Range(1, 65535));
    command.add_option("--height", sensor.height, "Sensor height in pixels")->required()->check(CLI::Range(1, 65535));
}

std::vector<std::string> FamilyNames()
{
    std::vector<std::string> names;
    const std::vector<Family>& families = Families();
    std::transform(families.begin(), families.end(), std::back_inserter(names),
                   [](const Family& family) { return family.name; });
    return names;
}

const Family& FindFamily(const std::string& name)
{
    const std::vector<Family>& families = Families();
    const auto family = std::find_if(families.begin(), families.end(),
                                     [&name](const Family& candidate) { return candidate.name == name; });
    if (family == families.end())
    {
        throw KTR::System::Exception("There is no family \"" + name + "\".", true);
    }
    return *family;
}

} // namespace CommandLine
