// Making the Ostrel defect file at the factory.
#include "Firmware/Ostrel/OstrelFile.h"
#include "Firmware/Ostrel/OstrelLayout.h"

#include <algorithm>
#include <array>

namespace Simulation
{

namespace
{

using namespace OstrelLayout;

class ByteWriter
{
public:
    void Word(std::uint32_t word)
    {
        m_bytes.push_back(static_cast<unsigned char>(word & 0xFF));
        m_bytes.push_back(static_cast<unsigned char>(word >> 8 & 0xFF));
    }
    void Numbers(std::initializer_list<std::uint32_t> numbers)
    {
        for (const std::uint32_t number : numbers)
        {
            Word(number & 0xFFFF);
            Word(number >> 16);
        }
    }
    FileBytes& Bytes() { return m_bytes; }

private:
    FileBytes m_bytes;
};

// The pixels are sorted by row and column. With mirrored rows the table keeps the positions that the rows have in the
// upright set: the camera reads a mirrored set from its start and does not look at the table.
FileBytes DataSetBytes(const std::vector<PixelPosition>& pixels, SensorSize sensor, bool mirroredY)
{
    std::array<std::uint32_t, SegmentCount> table{};
    std::array<bool, SegmentCount> isSet{};
    std::vector<std::vector<std::uint32_t>> rows;
    std::uint32_t position = 0;
    for (std::size_t i = 0; i < pixels.size();)
    {
        const std::uint32_t y = pixels[i].y;
        const std::size_t segment = SegmentOf(y, sensor.height);
        if (!isSet[segment])
        {
            isSet[segment] = true;
            table[segment] = position;
        }
        auto& row = rows.emplace_back();
        row.push_back(RowWord | (mirroredY ? sensor.height - 1 - y : y));
        for (; i < pixels.size() && pixels[i].y == y; ++i)
        {
            row.push_back(PixelWord | pixels[i].x);
        }
        position += static_cast<std::uint32_t>(row.size());
    }
    for (std::size_t segment = 1; segment < SegmentCount; ++segment)
    {
        table[segment] = isSet[segment] ? table[segment] : table[segment - 1];
    }
    if (mirroredY)
    {
        std::reverse(rows.begin(), rows.end());
    }
    ByteWriter writer;
    for (const std::uint32_t entry : table)
    {
        writer.Word(entry);
    }
    for (const auto& row : rows)
    {
        for (const std::uint32_t word : row)
        {
            writer.Word(word);
        }
    }
    writer.Word(EndWord);
    return std::move(writer.Bytes());
}

} // namespace

FileBytes EncodeOstrelFile(std::vector<PixelPosition> pixels, SensorSize sensor, bool reverseX, bool reverseY)
{
    std::sort(pixels.begin(), pixels.end(),
              [](const PixelPosition& a, const PixelPosition& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; });
    const FileBytes upright = DataSetBytes(pixels, sensor, false);
    const FileBytes mirrored = DataSetBytes(pixels, sensor, true);
    std::vector<std::uint32_t> reverses = {0};
    if (reverseX)
    {
        reverses.push_back(ReverseX);
    }
    if (reverseY)
    {
        reverses.push_back(ReverseY);
    }
    if (reverseX || reverseY)
    {
        reverses.push_back(ReverseX | ReverseY);
    }

    ByteWriter writer;
    writer.Numbers({TypeTag, 4, DefectFileType});
    writer.Numbers({FormatConstantTag, 8, FormatConstantLow, FormatConstantHigh});
    writer.Numbers({CorrectionTypeTag, 4, CorrectionType, DataFormatTag, 4, DataFormat});
    std::uint32_t offset = 0;
    for (std::uint32_t number = 0; number < reverses.size(); ++number)
    {
        const auto size = static_cast<std::uint32_t>(upright.size());
        writer.Numbers({InfoTag, InfoSize, IndexTag, 4, number, DataSetTag, DataSetInfoSize, offset, size});
        writer.Numbers({reverses[number] << ReverseShift, sensor.height, sensor.width, 0, 0});
        writer.Numbers({TemperatureTag, 4, ReferenceTemperature, ExposureTag, 4, ReferenceExposure});
        offset += size;
    }
    writer.Numbers({PayloadTag, offset});
    for (const std::uint32_t reverse : reverses)
    {
        const FileBytes& set = (reverse & ReverseY) != 0 ? mirrored : upright;
        writer.Bytes().insert(writer.Bytes().end(), set.begin(), set.end());
    }
    return std::move(writer.Bytes());
}

} // namespace Simulation
