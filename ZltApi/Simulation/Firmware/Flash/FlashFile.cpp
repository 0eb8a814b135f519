// Head and records of the flash family's defect file.
#include "Firmware/Flash/FlashFile.h"

#include <cstdint>
#include <set>
#include <utility>

namespace Simulation
{

namespace
{

// Numbers of the file. Cameras in the field hold such files: no value may ever change.
constexpr std::uint32_t LittleEndianMark = 0xFFFFFFFF;
constexpr std::uint32_t Version = 1;
constexpr std::uint32_t HeadSize = 4096; // bytes
constexpr std::uint32_t RecordSize = 8;  // bytes
constexpr std::uint32_t UsableBits = 0x1FF;
constexpr std::uint32_t RecordMark = 0xF000; // the only bits set beside the usable ones
constexpr std::int64_t Reach = 4;            // pixels, each way

std::uint32_t Number(const FileBytes& bytes, std::size_t at, int size)
{
    std::uint32_t number = 0;
    for (int i = size; i-- > 0;)
    {
        number = number << 8 | bytes[at + static_cast<std::size_t>(i)];
    }
    return number;
}

void Append(FileBytes& bytes, std::uint32_t number, int size)
{
    for (int i = 0; i < size; ++i, number >>= 8)
    {
        bytes.push_back(static_cast<unsigned char>(number & 0xFF));
    }
}

std::uint32_t Swapped16(std::uint32_t number)
{
    return (number & 0xFF) << 8 | number >> 8;
}

} // namespace

std::optional<std::vector<MaskedPixel>> DecodeFlashFile(const FileBytes& bytes, SensorSize sensor)
{
    if (bytes.size() < HeadSize)
    {
        return std::nullopt;
    }
    const bool isSwapped = Number(bytes, 0, 4) != LittleEndianMark;
    const std::uint64_t count = Number(bytes, 12, 4);
    if (Number(bytes, 4, 4) != Version || Number(bytes, 8, 4) != HeadSize || Number(bytes, 16, 4) != RecordSize ||
        Number(bytes, 20, 4) != sensor.width || Number(bytes, 24, 4) != sensor.height ||
        bytes.size() - HeadSize != count * RecordSize)
    {
        return std::nullopt;
    }
    std::vector<MaskedPixel> pixels;
    for (std::size_t at = HeadSize; at < bytes.size(); at += RecordSize)
    {
        std::uint32_t x = Number(bytes, at, 2);
        std::uint32_t y = Number(bytes, at + 2, 2);
        if (isSwapped)
        {
            x = Swapped16(x);
            y = Swapped16(y);
        }
        const std::uint32_t control = Number(bytes, at + 4, 4);
        if ((control & ~UsableBits) != RecordMark)
        {
            return std::nullopt;
        }
        if (x < sensor.width && y < sensor.height)
        {
            pixels.push_back({{x, y}, control & UsableBits});
        }
    }
    return pixels;
}

FileBytes EncodeFlashFile(const std::vector<PixelPosition>& pixels, SensorSize sensor, ColorFilter filter)
{
    std::set<std::pair<std::int64_t, std::int64_t>> listed;
    for (const PixelPosition& pixel : pixels)
    {
        listed.insert({pixel.y, pixel.x});
    }
    FileBytes records;
    std::uint32_t count = 0;
    const std::int64_t step = filter == ColorFilter::Mono ? 1 : 2;
    for (const auto& [y, x] : listed)
    {
        std::uint32_t usable = 0;
        for (std::int64_t distance = -Reach; distance <= Reach; ++distance)
        {
            const std::int64_t neighbour = x + distance;
            const bool isGood = distance != 0 && distance % step == 0 && neighbour >= 0 &&
                                neighbour < std::int64_t{sensor.width} && listed.count({y, neighbour}) == 0;
            usable |= isGood ? 1U << (Reach - distance) : 0U;
        }
        if (usable != 0)
        {
            Append(records, static_cast<std::uint32_t>(x), 2);
            Append(records, static_cast<std::uint32_t>(y), 2);
            Append(records, usable | RecordMark, 4);
            ++count;
        }
    }
    FileBytes file;
    for (const std::uint32_t number :
         {LittleEndianMark, Version, HeadSize, count, RecordSize, sensor.width, sensor.height})
    {
        Append(file, number, 4);
    }
    file.resize(HeadSize, 0xFF);
    file.insert(file.end(), records.begin(), records.end());
    return file;
}

} // namespace Simulation
