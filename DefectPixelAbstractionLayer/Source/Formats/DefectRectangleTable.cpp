// The table of defect rectangles in the memory of the established GigE cameras.
#include "DefectRectangleTable.h"

#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "DataHelper.h"
#include "Exception.h"
#include "PixelColumnDefect.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <array>

namespace KTR::DPC
{
namespace
{

// Of all clusters on a smaller sensor. A table of a few bytes can claim more than any machine has memory for.
constexpr std::uint64_t MostClusterPixels = std::uint64_t{1} << 22;

struct Rectangle
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// The extent of the cluster starts at the origin and not at its first pixel: that is how the cameras' tables are.
Rectangle clusterRectangle(const ClusterDefect& cluster)
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    for (const auto& pixel : cluster.getPixels())
    {
        const auto x = static_cast<int>(pixel.getX());
        const auto y = static_cast<int>(pixel.getY());
        left = std::min(left, x);
        top = std::min(top, y);
        right = std::max(right, x);
        bottom = std::max(bottom, y);
    }
    return {left, top, right - left, bottom - top};
}

Rectangle rectangleOf(const SensorDefect& defect, int sensorWidth, int sensorHeight)
{
    const auto number = [](std::uint32_t coordinate) { return static_cast<int>(coordinate); };
    switch (defect.GetSensorDefectType())
    {
    case SensorDefectType::Row:
        return {0, number(static_cast<const RowDefect&>(defect).getY()), sensorWidth, 1};
    case SensorDefectType::Column:
        return {number(static_cast<const ColumnDefect&>(defect).getX()), 0, 1, sensorHeight};
    case SensorDefectType::Pixel:
    {
        const auto& pixel = static_cast<const PixelDefect&>(defect);
        return {number(pixel.getX()), number(pixel.getY()), 1, 1};
    }
    case SensorDefectType::PixelRow:
    {
        const auto& run = static_cast<const PixelRowDefect&>(defect);
        return {number(run.getX()), number(run.getY()), number(run.getWidth()), 1};
    }
    case SensorDefectType::PixelColumn:
    {
        const auto& run = static_cast<const PixelColumnDefect&>(defect);
        return {number(run.getX()), number(run.getY()), 1, number(run.getHeight())};
    }
    case SensorDefectType::Cluster:
        return clusterRectangle(static_cast<const ClusterDefect&>(defect));
    }
    return {-1, -1, -1, -1}; // no kind that the form knows
}

[[noreturn]] void refuse(const char* message)
{
    throw System::Exception(message, true);
}

} // namespace

boost::shared_ptr<SensorDefect> toSensorDefect(int x, int y, int width, int height, int sensorWidth, int sensorHeight)
{
    const auto number = [](int coordinate) { return static_cast<std::uint32_t>(coordinate); };
    if (width == 1 && height == 1)
    {
        return boost::make_shared<PixelDefect>(number(x), number(y));
    }
    if (width >= 2 && height == 1)
    {
        return boost::make_shared<PixelRowDefect>(number(x), number(y), number(width));
    }
    if (width == 1 && height >= 2)
    {
        return boost::make_shared<PixelColumnDefect>(number(x), number(y), number(height));
    }
    if (width == sensorWidth && height == 1)
    {
        return boost::make_shared<RowDefect>(number(y));
    }
    if (width == 1 && height == sensorHeight)
    {
        return boost::make_shared<ColumnDefect>(number(x));
    }
    if (width < 2 || height < 2)
    {
        refuse("Could not identify sensor defect type");
    }
    return boost::make_shared<ClusterDefect>(number(x), number(y), number(width), number(height));
}

std::vector<std::uint8_t> convertToBinary(const SensorDefectList& defects, std::uint32_t sensorWidth,
                                          std::uint32_t sensorHeight)
{
    DataHelper records(true);
    for (const auto& defect : defects)
    {
        const auto [x, y, width, height] =
            rectangleOf(*defect, static_cast<int>(sensorWidth), static_cast<int>(sensorHeight));
        if (x >= 0 && y >= 0 && width >= 0 && height >= 0)
        {
            for (const int value : {x, y, width, height})
            {
                records.pushBack16(static_cast<std::uint16_t>(value));
            }
        }
    }
    return records.getData();
}

SensorDefectList decodeDefectRectangles(const std::vector<std::uint8_t>& records, std::uint32_t sensorWidth,
                                        std::uint32_t sensorHeight)
{
    SensorDefectList defects;
    defects.reserve(records.size() / EstablishedGigE::BytesPerRecord);
    const std::uint64_t sensorPixels = std::uint64_t{sensorWidth} * sensorHeight;
    std::uint64_t pixelsLeft = std::max(sensorPixels, MostClusterPixels); // that clusters may still take
    for (std::size_t i = 0; i < records.size(); i += EstablishedGigE::BytesPerRecord)
    {
        if (records.size() - i < EstablishedGigE::BytesPerRecord)
        {
            refuse("Syntax of read data is not correct!");
        }
        std::array<int, 4> values{};
        for (std::size_t v = 0; v < values.size(); ++v)
        {
            values[v] = records[i + 2 * v] << 8 | records[i + 2 * v + 1];
        }
        const auto [x, y, width, height] = values;
        if (width > 1 && height > 1)
        {
            const auto area = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
            if (area > sensorPixels)
            {
                refuse("A cluster of the defect table has more pixels than the sensor.");
            }
            if (area > pixelsLeft)
            {
                refuse("The clusters of the defect table have too many pixels.");
            }
            pixelsLeft -= area;
        }
        defects.push_back(
            toSensorDefect(x, y, width, height, static_cast<int>(sensorWidth), static_cast<int>(sensorHeight)));
    }
    return defects;
}

std::vector<std::uint8_t> endOfDefinition()
{
    DataHelper mark(false);
    mark.pushBack64(EstablishedGigE::END_OF_DEFINITION);
    return mark.getData();
}

std::vector<std::uint8_t> encodeDefectTable(const SensorDefectList& defects, std::uint32_t sensorWidth,
                                            std::uint32_t sensorHeight)
{
    auto memory = convertToBinary(defects, sensorWidth, sensorHeight);
    const auto mark = endOfDefinition();
    memory.insert(memory.end(), mark.begin(), mark.end());
    return memory;
}

SensorDefectList decodeDefectTable(const std::vector<std::uint8_t>& memory, std::uint32_t sensorWidth,
                                   std::uint32_t sensorHeight)
{
    const auto mark = endOfDefinition();
    for (std::size_t i = 0; i + mark.size() <= memory.size(); i += EstablishedGigE::BytesPerRecord)
    {
        const auto record = memory.begin() + static_cast<std::ptrdiff_t>(i);
        if (std::equal(mark.begin(), mark.end(), record))
        {
            return decodeDefectRectangles({memory.begin(), record}, sensorWidth, sensorHeight);
        }
    }
    refuse("The defect table has no end.");
}

} // namespace KTR::DPC
