// Arbitrary bytes as a Rivo U defect pixel file: a list, perhaps an empty one, that reads back when it is written.
#include "DefectLists.h"
#include "DpcFileRivoU.h"

void FuzzOrRefuse(const Bytes& input)
{
    constexpr std::size_t MostWords = 0x7FFF; // of a data set that reads back whole
    const auto defects = NeverRefuses([&] { return DpcFileRivoU::getSensorDefectsListFromRawData(input, Width); });
    DpcFileRivoU file(ReverseCapability::XY, Width, Height);
    DpcAdapterOstrel::addDefects(file, defects);
    const auto words = file.calculateDataSet(ReverseCapability::Non).size() + 1;
    assert(words > MostWords ||
           areEqual(DpcFileRivoU::getSensorDefectsListFromRawData(file.getRawData(), Width), inFileOrder(defects)));
}
