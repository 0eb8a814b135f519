// The defect pixel file of the Rivo U camera family: built from defects, and decoded back into them.
#pragma once

#include "DpcFileOstrel.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <vector>

namespace KTR::DPC
{

// A head of 12 bytes, then one data set for each mirroring that the camera can do, all little-endian and all of one
// length. The sets of unmirrored rows have an info block in front, those of mirrored rows a second one. A data set is a
// stream of words as in DpcFileOstrel, without the index table.
class DpcFileRivoU : public DpcFileOstrel
{
public:
    // As DpcFileOstrel: throws for a size of 0 and for a camera that mirrors only in y.
    DpcFileRivoU(ReverseCapability reverseCapability, std::uint32_t width, std::uint32_t height);

    boost::shared_ptr<DataHelper> createFileData() override;

    // One data set without its end word. Mirroring turns the coordinates around and leaves rows and entries in the
    // order of the unmirrored set, so that they descend. Mirrored coordinates are taken modulo 16384, as all are.
    std::vector<std::uint16_t> calculateDataSet(ReverseCapability reverse);

    // Decodes data set 0. Bytes that end before it does are an empty list, not an error; so are a few bytes of
    // anything.
    static SensorDefectList getSensorDefectsListFromRawData(const std::vector<std::uint8_t>& bytes,
                                                            std::uint16_t width);
};

} // namespace KTR::DPC
