// Arbitrary bytes as an Ostrel defect pixel file: refused, or a list that reads back when it is written.
#include "DefectLists.h"

namespace
{

void checkReadsBack(const SensorDefectList& defects)
{
    DpcFileOstrel file(ReverseCapability::XY, Width, Height);
    DpcAdapterOstrel::addDefects(file, defects);
    assert(areEqual(DpcFileOstrel::getSensorDefectsListFromRawData(file.getRawData(), Width), inFileOrder(defects)));
}

} // namespace

void FuzzOrRefuse(const Bytes& input)
{
    NeverRefuses([&] { checkReadsBack(DpcFileOstrel::parseSensorDefectsFromDataBlock(input, Width)); });
    checkReadsBack(DpcFileOstrel::getSensorDefectsListFromRawData(input, Width));
}
