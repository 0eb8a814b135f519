// The adapter for the Tamorin Pro camera family: what stands in the files.
#include "DpcAdapterTamorinPro.h"

#include "AdapterFailure.h"
#include "GenericFileFormat.h"
#include "LittleEndian.h"
#include "PixelDefect.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <cassert>
#include <cstring>
#include <iterator>
#include <string_view>

namespace KTR::DPC
{
namespace
{

constexpr std::string_view PayloadTag = "PDA1";
constexpr std::uint16_t TopBits = 0xC000;
constexpr std::uint16_t CoordinateBits = 0x3FFF;
constexpr std::size_t CoordinateSize = 4; // bytes of a row and a column

constexpr double MissingValue = -999999.0;
constexpr std::uint32_t GainSteps = 10000; // in a gain of 1

// What metadata says, or what stands for absent values.
struct Conditions
{
    explicit Conditions(const CorrectionSet& set)
        : gain(set.getMetadata(TamorinPro::CORRECTION_SET_METADATA_GAIN).value_or(0.0)),
          temperature(set.getMetadata(TamorinPro::CORRECTION_SET_METADATA_TEMPERATURE).value_or(20.0)),
          exposure(set.getMetadata(TamorinPro::CORRECTION_SET_METADATA_EXPOSURE).value_or(10000.0))
    {
    }

    double gain;
    double temperature; // degrees Celsius
    double exposure;    // microseconds
};

struct MetadataTag
{
    std::string_view tag;
    const std::string& key;
    double (*decode)(std::uint32_t word);
};

// Without its decimals.
double decodeGain(std::uint32_t word)
{
    const std::uint32_t whole = word / GainSteps;
    return static_cast<float>(whole);
}

double decodeFloat(std::uint32_t word)
{
    float value = 0;
    static_assert(sizeof(value) == sizeof(word));
    std::memcpy(&value, &word, sizeof(value));
    return value;
}

const MetadataTag MetadataTags[] = {
    {"AGAN", TamorinPro::CORRECTION_SET_METADATA_GAIN, decodeGain},
    {"EXP1", TamorinPro::CORRECTION_SET_METADATA_EXPOSURE, decodeFloat},
    {"TMP1", TamorinPro::CORRECTION_SET_METADATA_TEMPERATURE, decodeFloat},
};

bool standsAt(const std::vector<std::uint8_t>& bytes, std::size_t position, std::string_view tag)
{
    return bytes.size() - position >= tag.size() && std::memcmp(bytes.data() + position, tag.data(), tag.size()) == 0;
}

// The word that a block holds whose tag stands at the position.
double blockValue(const std::vector<std::uint8_t>& bytes, std::size_t position, const MetadataTag& tag)
{
    constexpr std::size_t HeadSize = 8;
    constexpr std::size_t WordSize = 4;
    if (bytes.size() - position < HeadSize)
    {
        return MissingValue;
    }
    const std::size_t length = read32(bytes, position + 4);
    const bool isThere = length >= WordSize && bytes.size() - position - HeadSize >= length;
    return isThere ? tag.decode(read32(bytes, position + HeadSize)) : MissingValue;
}

} // namespace

SensorDefectList DpcAdapterTamorinPro::getSensorDefectsListFromRawData(const std::vector<std::uint8_t>& bytes)
{
    if (bytes.empty())
    {
        return {};
    }
    const auto found = std::search(bytes.begin(), bytes.end(), PayloadTag.begin(), PayloadTag.end());
    if (found == bytes.end())
    {
        fail("Invalid file format");
    }
    const auto position = static_cast<std::size_t>(found - bytes.begin());
    const std::size_t size = read32(bytes, position + 4);
    if (size == 0)
    {
        return {};
    }
    const std::size_t start = position + 8;
    const std::size_t end = start + size - 1;
    if (end > bytes.size())
    {
        fail((boost::format("The file has %1% bytes, but its defect pixel data reaches to byte %2%.") % bytes.size() %
              end)
                 .str());
    }
    SensorDefectList defects;
    defects.reserve(size / CoordinateSize);
    for (std::size_t i = start; i + CoordinateSize < end; i += CoordinateSize)
    {
        const auto first = read16(bytes, i);
        const auto second = read16(bytes, i + 2);
        if ((first & TopBits) == TopBits && (second & TopBits) == TopBits)
        {
            break;
        }
        defects.push_back(boost::make_shared<PixelDefect>(second & CoordinateBits, first & CoordinateBits));
    }
    return defects;
}

std::map<std::string, double> DpcAdapterTamorinPro::GetCorrectionSetMetadata(const std::vector<std::uint8_t>& bytes)
{
    std::map<std::string, double> metadata;
    for (std::size_t i = 0; i + 4 < bytes.size() && metadata.size() < std::size(MetadataTags); ++i)
    {
        const auto* const tag = std::find_if(std::begin(MetadataTags), std::end(MetadataTags),
                                             [&](const MetadataTag& row) { return standsAt(bytes, i, row.tag); });
        if (tag != std::end(MetadataTags))
        {
            metadata[tag->key] = blockValue(bytes, i, *tag);
        }
    }
    return metadata;
}

std::vector<std::uint8_t> DpcAdapterTamorinPro::ConvertDefectsListToBinary(const CorrectionSet& set,
                                                                           const SensorDefectList& defects,
                                                                           std::uint32_t width, std::uint32_t height)
{
    std::vector<std::pair<std::uint16_t, std::uint16_t>> rowsAndColumns;
    rowsAndColumns.reserve(defects.size());
    for (const auto& defect : defects)
    {
        assert(defect->GetSensorDefectType() == SensorDefectType::Pixel);
        const auto& pixel = static_cast<const PixelDefect&>(*defect);
        rowsAndColumns.emplace_back(static_cast<std::uint16_t>(pixel.getY()), static_cast<std::uint16_t>(pixel.getX()));
    }
    std::sort(rowsAndColumns.begin(), rowsAndColumns.end());
    const Conditions conditions(set);
    return GFF::CreateFileDpcTamorinPro(GFF::CoordsToVector(rowsAndColumns), height, width,
                                        static_cast<float>(conditions.gain), static_cast<float>(conditions.temperature),
                                        static_cast<float>(conditions.exposure), 0);
}

bool DpcAdapterTamorinPro::IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects)
{
    const auto file = getFileForCorrectionSet(set);
    if (!file)
    {
        fail("Could not get file for correction set " + set->getName());
    }
    const auto head = GFF::CreateFileDpcTamorinPro(GFF::Bytes(), GetSensorHeight(), GetSensorWidth(), 0, 0, 0, 0);
    return head.size() + CoordinateSize * defects.size() < file->GetSizeMax();
}

void DpcAdapterTamorinPro::writeDescription(FileInterface& file, const CorrectionSet& set)
{
    const Conditions conditions(set);
    const auto description =
        (boost::format("Gain %.1f, %.1f %sC, %.0f %sS") % conditions.gain % conditions.temperature %
         TamorinPro::DEGREESIGN % conditions.exposure % TamorinPro::MICROSIGN)
            .str();
    camera()->SetFeatureEnumValue(TamorinPro::FILE_SELECTOR_FEATURE, file.GetName());
    camera()->SetFeatureStringValue("FileDescriptionBuffer", description);
    camera()->SetFeatureEnumValue("FileOperationSelector", "WriteDescription");
    camera()->RunFeatureCommand("FileOperationExecute");
}

} // namespace KTR::DPC
