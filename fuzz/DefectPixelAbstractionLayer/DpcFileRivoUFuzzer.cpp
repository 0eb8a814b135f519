// Arbitrary bytes as a Rivo U defect pixel file: a list, perhaps an empty one, that reads back when it is written.
#include "DpcFileRivoU.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <algorithm>
#include <cassert>

using namespace KTR::DPC;

namespace
{

constexpr std::uint16_t Width = 640;
constexpr std::uint16_t Height = 480;
constexpr std::size_t MostWords = 0x7FFF; // of a data set that reads back whole

using Place = std::pair<std::uint32_t, std::uint32_t>; // row, column

// Adds the defect to the file; returns its place in the file's order.
Place add(DpcFileRivoU& file, const SensorDefect& defect)
{
    const auto cut = [](std::uint32_t value) { return static_cast<std::uint16_t>(value); };
    if (const auto* pixel = dynamic_cast<const PixelDefect*>(&defect))
    {
        file.addSinglePixelDefect(cut(pixel->getX()), cut(pixel->getY()));
        return {pixel->getY(), pixel->getX()};
    }
    if (const auto* run = dynamic_cast<const PixelRowDefect*>(&defect))
    {
        file.addPixelRowDefect(cut(run->getX()), cut(run->getX() + run->getWidth() - 1), cut(run->getY()));
        return {run->getY(), run->getX()};
    }
    const auto& row = dynamic_cast<const RowDefect&>(defect);
    file.addRowDefect(cut(row.getY()));
    return {row.getY(), 0};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto defects = DpcFileRivoU::getSensorDefectsListFromRawData({data, data + size}, Width);
    DpcFileRivoU file(ReverseCapability::XY, Width, Height);
    std::vector<std::pair<Place, const SensorDefect*>> expected;
    for (const auto& defect : defects)
    {
        expected.emplace_back(add(file, *defect), defect.get());
    }
    std::stable_sort(expected.begin(), expected.end(),
                     [](auto& left, auto& right) { return left.first < right.first; });
    const auto words = file.calculateDataSet(ReverseCapability::Non).size() + 1;
    const auto actual = DpcFileRivoU::getSensorDefectsListFromRawData(file.getRawData(), Width);
    assert(words > MostWords || std::equal(actual.begin(), actual.end(), expected.begin(), expected.end(),
                                           [](auto& left, auto& right) { return *left == *right.second; }));
    return 0;
}
