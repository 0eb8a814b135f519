// How the pixels of each format lie in memory.
#include "PixelLayout.h"

#include "ZltApi/PixelFormat.h"

#include <algorithm>
#include <array>

namespace ZltApi::ImageTransform
{

namespace
{

constexpr std::array<PixelLayout, 47> Layouts{{
    {ZltPixelFormatMono8, "Mono8", Encoding::Byte, Mosaic::None},
    {ZltPixelFormatMono10, "Mono10", Encoding::Word10, Mosaic::None},
    {ZltPixelFormatMono10Packed, "Mono10Packed", Encoding::Packed, Mosaic::None},
    {ZltPixelFormatMono12, "Mono12", Encoding::Word12, Mosaic::None},
    {ZltPixelFormatMono12Packed, "Mono12Packed", Encoding::Packed, Mosaic::None},
    {ZltPixelFormatMono14, "Mono14", Encoding::Word14, Mosaic::None},
    {ZltPixelFormatMono16, "Mono16", Encoding::Word16, Mosaic::None},
    {ZltPixelFormatMono10p, "Mono10p", Encoding::Lsb10, Mosaic::None},
    {ZltPixelFormatMono12p, "Mono12p", Encoding::Lsb12, Mosaic::None},
    {ZltPixelFormatBayerGR8, "BayerGR8", Encoding::Byte, Mosaic::GR},
    {ZltPixelFormatBayerRG8, "BayerRG8", Encoding::Byte, Mosaic::RG},
    {ZltPixelFormatBayerGB8, "BayerGB8", Encoding::Byte, Mosaic::GB},
    {ZltPixelFormatBayerBG8, "BayerBG8", Encoding::Byte, Mosaic::BG},
    {ZltPixelFormatBayerGR10, "BayerGR10", Encoding::Word10, Mosaic::GR},
    {ZltPixelFormatBayerRG10, "BayerRG10", Encoding::Word10, Mosaic::RG},
    {ZltPixelFormatBayerGB10, "BayerGB10", Encoding::Word10, Mosaic::GB},
    {ZltPixelFormatBayerBG10, "BayerBG10", Encoding::Word10, Mosaic::BG},
    {ZltPixelFormatBayerGR12, "BayerGR12", Encoding::Word12, Mosaic::GR},
    {ZltPixelFormatBayerRG12, "BayerRG12", Encoding::Word12, Mosaic::RG},
    {ZltPixelFormatBayerGB12, "BayerGB12", Encoding::Word12, Mosaic::GB},
    {ZltPixelFormatBayerBG12, "BayerBG12", Encoding::Word12, Mosaic::BG},
    {ZltPixelFormatBayerGR10Packed, "BayerGR10Packed", Encoding::Packed, Mosaic::GR},
    {ZltPixelFormatBayerRG10Packed, "BayerRG10Packed", Encoding::Packed, Mosaic::RG},
    {ZltPixelFormatBayerGB10Packed, "BayerGB10Packed", Encoding::Packed, Mosaic::GB},
    {ZltPixelFormatBayerBG10Packed, "BayerBG10Packed", Encoding::Packed, Mosaic::BG},
    {ZltPixelFormatBayerGR12Packed, "BayerGR12Packed", Encoding::Packed, Mosaic::GR},
    {ZltPixelFormatBayerRG12Packed, "BayerRG12Packed", Encoding::Packed, Mosaic::RG},
    {ZltPixelFormatBayerGB12Packed, "BayerGB12Packed", Encoding::Packed, Mosaic::GB},
    {ZltPixelFormatBayerBG12Packed, "BayerBG12Packed", Encoding::Packed, Mosaic::BG},
    {ZltPixelFormatBayerGR16, "BayerGR16", Encoding::Word16, Mosaic::GR},
    {ZltPixelFormatBayerRG16, "BayerRG16", Encoding::Word16, Mosaic::RG},
    {ZltPixelFormatBayerGB16, "BayerGB16", Encoding::Word16, Mosaic::GB},
    {ZltPixelFormatBayerBG16, "BayerBG16", Encoding::Word16, Mosaic::BG},
    {ZltPixelFormatBayerBG10p, "BayerBG10p", Encoding::Lsb10, Mosaic::BG},
    {ZltPixelFormatBayerBG12p, "BayerBG12p", Encoding::Lsb12, Mosaic::BG},
    {ZltPixelFormatBayerGB10p, "BayerGB10p", Encoding::Lsb10, Mosaic::GB},
    {ZltPixelFormatBayerGB12p, "BayerGB12p", Encoding::Lsb12, Mosaic::GB},
    {ZltPixelFormatBayerGR10p, "BayerGR10p", Encoding::Lsb10, Mosaic::GR},
    {ZltPixelFormatBayerGR12p, "BayerGR12p", Encoding::Lsb12, Mosaic::GR},
    {ZltPixelFormatBayerRG10p, "BayerRG10p", Encoding::Lsb10, Mosaic::RG},
    {ZltPixelFormatBayerRG12p, "BayerRG12p", Encoding::Lsb12, Mosaic::RG},
    {ZltPixelFormatRGB8, "RGB8", Encoding::Rgb, Mosaic::None},
    {ZltPixelFormatBGR8, "BGR8", Encoding::Bgr, Mosaic::None},
    {ZltPixelFormatRGBa8, "RGBa8", Encoding::Rgba, Mosaic::None},
    {ZltPixelFormatBGRa8, "BGRa8", Encoding::Bgra, Mosaic::None},
    {ZltPixelFormatYUV422_8_UYVY, "YUV422_8_UYVY", Encoding::Uyvy, Mosaic::None},
    {ZltPixelFormatYUV422_8, "YUV422_8", Encoding::Yuyv, Mosaic::None},
}};

template <class Predicate> const PixelLayout* FindFirst(const Predicate& predicate)
{
    const auto* const found = std::find_if(Layouts.begin(), Layouts.end(), predicate);
    return found != Layouts.end() ? found : nullptr;
}

} // namespace

const PixelLayout* FindLayout(std::uint32_t format)
{
    return FindFirst([format](const PixelLayout& layout) { return layout.Format == format; });
}

const PixelLayout* FindLayout(std::string_view name)
{
    return name == DestinationName ? FindLayout(ZltPixelFormatBGRa8)
                                   : FindFirst([name](const PixelLayout& layout) { return layout.Name == name; });
}

} // namespace ZltApi::ImageTransform
