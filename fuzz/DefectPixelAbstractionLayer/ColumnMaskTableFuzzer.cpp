// Arbitrary bytes as a column masking table: refused, or a list that reads back when it is written.
#include "ColumnMaskTable.h"
#include "DefectLists.h"
#include "Exception.h"

#include <algorithm>
#include <cassert>

using namespace KTR::DPC;

namespace
{

constexpr std::uint32_t Width = 640;
constexpr std::uint32_t Height = 480;

// Each defect against each.
bool isMaskByComparison(const SensorDefectList& defects)
{
    const auto fits = [&](const auto& defect)
    {
        std::uint16_t x = 0, first = 0, last = 0;
        convert2_x_yStart_yStop(defect, Height, x, first, last);
        return x < Width && first <= last && last < Height &&
               std::none_of(defects.begin(), defects.end(),
                            [&](const auto& other)
                            {
                                std::uint16_t otherX = 0, otherFirst = 0, otherLast = 0;
                                convert2_x_yStart_yStop(other, Height, otherX, otherFirst, otherLast);
                                return (x + 1 == otherX || otherX + 1 == x) && first <= otherLast && otherFirst <= last;
                            });
    };
    return std::all_of(defects.begin(), defects.end(), fits);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try
    {
        const auto defects = decodeColumnMask({data, data + size}, Height);
        assert(isColumnMask(defects, Width, Height) == isMaskByComparison(defects));
        const auto again = decodeColumnMask(encodeColumnMask(defects, Height), Height);
        assert(areEqual(again, defects));
    }
    catch (const KTR::System::Exception& exception)
    {
        assert(!exception.ToString().empty());
    }
    return 0;
}
