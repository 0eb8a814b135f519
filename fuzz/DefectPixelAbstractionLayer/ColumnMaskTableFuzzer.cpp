// Arbitrary bytes as a column masking table: refused, or a list that reads back when it is written.
#include "ColumnMaskTable.h"
#include "DefectLists.h"

#include <bitset>
#include <map>

namespace
{

// By the rows that each column covers.
bool isMaskByComparison(const SensorDefectList& defects)
{
    std::map<std::uint32_t, std::bitset<Height>> columns;
    for (const auto& defect : defects)
    {
        std::uint16_t x = 0, first = 0, last = 0;
        convert2_x_yStart_yStop(defect, Height, x, first, last);
        if (x >= Width || first > last || last >= Height)
        {
            return false;
        }
        columns[x] |= ~std::bitset<Height>() >> (Height - 1 - last + first) << first;
    }
    return std::none_of(columns.begin(), columns.end(),
                        [&](auto& column) {
                            return columns.count(column.first + 1) && (column.second & columns[column.first + 1]).any();
                        });
}

} // namespace

void FuzzOrRefuse(const Bytes& input)
{
    const auto defects = decodeColumnMask(input, Height);
    assert(isColumnMask(defects, Width, Height) == isMaskByComparison(defects));
    assert(areEqual(decodeColumnMask(encodeColumnMask(defects, Height), Height), defects));
}
