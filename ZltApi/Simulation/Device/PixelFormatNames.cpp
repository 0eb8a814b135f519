// The table of pixel format names.
#include "Device/PixelFormatNames.h"

#include "ZltApi/PixelFormat.h"

#include <algorithm>
#include <iterator>

namespace Simulation
{

namespace
{

struct NamedFormat
{
    std::uint32_t format;
    const char* name;
};

constexpr NamedFormat Names[] = {
    {ZltPixelFormatMono8, "Mono8"},
    {ZltPixelFormatMono10, "Mono10"},
    {ZltPixelFormatMono10Packed, "Mono10Packed"},
    {ZltPixelFormatMono12, "Mono12"},
    {ZltPixelFormatMono12Packed, "Mono12Packed"},
    {ZltPixelFormatMono14, "Mono14"},
    {ZltPixelFormatMono16, "Mono16"},
    {ZltPixelFormatMono10p, "Mono10p"},
    {ZltPixelFormatMono12p, "Mono12p"},
    {ZltPixelFormatBayerGR8, "BayerGR8"},
    {ZltPixelFormatBayerRG8, "BayerRG8"},
    {ZltPixelFormatBayerGB8, "BayerGB8"},
    {ZltPixelFormatBayerBG8, "BayerBG8"},
    {ZltPixelFormatBayerGR10, "BayerGR10"},
    {ZltPixelFormatBayerRG10, "BayerRG10"},
    {ZltPixelFormatBayerGB10, "BayerGB10"},
    {ZltPixelFormatBayerBG10, "BayerBG10"},
    {ZltPixelFormatBayerGR12, "BayerGR12"},
    {ZltPixelFormatBayerRG12, "BayerRG12"},
    {ZltPixelFormatBayerGB12, "BayerGB12"},
    {ZltPixelFormatBayerBG12, "BayerBG12"},
    {ZltPixelFormatBayerGR10Packed, "BayerGR10Packed"},
    {ZltPixelFormatBayerRG10Packed, "BayerRG10Packed"},
    {ZltPixelFormatBayerGB10Packed, "BayerGB10Packed"},
    {ZltPixelFormatBayerBG10Packed, "BayerBG10Packed"},
    {ZltPixelFormatBayerGR12Packed, "BayerGR12Packed"},
    {ZltPixelFormatBayerRG12Packed, "BayerRG12Packed"},
    {ZltPixelFormatBayerGB12Packed, "BayerGB12Packed"},
    {ZltPixelFormatBayerBG12Packed, "BayerBG12Packed"},
    {ZltPixelFormatBayerGR16, "BayerGR16"},
    {ZltPixelFormatBayerRG16, "BayerRG16"},
    {ZltPixelFormatBayerGB16, "BayerGB16"},
    {ZltPixelFormatBayerBG16, "BayerBG16"},
    {ZltPixelFormatBayerBG10p, "BayerBG10p"},
    {ZltPixelFormatBayerBG12p, "BayerBG12p"},
    {ZltPixelFormatBayerGB10p, "BayerGB10p"},
    {ZltPixelFormatBayerGB12p, "BayerGB12p"},
    {ZltPixelFormatBayerGR10p, "BayerGR10p"},
    {ZltPixelFormatBayerGR12p, "BayerGR12p"},
    {ZltPixelFormatBayerRG10p, "BayerRG10p"},
    {ZltPixelFormatBayerRG12p, "BayerRG12p"},
    {ZltPixelFormatRGB8, "RGB8"},
    {ZltPixelFormatBGR8, "BGR8"},
    {ZltPixelFormatRGBa8, "RGBa8"},
    {ZltPixelFormatBGRa8, "BGRa8"},
    {ZltPixelFormatYUV422_8_UYVY, "YUV422_8_UYVY"},
    {ZltPixelFormatYUV422_8, "YUV422_8"},
};

} // namespace

std::string PixelFormatName(std::uint32_t format)
{
    const auto* const found = std::find_if(std::begin(Names), std::end(Names),
                                           [&](const NamedFormat& named) { return named.format == format; });
    return found == std::end(Names) ? std::string() : found->name;
}

} // namespace Simulation
