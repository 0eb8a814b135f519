// Arbitrary bytes as a table of defect rectangles: refused, or a list that reads back when it is written, but for
// clusters, whose rectangles the form changes.
#include "DefectLists.h"
#include "DefectRectangleTable.h"
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
        auto defects = decodeDefectTable({data, data + size}, Width, Height);
        const auto isCluster = [](const auto& defect)
        { return defect->GetSensorDefectType() == SensorDefectType::Cluster; };
        defects.erase(std::remove_if(defects.begin(), defects.end(), isCluster), defects.end());
        const auto memory = encodeDefectTable(defects, Width, Height);
        assert(std::equal(memory.end() - 8, memory.end(), endOfDefinition().begin()));
        const auto again = decodeDefectTable(memory, Width, Height);
        assert(areEqual(again, defects));
    }
    catch (const KTR::System::Exception& exception)
    {
        assert(!exception.ToString().empty());
    }
    return 0;
}
