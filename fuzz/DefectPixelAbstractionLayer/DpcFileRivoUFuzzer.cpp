// Arbitrary bytes as a Rivo U defect pixel file: a list, perhaps an empty one, that reads back when it is written.
#include "DefectLists.h"
#include "DpcFileRivoU.h"

#include <cassert>

using namespace KTR::DPC;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::uint16_t Width = 640;
    constexpr std::uint16_t Height = 480;
    constexpr std::size_t MostWords = 0x7FFF; // of a data set that reads back whole
    const auto defects = DpcFileRivoU::getSensorDefectsListFromRawData({data, data + size}, Width);
    DpcFileRivoU file(ReverseCapability::XY, Width, Height);
    DpcAdapterOstrel::addDefects(file, defects);
    const auto words = file.calculateDataSet(ReverseCapability::Non).size() + 1;
    assert(words > MostWords ||
           areEqual(DpcFileRivoU::getSensorDefectsListFromRawData(file.getRawData(), Width), inFileOrder(defects)));
    return 0;
}
