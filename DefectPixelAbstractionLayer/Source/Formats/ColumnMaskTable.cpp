// The column masking table in the memory of the established GigE cameras.
#include "ColumnMaskTable.h"

#include "ColumnDefect.h"
#include "DataHelper.h"
#include "Exception.h"
#include "PixelColumnDefect.h"
#include "PixelDefect.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <array>
#include <tuple>

namespace KTR::DPC
{
namespace
{

struct Stretch
{
    std::uint16_t x = 0;
    std::uint16_t yStart = 0;
    std::uint16_t yStop = 0;
};

bool isStretch(const SensorDefect& defect)
{
    const auto type = defect.GetSensorDefectType();
    return type == SensorDefectType::Pixel || type == SensorDefectType::PixelColumn || type == SensorDefectType::Column;
}

// Walks each two neighbouring columns from the top down, both at once.
bool haveNeighbours(std::vector<Stretch> stretches)
{
    const auto byPair = [](int pairParity)
    {
        return [pairParity](const Stretch& left, const Stretch& right)
        {
            return std::make_tuple((left.x + pairParity) / 2, left.yStart) <
                   std::make_tuple((right.x + pairParity) / 2, right.yStart);
        };
    };
    for (const int parity : {0, 1})
    {
        std::sort(stretches.begin(), stretches.end(), byPair(parity));
        int pair = -1;
        std::array<int, 2> lastRow{}; // seen so far in the two columns of the pair
        for (const Stretch& stretch : stretches)
        {
            if ((stretch.x + parity) / 2 != pair)
            {
                pair = (stretch.x + parity) / 2;
                lastRow = {-1, -1};
            }
            const std::size_t column = stretch.x % 2;
            if (stretch.yStart <= lastRow[1 - column])
            {
                return true;
            }
            lastRow[column] = std::max<int>(lastRow[column], stretch.yStop);
        }
    }
    return false;
}

} // namespace

void convert2_x_yStart_yStop(const boost::shared_ptr<SensorDefect>& defect, std::uint32_t sensorHeight,
                             std::uint16_t& x, std::uint16_t& yStart, std::uint16_t& yStop)
{
    const auto cut = [](std::uint32_t value) { return static_cast<std::uint16_t>(value); };
    switch (defect->GetSensorDefectType())
    {
    case SensorDefectType::Pixel:
    {
        const auto& pixel = static_cast<const PixelDefect&>(*defect);
        x = cut(pixel.getX());
        yStart = yStop = cut(pixel.getY());
        break;
    }
    case SensorDefectType::PixelColumn:
    {
        const auto& run = static_cast<const PixelColumnDefect&>(*defect);
        x = cut(run.getX());
        yStart = cut(run.getY());
        yStop = cut(run.getY() + run.getHeight() - 1);
        break;
    }
    case SensorDefectType::Column:
        x = cut(static_cast<const ColumnDefect&>(*defect).getX());
        yStart = 0;
        yStop = cut(sensorHeight - 1);
        break;
    default:
        throw System::Exception("Unsupported Sensor Defect!", true);
    }
}

bool isColumnMask(const SensorDefectList& defects, std::uint32_t sensorWidth, std::uint32_t sensorHeight)
{
    std::vector<Stretch> stretches;
    for (const auto& defect : defects)
    {
        if (!isStretch(*defect))
        {
            return false;
        }
        Stretch stretch;
        convert2_x_yStart_yStop(defect, sensorHeight, stretch.x, stretch.yStart, stretch.yStop);
        if (stretch.x >= sensorWidth || stretch.yStart > stretch.yStop || stretch.yStop >= sensorHeight)
        {
            return false;
        }
        stretches.push_back(stretch);
    }
    return !haveNeighbours(std::move(stretches));
}

std::vector<std::uint8_t> encodeColumnMask(const SensorDefectList& defects, std::uint32_t sensorHeight)
{
    DataHelper table(true);
    for (const auto& defect : defects)
    {
        Stretch stretch;
        convert2_x_yStart_yStop(defect, sensorHeight, stretch.x, stretch.yStart, stretch.yStop);
        table.pushBack16(stretch.x);
        table.pushBack16(stretch.yStart);
        table.pushBack16(stretch.yStop);
    }
    return table.getData();
}

SensorDefectList decodeColumnMask(const std::vector<std::uint8_t>& table, std::uint32_t sensorHeight)
{
    const std::size_t count = table.size() / LoadDefects::BytesPerEntry;
    if (count > LoadDefects::MostEntries)
    {
        throw System::Exception((boost::format("The column masking table has %1% entries, more than its %2%.") % count %
                                 LoadDefects::MostEntries)
                                    .str(),
                                true);
    }
    const DataHelper bytes(table, false);
    SensorDefectList defects;
    for (std::uint32_t i = 0; i < count; ++i)
    {
        const auto entry = static_cast<std::uint32_t>(i * LoadDefects::BytesPerEntry);
        const std::uint32_t x = bytes.read16(entry);
        const std::uint32_t yStart = bytes.read16(entry + 2);
        const std::uint32_t yStop = bytes.read16(entry + 4);
        if (yStop < yStart)
        {
            throw System::Exception("An entry of the column masking table ends before it starts.", true);
        }
        const std::uint32_t height = yStop - yStart + 1;
        if (height == sensorHeight)
        {
            defects.push_back(boost::make_shared<ColumnDefect>(x));
        }
        else if (height == 1)
        {
            defects.push_back(boost::make_shared<PixelDefect>(x, yStart));
        }
        else
        {
            defects.push_back(boost::make_shared<PixelColumnDefect>(x, yStart, height));
        }
    }
    return defects;
}

} // namespace KTR::DPC
