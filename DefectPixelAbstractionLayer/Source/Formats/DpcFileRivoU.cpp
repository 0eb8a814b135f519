// The defect pixel file of the Rivo U camera family.
#include "DpcFileRivoU.h"

#include <boost/make_shared.hpp>

#include <array>
#include <cstddef>

namespace KTR::DPC
{
namespace
{

constexpr std::uint16_t InfoSize = 32;       // bytes
constexpr std::uint16_t InfoElementSize = 2; // bytes
constexpr std::uint16_t CoordinateBits = 0x3FFF;

// The head. Cameras hold these numbers: they never change.
constexpr std::uint16_t FirstHeadWord = 2;
constexpr std::uint16_t SecondHeadWord = 4;
constexpr std::size_t HeadSize = 12; // bytes
constexpr std::uint32_t DataSetSizeOffset = 8;
constexpr std::size_t DataSetOffset = HeadSize + InfoSize;
constexpr std::uint32_t DataSetSizeBits = 0x7FFF; // of a number of words

void append(DataHelper& file, const std::vector<std::uint16_t>& words)
{
    for (const auto word : words)
    {
        file.pushBack16(word);
    }
}

} // namespace

DpcFileRivoU::DpcFileRivoU(ReverseCapability reverseCapability, std::uint32_t width, std::uint32_t height)
    : DpcFileOstrel(InfoSize, InfoElementSize, reverseCapability, width, height)
{
}

std::vector<std::uint16_t> DpcFileRivoU::calculateDataSet(ReverseCapability reverse)
{
    const bool reverseX = includes(reverse, ReverseCapability::X);
    const bool reverseY = includes(reverse, ReverseCapability::Y);
    const auto word = [](std::uint16_t kind, int coordinate)
    { return static_cast<std::uint16_t>(kind | (static_cast<unsigned>(coordinate) & CoordinateBits)); };
    const auto mirroredX = [&](std::uint16_t x) { return reverseX ? width() - 1 - x : x; };

    std::vector<std::uint16_t> words;
    for (const auto& [y, row] : rows())
    {
        words.push_back(word(DATA_SET_Y, reverseY ? height() - y - 1 : y));
        for (const auto& entry : row)
        {
            words.push_back(word(entry.isRange ? DATA_SET_X_ROW : DATA_SET_X, mirroredX(entry.x)));
            if (entry.isRange)
            {
                words.push_back(word(DATA_SET_X_ROW, mirroredX(entry.xEnd)));
            }
        }
    }
    return words;
}

boost::shared_ptr<DataHelper> DpcFileRivoU::createFileData()
{
    std::array<std::vector<std::uint16_t>, 4> dataSets; // by the number of the mirroring
    for (std::size_t reverse = 0; reverse < dataSets.size(); ++reverse)
    {
        dataSets[reverse] = calculateDataSet(static_cast<ReverseCapability>(reverse));
        dataSets[reverse].push_back(DATA_SET_END);
    }
    const bool mirrorsX = includes(reverseCapability(), ReverseCapability::X);
    const bool mirrorsY = includes(reverseCapability(), ReverseCapability::Y);
    const auto wordCount = static_cast<std::uint32_t>(dataSets[0].size());
    const std::uint32_t infoBlocks = mirrorsY ? 2 : 1;
    const std::uint32_t dataSetCount = static_cast<std::uint32_t>(reverseCapability()) + 1;

    auto file = boost::make_shared<DataHelper>(false);
    file->pushBack16(FirstHeadWord);
    file->pushBack16(SecondHeadWord);
    file->pushBack32(infoSize() * infoBlocks + wordCount * dataSetCount * 2 + static_cast<std::uint32_t>(HeadSize));
    file->pushBack16(static_cast<std::uint16_t>((wordCount & DataSetSizeBits) * 2));
    file->pushBack16(infoSize());
    pushBackInfoBlock(dataSets[0], file);
    append(*file, dataSets[0]);
    if (mirrorsX)
    {
        append(*file, dataSets[1]);
    }
    if (mirrorsY)
    {
        pushBackInfoBlock(dataSets[2], file);
        append(*file, dataSets[2]);
        append(*file, dataSets[3]);
    }
    return file;
}

SensorDefectList DpcFileRivoU::getSensorDefectsListFromRawData(const std::vector<std::uint8_t>& bytes,
                                                               std::uint16_t width)
{
    if (bytes.size() < DataSetSizeOffset + sizeof(std::uint16_t))
    {
        return {};
    }
    const std::size_t size = bytes[DataSetSizeOffset] | std::size_t{bytes[DataSetSizeOffset + 1]} << 8;
    if (bytes.size() < DataSetOffset + size)
    {
        return {};
    }
    const auto dataSet = bytes.begin() + DataSetOffset;
    return parseSensorDefectsFromDataBlock({dataSet, dataSet + static_cast<std::ptrdiff_t>(size)}, width);
}

} // namespace KTR::DPC
