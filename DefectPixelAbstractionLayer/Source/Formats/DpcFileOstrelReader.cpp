// The defect pixel file of the Ostrel camera family: the reader.
#include "DpcFileOstrel.h"

#include "DpcFileOstrelTags.h"

#include "Exception.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <limits>

namespace KTR::DPC
{
namespace
{

constexpr std::uint16_t ValueBits = 0x3FFF;
constexpr std::uint32_t IndexTableSize = 32; // bytes

std::uint16_t wordAt(const std::vector<std::uint8_t>& bytes, std::size_t position)
{
    return static_cast<std::uint16_t>(bytes[position] | bytes[position + 1] << 8);
}

boost::shared_ptr<SensorDefect> runDefect(std::uint16_t first, std::uint16_t last, std::uint16_t y, std::uint16_t width)
{
    const auto length = static_cast<std::uint16_t>(last - first + 1);
    if (length == width)
    {
        return boost::make_shared<RowDefect>(y);
    }
    return boost::make_shared<PixelRowDefect>(first, y, length);
}

} // namespace

SensorDefectList DpcFileOstrel::getSensorDefectsListFromRawData(const std::vector<std::uint8_t>& bytes,
                                                                std::uint16_t width)
{
    const auto [start, size] = getDPCPayloadStartAndSize(boost::make_shared<DataHelper>(bytes, true));
    if (size < IndexTableSize)
    {
        throw System::Exception(
            (boost::format("The defect pixel data has %1% bytes, but its index table alone takes %2%.") % size %
             IndexTableSize)
                .str(),
            true);
    }
    const auto body = bytes.begin() + start;
    return parseSensorDefectsFromDataBlock({body + IndexTableSize, body + size}, width);
}

SensorDefectList DpcFileOstrel::parseSensorDefectsFromDataBlock(const std::vector<std::uint8_t>& bytes,
                                                                std::uint16_t width)
{
    SensorDefectList defects;
    std::uint16_t y = 0;
    std::size_t i = 0;
    while (i + 1 < bytes.size())
    {
        const std::uint16_t word = wordAt(bytes, i);
        const auto kind = static_cast<std::uint16_t>(word & ~ValueBits);
        const auto value = static_cast<std::uint16_t>(word & ValueBits);
        i += 2;
        if (kind == DATA_SET_END)
        {
            break;
        }
        if (kind == DATA_SET_Y)
        {
            y = value;
        }
        else if (kind == DATA_SET_X)
        {
            defects.push_back(boost::make_shared<PixelDefect>(value, y));
        }
        else
        {
            // A run needs a second word, and at least one byte behind it.
            if (i + 2 >= bytes.size())
            {
                break;
            }
            const std::uint16_t next = wordAt(bytes, i);
            if ((next & ~ValueBits) == DATA_SET_X_ROW)
            {
                i += 2;
                defects.push_back(runDefect(value, next & ValueBits, y, width));
            }
        }
    }
    return defects;
}

std::pair<std::uint32_t, std::uint32_t>
DpcFileOstrel::getDPCPayloadStartAndSize(const boost::shared_ptr<DataHelper>& data)
{
    const std::uint32_t dataSet = findBlock(data, OstrelTags::DataSet, 0);
    const std::uint32_t offset = data->read32(dataSet + 8);
    const std::uint32_t size = data->read32(dataSet + 12);
    const std::uint64_t start = std::uint64_t{findBlock(data, OstrelTags::Payload, 0)} + 8 + offset;
    if (start > std::numeric_limits<std::uint32_t>::max() || start + size > data->getSize())
    {
        throw System::Exception(
            (boost::format("The file has %1% bytes, but its defect pixel data reaches to byte %2%.") % data->getSize() %
             (start + size))
                .str(),
            true);
    }
    return {static_cast<std::uint32_t>(start), size};
}

std::uint32_t DpcFileOstrel::findBlock(const boost::shared_ptr<DataHelper>& data, std::uint32_t tag,
                                       std::uint32_t start)
{
    constexpr std::uint64_t BlockHeadSize = 8;
    const auto size = std::min<std::uint64_t>(data->getSize(), std::numeric_limits<std::uint32_t>::max());
    if (size >= sizeof(tag))
    {
        // The word at 0 is looked at first, wherever the walk starts.
        std::uint32_t word = data->read32(0);
        std::uint32_t position = start;
        while (word != tag && position + BlockHeadSize < size)
        {
            position += 4;
            word = data->read32(position);
        }
        if (word == tag)
        {
            return position;
        }
    }
    throw System::Exception("The given tag could not be found. The file might be incompatible", true);
}

} // namespace KTR::DPC
