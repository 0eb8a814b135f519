// Arbitrary bytes as a defect file of the flash family: refused, or a list that reads back when it is written, if it
// can be; and arbitrary lists against the plain search for neighbours.
#include "DefectLists.h"
#include "DpcAdapterQuorsalinWithPython.h"

namespace
{

void decode(const Bytes& file, const CameraInfo& info)
{
    using Adapter = DpcAdapterQuorsalinWithPython;
    MayRefuse(
        [&]
        {
            const auto defects = Adapter::DecodeBinaryDefectFile(file);
            assert(areEqual(Adapter::DecodeBinaryDefectFile(Adapter::CreateBinaryDefectFile(defects, info)), defects));
        });
}

void encode(const Bytes& input, const CameraInfo& info) noexcept
{
    std::vector<PixelCoords> list;
    for (std::size_t i = 0; i + 1 < input.size() && i < 200; i += 2)
    {
        list.push_back({static_cast<std::uint16_t>(input[i] % 4 * 0x5555), input[i + 1]});
    }
    NeighborByteEncoding encoding;
    encoding.Initialize(info, list);
    const bool isMade = encoding.Generate1DNbEncodingFromDefectList();
    for (std::uint32_t i = 0; isMade && i < list.size(); ++i)
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

void FuzzOrRefuse(const Bytes& input)
{
    const CameraInfo mono = {"", "", "Mono", 200, 100, 0};
    const CameraInfo bayer = {"", "", "Bayer", 100, 100, 0};
    decode(input, mono);
    encode(input, mono);
    encode(input, bayer);
    // Short inputs reach the records by a head of their own.
    Bytes file(DpcHeader::Size, 0xFF);
    std::fill_n(file.begin() + 12, 4, std::uint8_t{0});
    file[12] = static_cast<std::uint8_t>(input.size() / DpcHeader::RecordSize);
    file.insert(file.end(), input.begin(), input.end());
    decode(file, bayer);
}
