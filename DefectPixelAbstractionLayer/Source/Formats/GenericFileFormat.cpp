// The generic file format of the newer cameras: defect pixel and non-uniformity files as chains of tagged blocks.
#include "GenericFileFormat.h"

#include "DataHelper.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>

namespace KTR::GFF
{
namespace
{

constexpr std::uint64_t FormatCode = 0x0200000000000000; // the file code stands in the low half
constexpr std::uint16_t CoordinateBits = 0x3FFF;
constexpr std::uint16_t RowMark = 0x4000;
constexpr std::uint32_t EndMark = 0xC000C000;
constexpr std::uint32_t EndMarkSize = sizeof(EndMark);
constexpr float GainSteps = 10000.0F; // in a gain of 1

constexpr int BitsInByte = 8;
constexpr int BitsInValue = 16;

using Tag = char[5];

class BlockWriter
{
public:
    void letters(const Tag& tag)
    {
        std::for_each(tag, tag + 4, [&](char letter) { m_data.pushBack8(static_cast<std::uint8_t>(letter)); });
    }
    void number(std::uint32_t value) { m_data.pushBack32(value); }
    // What a block begins with; its content follows.
    void head(const Tag& tag, std::size_t length)
    {
        letters(tag);
        number(static_cast<std::uint32_t>(length));
    }
    void numbers(const Tag& tag, std::initializer_list<std::uint32_t> values)
    {
        head(tag, values.size() * sizeof(std::uint32_t));
        std::for_each(values.begin(), values.end(), [&](std::uint32_t value) { number(value); });
    }
    void numberIfAny(const Tag& tag, const std::optional<std::uint32_t>& value)
    {
        if (value)
        {
            numbers(tag, {*value});
        }
    }
    void content(const Tag& tag, const Bytes& bytes)
    {
        head(tag, bytes.size());
        m_data.append(bytes);
    }
    Bytes bytes() const { return m_data.getData(); }

private:
    DPC::DataHelper m_data{false};
};

std::uint32_t bitsOf(float value)
{
    static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == sizeof(std::uint32_t));
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

// What is too large for the field becomes its largest value, and what is no number 0.
std::uint32_t gainSteps(float gain)
{
    const float steps = gain * GainSteps;
    constexpr auto Largest = std::numeric_limits<std::uint32_t>::max();
    if (steps >= static_cast<float>(Largest))
    {
        return Largest;
    }
    return steps > 0 ? static_cast<std::uint32_t>(steps) : 0;
}

void writeHead(BlockWriter& file, const Tag& fileType, std::uint32_t fileCode)
{
    file.head("PTY1", 4);
    file.letters(fileType);
    const std::uint64_t code = FormatCode | fileCode;
    file.numbers("FCO1", {static_cast<std::uint32_t>(code), static_cast<std::uint32_t>(code >> 32)});
}

template <typename Item, typename PayloadOf>
void writePayloads(BlockWriter& file, const std::vector<Item>& items, PayloadOf payloadOf)
{
    Bytes all;
    for (const Item& item : items)
    {
        const Bytes& payload = payloadOf(item);
        all.insert(all.end(), payload.begin(), payload.end());
    }
    file.content("PDA1", all);
}

Bytes dpcInfo(std::uint32_t number, std::uint32_t offset, std::uint32_t size, std::uint32_t height, std::uint32_t width,
              std::optional<float> gain, float temperature, float exposure)
{
    BlockWriter info;
    info.numbers("INDX", {number});
    info.numbers("DSET", {offset, size - EndMarkSize, 0, height, width, 0, 0});
    info.numbers("TMP1", {bitsOf(temperature)});
    if (gain)
    {
        info.numbers("AGAN", {gainSteps(*gain)});
    }
    info.numbers("EXP1", {bitsOf(exposure)});
    return info.bytes();
}

Bytes nucInfo(const NucData& dataSet, std::uint32_t offset)
{
    constexpr std::uint32_t ValueSize = 2; // bytes
    const auto size = static_cast<std::uint32_t>(dataSet.payload.size());
    const auto& last = dataSet.dset;
    BlockWriter info;
    info.numbers("INDX", {0}); // in every data set
    info.numbers("DSET", {offset, size / ValueSize, 1, last[0], last[1], last[2], last[3]});
    info.numberIfAny("PFMT", dataSet.pfmt);
    info.numberIfAny("UBPC", dataSet.ubpc);
    info.numbers("TMP1", {dataSet.temperature});
    info.numbers("AGAN", {gainSteps(dataSet.gain)});
    info.numbers("EXP1", {dataSet.exposure});
    info.numberIfAny("BLM1", dataSet.blm1);
    info.head("SPOV", dataSet.spov.size() * sizeof(std::uint32_t));
    for (const int entry : dataSet.spov)
    {
        info.number(static_cast<std::uint32_t>(entry));
    }
    return info.bytes();
}

} // namespace

Bytes CreateFileDpc(const std::vector<Bytes>& payloads, std::uint32_t height, std::uint32_t width, DpcType dpcType,
                    DataFormat dataFormat, std::optional<float> gain, float temperature, float exposure,
                    std::uint32_t fileCode)
{
    BlockWriter file;
    writeHead(file, "DPC1", fileCode);
    file.numbers("DCT1", {static_cast<std::uint32_t>(dpcType)});
    file.numbers("DFMT", {static_cast<std::uint32_t>(dataFormat)});
    std::uint32_t offset = 0;
    for (std::uint32_t number = 0; number < payloads.size(); ++number)
    {
        const auto size = static_cast<std::uint32_t>(payloads[number].size());
        file.content("IF01", dpcInfo(number, offset, size, height, width, gain, temperature, exposure));
        offset += size;
    }
    writePayloads(file, payloads, [](const Bytes& payload) -> const Bytes& { return payload; });
    return file.bytes();
}

Bytes CreateFileDpcOstrel(const std::vector<Bytes>& payloads, std::uint32_t height, std::uint32_t width,
                          float temperature, float exposure, std::uint32_t fileCode)
{
    return CreateFileDpc(payloads, height, width, DpcType::Ostrel, DataFormat::Ostrel, std::nullopt, temperature,
                         exposure, fileCode);
}

Bytes CreateFileDpcOstrel(const Bytes& payload, std::uint32_t height, std::uint32_t width, float temperature,
                          float exposure, std::uint32_t fileCode)
{
    return CreateFileDpcOstrel(std::vector<Bytes>(1, payload), height, width, temperature, exposure, fileCode);
}

Bytes CreateFileDpcTamorinPro(const std::vector<Bytes>& payloads, std::uint32_t height, std::uint32_t width, float gain,
                              float temperature, float exposure, std::uint32_t fileCode)
{
    return CreateFileDpc(payloads, height, width, DpcType::TamorinPro, DataFormat::TamorinPro, gain, temperature,
                         exposure, fileCode);
}

Bytes CreateFileDpcTamorinPro(const Bytes& payload, std::uint32_t height, std::uint32_t width, float gain,
                              float temperature, float exposure, std::uint32_t fileCode)
{
    return CreateFileDpcTamorinPro(std::vector<Bytes>(1, payload), height, width, gain, temperature, exposure,
                                   fileCode);
}

Bytes CoordsToVector(const std::vector<std::pair<std::uint16_t, std::uint16_t>>& coords)
{
    DPC::DataHelper payload(false);
    for (const auto& [first, second] : coords)
    {
        payload.pushBack16(static_cast<std::uint16_t>((first & CoordinateBits) | RowMark));
        payload.pushBack16(static_cast<std::uint16_t>(second & CoordinateBits));
    }
    payload.pushBack32(EndMark);
    return payload.getData();
}

Bytes ConvertMonoToMonoPacked(const std::vector<std::uint16_t>& values, int bitsPerPixel)
{
    // Both at once never holds: widths that no camera has are packed all the same.
    const bool tooFew = bitsPerPixel < 1;
    const bool tooMany = bitsPerPixel > BitsInValue;
    if (tooFew && tooMany)
    {
        throw std::invalid_argument("Unsupported bitsPerPixel: " + std::to_string(bitsPerPixel));
    }
    const int width = std::max(bitsPerPixel, 0);
    const std::uint32_t mask = (std::uint32_t{1} << std::min(width, BitsInValue)) - 1;
    Bytes bytes;
    std::uint32_t accumulator = 0; // fewer than 8 bits are left in it from one value to the next
    std::int64_t count = 0;
    for (const std::uint16_t value : values)
    {
        accumulator |= (value & mask) << count;
        for (count += width; count >= BitsInByte; count -= BitsInByte)
        {
            bytes.push_back(static_cast<std::uint8_t>(accumulator));
            accumulator >>= BitsInByte;
        }
    }
    if (count >= 1)
    {
        bytes.push_back(static_cast<std::uint8_t>(accumulator));
    }
    return bytes;
}

Bytes CreateFileNuc(const std::vector<NucData>& dataSets, FpncType fpncType, DataFormat dataFormat,
                    std::uint32_t fileCode)
{
    BlockWriter file;
    writeHead(file, "FPN1", fileCode);
    file.numbers("FPT1", {static_cast<std::uint32_t>(fpncType)});
    file.numbers("DFMT", {static_cast<std::uint32_t>(dataFormat)});
    std::uint32_t offset = 0;
    for (const NucData& dataSet : dataSets)
    {
        file.content("IF01", nucInfo(dataSet, offset));
        offset += static_cast<std::uint32_t>(dataSet.payload.size());
    }
    writePayloads(file, dataSets, [](const NucData& dataSet) -> const Bytes& { return dataSet.payload; });
    return file.bytes();
}

Bytes CreateFileNucTamorinPro(const std::vector<NucData>& dataSets, std::uint32_t fileCode)
{
    return CreateFileNuc(dataSets, FpncType::TamorinPro, DataFormat::TamorinPro, fileCode);
}

} // namespace KTR::GFF
