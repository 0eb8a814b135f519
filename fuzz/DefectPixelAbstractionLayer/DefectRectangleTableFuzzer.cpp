// Arbitrary bytes as a table of defect rectangles: refused, or a list that reads back when it is written, but for
// clusters, whose rectangles the form changes.
#include "DefectLists.h"
#include "DefectRectangleTable.h"

void FuzzOrRefuse(const Bytes& input)
{
    auto defects = decodeDefectTable(input, Width, Height);
    const auto isCluster = [](const auto& defect)
    { return defect->GetSensorDefectType() == SensorDefectType::Cluster; };
    defects.erase(std::remove_if(defects.begin(), defects.end(), isCluster), defects.end());
    const auto memory = encodeDefectTable(defects, Width, Height);
    assert(std::equal(memory.end() - 8, memory.end(), endOfDefinition().begin()));
    assert(areEqual(decodeDefectTable(memory, Width, Height), defects));
}
