// The table of pixel formats, and the walk over the lines of a frame.
#include "FrameFormat.h"

#include "Demosaic.h"
#include "FramePacking.h"

#include <ZltApi/PixelFormat.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace Simulation
{

namespace
{

using Packing = FramePacker::Packing;

struct RawFormat
{
    std::uint32_t code;
    ColorFilter filter;
    Packing packing;
};

constexpr std::array<RawFormat, 22> RawFormats{{
    {ZltPixelFormatMono8, ColorFilter::Mono, Packing::Byte},
    {ZltPixelFormatMono10, ColorFilter::Mono, Packing::Word10},
    {ZltPixelFormatMono10p, ColorFilter::Mono, Packing::Stream10},
    {ZltPixelFormatMono12, ColorFilter::Mono, Packing::Word12},
    {ZltPixelFormatMono12Packed, ColorFilter::Mono, Packing::Packed12},
    {ZltPixelFormatMono12p, ColorFilter::Mono, Packing::Stream12},
    {ZltPixelFormatBayerGR8, ColorFilter::BayerGR, Packing::Byte},
    {ZltPixelFormatBayerGR10, ColorFilter::BayerGR, Packing::Word10},
    {ZltPixelFormatBayerGR12, ColorFilter::BayerGR, Packing::Word12},
    {ZltPixelFormatBayerGR12Packed, ColorFilter::BayerGR, Packing::Packed12},
    {ZltPixelFormatBayerRG8, ColorFilter::BayerRG, Packing::Byte},
    {ZltPixelFormatBayerRG10, ColorFilter::BayerRG, Packing::Word10},
    {ZltPixelFormatBayerRG12, ColorFilter::BayerRG, Packing::Word12},
    {ZltPixelFormatBayerRG12Packed, ColorFilter::BayerRG, Packing::Packed12},
    {ZltPixelFormatBayerGB8, ColorFilter::BayerGB, Packing::Byte},
    {ZltPixelFormatBayerGB10, ColorFilter::BayerGB, Packing::Word10},
    {ZltPixelFormatBayerGB12, ColorFilter::BayerGB, Packing::Word12},
    {ZltPixelFormatBayerGB12Packed, ColorFilter::BayerGB, Packing::Packed12},
    {ZltPixelFormatBayerBG8, ColorFilter::BayerBG, Packing::Byte},
    {ZltPixelFormatBayerBG10, ColorFilter::BayerBG, Packing::Word10},
    {ZltPixelFormatBayerBG12, ColorFilter::BayerBG, Packing::Word12},
    {ZltPixelFormatBayerBG12Packed, ColorFilter::BayerBG, Packing::Packed12},
}};

// Formats of interpolated colours, which any Bayer sensor can give.
constexpr std::array<std::uint32_t, 4> ColorFormats{ZltPixelFormatRGB8, ZltPixelFormatBGR8, ZltPixelFormatYUV422_8,
                                                    ZltPixelFormatYUV422_8_UYVY};

const RawFormat* FindRawFormat(std::uint32_t code)
{
    const auto found = std::find_if(RawFormats.begin(), RawFormats.end(),
                                    [code](const RawFormat& format) { return format.code == code; });
    return found == RawFormats.end() ? nullptr : &*found;
}

bool IsColorFormat(std::uint32_t code)
{
    return std::find(ColorFormats.begin(), ColorFormats.end(), code) != ColorFormats.end();
}

bool LiesOnSensor(const FrameGeometry& geometry)
{
    return geometry.offsetX <= geometry.sensorWidth && geometry.width <= geometry.sensorWidth - geometry.offsetX &&
           geometry.offsetY <= geometry.sensorHeight && geometry.height <= geometry.sensorHeight - geometry.offsetY;
}

// The sensor row that an image line shows.
std::uint32_t SensorRow(const FrameGeometry& geometry, std::uint32_t line)
{
    const std::uint32_t y = geometry.offsetY + line;
    return geometry.reverseY ? geometry.sensorHeight - 1 - y : y;
}

// The leftmost sensor column that the image shows.
std::uint32_t FirstSensorColumn(const FrameGeometry& geometry)
{
    return geometry.reverseX ? geometry.sensorWidth - geometry.offsetX - geometry.width : geometry.offsetX;
}

void FormatRaw(const std::vector<std::uint16_t>& raw, const FrameGeometry& geometry, Packing packing,
               unsigned char* bytes)
{
    FramePacker packer(packing, bytes);
    std::vector<std::uint16_t> mirrored(geometry.reverseX ? geometry.width : 0);
    for (std::uint32_t line = 0; line < geometry.height; ++line)
    {
        const std::uint16_t* row = raw.data() +
                                   static_cast<std::size_t>(SensorRow(geometry, line)) * geometry.sensorWidth +
                                   FirstSensorColumn(geometry);
        if (geometry.reverseX)
        {
            std::reverse_copy(row, row + geometry.width, mirrored.begin());
            row = mirrored.data();
        }
        packer.Append(row, geometry.width);
    }
    packer.Finish();
}

unsigned char* PackTriples(const std::vector<RgbPixel>& line, bool redFirst, unsigned char* bytes)
{
    for (const RgbPixel& pixel : line)
    {
        bytes[0] = redFirst ? pixel.red : pixel.blue;
        bytes[1] = pixel.green;
        bytes[2] = redFirst ? pixel.blue : pixel.red;
        bytes += 3;
    }
    return bytes;
}

// Two neighbours share their colour. A line of odd width ends with the first half of a pair.
unsigned char* PackYuv422(const std::vector<RgbPixel>& line, bool colorFirst, unsigned char* bytes)
{
    // BT.601 over the full range, in units of 1 / 65536.
    constexpr int Bits = 16;
    constexpr int Half = 1 << (Bits - 1);
    constexpr int Neutral = 128;
    const auto luma = [](const RgbPixel& p)
    { return static_cast<unsigned char>((19595 * p.red + 38470 * p.green + 7471 * p.blue + Half) >> Bits); };
    const auto chroma = [](int sum)
    { return static_cast<unsigned char>(std::clamp(Neutral + ((sum + Half) >> Bits), 0, 255)); };
    const auto put = [&bytes, colorFirst](unsigned char brightness, unsigned char color)
    {
        bytes[0] = colorFirst ? color : brightness;
        bytes[1] = colorFirst ? brightness : color;
        bytes += 2;
    };
    for (std::size_t x = 0; x < line.size(); x += 2)
    {
        const bool pair = x + 1 < line.size();
        const RgbPixel& first = line[x];
        const RgbPixel& second = pair ? line[x + 1] : first;
        const int red = (first.red + second.red + 1) / 2;
        const int green = (first.green + second.green + 1) / 2;
        const int blue = (first.blue + second.blue + 1) / 2;
        put(luma(first), chroma(-11059 * red - 21709 * green + 32768 * blue));
        if (pair)
        {
            put(luma(second), chroma(32768 * red - 27439 * green - 5329 * blue));
        }
    }
    return bytes;
}

void FormatColor(const std::vector<std::uint16_t>& raw, ColorFilter filter, const FrameGeometry& geometry,
                 std::uint32_t pixelFormat, unsigned char* bytes)
{
    std::vector<RgbPixel> line(geometry.width);
    const Demosaic demosaic(raw, geometry.sensorWidth, geometry.sensorHeight, filter);
    for (std::uint32_t y = 0; y < geometry.height; ++y)
    {
        demosaic.Row(SensorRow(geometry, y), FirstSensorColumn(geometry), line);
        if (geometry.reverseX)
        {
            std::reverse(line.begin(), line.end());
        }
        switch (pixelFormat)
        {
        case ZltPixelFormatRGB8:
        case ZltPixelFormatBGR8:
            bytes = PackTriples(line, pixelFormat == ZltPixelFormatRGB8, bytes);
            break;
        default:
            bytes = PackYuv422(line, pixelFormat == ZltPixelFormatYUV422_8_UYVY, bytes);
        }
    }
}

} // namespace

std::vector<std::uint32_t> FrameFormats(ColorFilter filter)
{
    std::vector<std::uint32_t> codes;
    for (const RawFormat& format : RawFormats)
    {
        if (format.filter == filter)
        {
            codes.push_back(format.code);
        }
    }
    if (filter != ColorFilter::Mono)
    {
        codes.insert(codes.end(), ColorFormats.begin(), ColorFormats.end());
    }
    return codes;
}

std::uint64_t FrameSize(std::uint32_t pixelFormat, std::uint32_t width, std::uint32_t height)
{
    if (FindRawFormat(pixelFormat) == nullptr && !IsColorFormat(pixelFormat))
    {
        return 0;
    }
    const std::uint64_t pixels = static_cast<std::uint64_t>(width) * height;
    const std::uint64_t bitsPerPixel = (pixelFormat >> 16U) & 0xFFU;
    // Whole bytes and the rest apart, so that no size overflows.
    return pixels / 8 * bitsPerPixel + (pixels % 8 * bitsPerPixel + 7) / 8;
}

bool FormatFrame(const std::vector<std::uint16_t>& raw, ColorFilter filter, const FrameGeometry& geometry,
                 std::uint32_t pixelFormat, unsigned char* bytes, std::uint64_t size)
{
    if (!LiesOnSensor(geometry) || raw.size() / std::max(1U, geometry.sensorWidth) < geometry.sensorHeight ||
        size < FrameSize(pixelFormat, geometry.width, geometry.height))
    {
        return false;
    }
    if (const RawFormat* format = FindRawFormat(pixelFormat))
    {
        const ColorFilter mirrored =
            MirroredFilter(filter, geometry.sensorWidth, geometry.sensorHeight, geometry.reverseX, geometry.reverseY);
        if (format->filter != ShiftedFilter(mirrored, geometry.offsetX, geometry.offsetY))
        {
            return false;
        }
        FormatRaw(raw, geometry, format->packing, bytes);
        return true;
    }
    if (!IsColorFormat(pixelFormat) || filter == ColorFilter::Mono)
    {
        return false;
    }
    FormatColor(raw, filter, geometry, pixelFormat, bytes);
    return true;
}

} // namespace Simulation
