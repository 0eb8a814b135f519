// Arbitrary bytes as an Ostrel defect pixel file: refused, or a list that reads back when it is written.
#include "DefectLists.h"
#include "Exception.h"

#include <cassert>

using namespace KTR::DPC;

namespace
{

constexpr std::uint16_t Width = 640;
constexpr std::uint16_t Height = 480;

void checkReadsBack(const SensorDefectList& defects)
{
    DpcFileOstrel file(ReverseCapability::XY, Width, Height);
    DpcAdapterOstrel::addDefects(file, defects);
    assert(areEqual(DpcFileOstrel::getSensorDefectsListFromRawData(file.getRawData(), Width), inFileOrder(defects)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<std::uint8_t> bytes(data, data + size);
    checkReadsBack(DpcFileOstrel::parseSensorDefectsFromDataBlock(bytes, Width));
    try
    {
        checkReadsBack(DpcFileOstrel::getSensorDefectsListFromRawData(bytes, Width));
    }
    catch (const KTR::System::Exception& exception)
    {
        assert(!exception.ToString().empty());
    }
    return 0;
}
