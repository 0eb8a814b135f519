// Arbitrary bytes as a column masking table: refused, or a list that reads back when it is written.
#include "ColumnMaskTable.h"
#include "Exception.h"

#include <algorithm>
#include <cassert>

using namespace KTR::DPC;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::uint32_t Width = 640;
    constexpr std::uint32_t Height = 480;
    try
    {
        const auto defects = decodeColumnMask({data, data + size}, Height);
        isColumnMask(defects, Width, Height);
        const auto again = decodeColumnMask(encodeColumnMask(defects, Height), Height);
        assert(std::equal(again.begin(), again.end(), defects.begin(), defects.end(),
                          [](auto& left, auto& right) { return *left == *right; }));
    }
    catch (const KTR::System::Exception& exception)
    {
        assert(!exception.ToString().empty());
    }
    return 0;
}
