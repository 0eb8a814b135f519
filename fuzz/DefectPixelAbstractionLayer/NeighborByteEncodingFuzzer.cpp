// Arbitrary bytes as a defect file of the flash family: refused, or a list that reads back when it is written, if it
// can be; and arbitrary lists against the plain search for neighbours.
#include "DefectLists.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "Exception.h"

#include <algorithm>
#include <cassert>

using namespace KTR::DPC;

namespace
{

void decode(const std::vector<unsigned char>& file, const CameraInfo& info)
{
    try
    {
        const auto defects = DpcAdapterQuorsalinWithPython::DecodeBinaryDefectFile(file);
        const auto again = DpcAdapterQuorsalinWithPython::DecodeBinaryDefectFile(
            DpcAdapterQuorsalinWithPython::CreateBinaryDefectFile(defects, info));
        assert(areEqual(again, defects));
    }
    catch (const KTR::System::Exception& exception)
    {
        assert(!exception.ToString().empty());
    }
}

void encode(const std::uint8_t* data, std::size_t size, const CameraInfo& info)
{
    std::vector<PixelCoords> list;
    for (std::size_t i = 0; i + 1 < size && i < 200; i += 2)
    {
        list.push_back({static_cast<std::uint16_t>(data[i] % 4 * 0x5555), data[i + 1]});
    }
    NeighborByteEncoding encoding;
    encoding.Initialize(info, list);
    if (!encoding.Generate1DNbEncodingFromDefectList())
    {
        return;
    }
    for (std::uint32_t i = 0; i < list.size(); ++i)
    {
        DefectivePixelInfo result;
        encoding.GetDpcInfoAt(i, result);
        for (int d = -4; d <= 4; ++d)
        {
            const int column = list[i].y + d;
            const bool isListed =
                std::any_of(list.begin(), list.end(),
                            [&](const PixelCoords& other) { return other.x == list[i].x && other.y == column; });
            const bool isUsable = d != 0 && !isListed && column >= 0 && column < static_cast<int>(info.sensorWidth) &&
                                  (info.sensorType == "Mono" || d % 2 == 0);
            assert(result.GetNBBitData(static_cast<unsigned int>(4 - d)) == (isUsable ? 1U : 0U) ||
                   list[i].y >= info.sensorWidth);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CameraInfo mono = {"", "", "Mono", 200, 100, 0};
    const CameraInfo bayer = {"", "", "Bayer", 100, 100, 0};
    decode({data, data + size}, mono);
    encode(data, size, mono);
    encode(data, size, bayer);
    // Short inputs reach the records by a head of their own.
    std::vector<unsigned char> file(DpcHeader::Size, 0xFF);
    std::fill_n(file.begin() + 12, 4, static_cast<unsigned char>(0));
    file[12] = static_cast<unsigned char>(size / DpcHeader::RecordSize);
    file.insert(file.end(), data, data + size);
    decode(file, bayer);
    return 0;
}
