// The dataset file of the Tamorin Pro family inside the camera.
#include "Firmware/TamorinPro/TamorinProFile.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Simulation
{

namespace
{

// Numbers of the file. Cameras in the field hold such files: no value may ever change.
constexpr std::uint32_t FormatConstant = 0x02000000; // the number before it may be anything
constexpr std::uint32_t CorrectionType = 3;
constexpr std::uint32_t DataFormat = 17;
constexpr std::uint32_t InfoSize = 84;        // bytes
constexpr std::uint32_t DataSetInfoSize = 28; // bytes
constexpr std::uint32_t EntrySize = 4;        // bytes of a pixel, and of the end mark
constexpr std::uint32_t EntryKind = 0xC000C000;
constexpr std::uint32_t PixelEntry = 0x00004000; // the row in the low half, the column in the high one
constexpr std::uint32_t EndEntry = 0xC000C000;
constexpr std::uint32_t Coordinate = 0x3FFF;

std::uint32_t TagNumber(const char (&tag)[5])
{
    std::uint32_t number = 0;
    for (int i = 3; i >= 0; --i)
    {
        number = number << 8 | static_cast<unsigned char>(tag[i]);
    }
    return number;
}

template <typename To, typename From> To SameBits(From from)
{
    static_assert(sizeof(To) == sizeof(From));
    To to;
    std::memcpy(&to, &from, sizeof(to));
    return to;
}

// Takes a file apart from its start on. After the first thing that is not as it must be, IsGood is false for good.
class Reader
{
public:
    explicit Reader(const FileBytes& bytes) : m_bytes(bytes) {}

    std::uint32_t Number()
    {
        m_isGood = m_isGood && m_bytes.size() - m_position >= 4;
        if (!m_isGood)
        {
            return 0;
        }
        std::uint32_t number = 0;
        for (std::size_t i = 4; i-- > 0;)
        {
            number = number << 8 | m_bytes[m_position + i];
        }
        m_position += 4;
        return number;
    }
    void Expect(std::uint32_t number) { m_isGood = Number() == number && m_isGood; }
    void Expect(const char (&tag)[5], std::uint32_t length)
    {
        Expect(TagNumber(tag));
        Expect(length);
    }
    float Float()
    {
        const float value = SameBits<float>(Number());
        m_isGood = m_isGood && std::isfinite(value);
        return value;
    }
    std::size_t Left() const { return m_bytes.size() - m_position; }
    bool IsGood() const { return m_isGood; }

private:
    const FileBytes& m_bytes;
    std::size_t m_position = 0;
    bool m_isGood = true;
};

class Writer
{
public:
    void Number(std::uint32_t number)
    {
        for (int shift = 0; shift < 32; shift += 8)
        {
            m_bytes.push_back(static_cast<unsigned char>(number >> shift & 0xFF));
        }
    }
    void Block(const char (&tag)[5], std::uint32_t length, std::initializer_list<std::uint32_t> numbers)
    {
        Number(TagNumber(tag));
        Number(length);
        std::for_each(numbers.begin(), numbers.end(), [this](std::uint32_t number) { Number(number); });
    }
    FileBytes& Bytes() { return m_bytes; }

private:
    FileBytes m_bytes;
};

} // namespace

std::optional<TamorinProDataset> DecodeTamorinProFile(const FileBytes& file, std::uint32_t width, std::uint32_t height)
{
    TamorinProDataset dataset;
    Reader reader(file);
    reader.Expect("PTY1", 4);
    reader.Expect(TagNumber("DPC1"));
    reader.Expect("FCO1", 8);
    reader.Number();
    reader.Expect(FormatConstant);
    reader.Expect("DCT1", 4);
    reader.Expect(CorrectionType);
    reader.Expect("DFMT", 4);
    reader.Expect(DataFormat);
    reader.Expect("IF01", InfoSize);
    reader.Expect("INDX", 4);
    reader.Expect(0);
    reader.Expect("DSET", DataSetInfoSize);
    reader.Expect(0);
    const std::uint32_t size = reader.Number();
    for (const std::uint32_t number : {0U, height, width, 0U, 0U})
    {
        reader.Expect(number);
    }
    reader.Expect("TMP1", 4);
    dataset.temperature = reader.Float();
    reader.Expect("AGAN", 4);
    dataset.gain = reader.Number();
    reader.Expect("EXP1", 4);
    dataset.exposureUs = reader.Float();
    reader.Expect("PDA1", size + EntrySize);
    if (!reader.IsGood() || size % EntrySize != 0 || reader.Left() != std::uint64_t{size} + EntrySize)
    {
        return std::nullopt;
    }
    PixelPosition last{0, 0};
    for (std::uint32_t i = 0; i < size; i += EntrySize)
    {
        const std::uint32_t entry = reader.Number();
        const PixelPosition pixel{entry >> 16 & Coordinate, entry & Coordinate};
        if ((entry & EntryKind) != PixelEntry || pixel.y < last.y || (pixel.y == last.y && pixel.x < last.x))
        {
            return std::nullopt;
        }
        last = pixel;
        if (pixel.x < width && pixel.y < height)
        {
            dataset.pixels.push_back(pixel);
        }
    }
    return reader.Number() == EndEntry ? std::optional(std::move(dataset)) : std::nullopt;
}

FileBytes EncodeTamorinProFile(TamorinProDataset dataset, std::uint32_t width, std::uint32_t height)
{
    std::sort(dataset.pixels.begin(), dataset.pixels.end(),
              [](const PixelPosition& a, const PixelPosition& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; });
    const auto size = static_cast<std::uint32_t>(dataset.pixels.size()) * EntrySize;
    Writer writer;
    writer.Block("PTY1", 4, {TagNumber("DPC1")});
    writer.Block("FCO1", 8, {0, FormatConstant});
    writer.Block("DCT1", 4, {CorrectionType});
    writer.Block("DFMT", 4, {DataFormat});
    writer.Block("IF01", InfoSize, {});
    writer.Block("INDX", 4, {0});
    writer.Block("DSET", DataSetInfoSize, {0, size, 0, height, width, 0, 0});
    writer.Block("TMP1", 4, {SameBits<std::uint32_t>(dataset.temperature)});
    writer.Block("AGAN", 4, {dataset.gain});
    writer.Block("EXP1", 4, {SameBits<std::uint32_t>(dataset.exposureUs)});
    writer.Block("PDA1", size + EntrySize, {});
    for (const PixelPosition& pixel : dataset.pixels)
    {
        writer.Number(PixelEntry | pixel.y | pixel.x << 16);
    }
    writer.Number(EndEntry);
    return std::move(writer.Bytes());
}

} // namespace Simulation
