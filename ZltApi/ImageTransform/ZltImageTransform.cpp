// Pixel format conversion of camera frames: the argument checks, and the way through the conversions.
#include "ZltImageTransform/ZltImageTransform.h"

#include "ColorMatrix.h"
#include "Demosaic.h"
#include "PixelLayout.h"
#include "PixelRuns.h"
#include "TripleConversion.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <new>
#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace
{

using namespace ZltApi::ImageTransform;

constexpr std::uint64_t MaximumBytes = std::uint64_t{1} << 31U;

bool IsDescriptor(const ZltImage* image)
{
    return image != nullptr && image->Size == sizeof(ZltImage);
}

ZltErrorType Describe(const PixelLayout* layout, std::uint32_t width, std::uint32_t height, ZltImage* image)
{
    if (!IsDescriptor(image) || width == 0 || height == 0)
    {
        return ZltErrorBadParameter;
    }
    if (layout == nullptr)
    {
        return ZltErrorNotSupported;
    }
    const bool sharesColors = layout->Code == Encoding::Uyvy || layout->Code == Encoding::Yuyv;
    const std::uint64_t pixels = std::uint64_t{width} * height;
    // Every format takes at least a byte a pixel. The first comparison also keeps the product below within 64 bits.
    if ((sharesColors && width % 2 != 0) || pixels > MaximumBytes ||
        BytesOfPixels(pixels, layout->BitsPerPixel()) > MaximumBytes)
    {
        return ZltErrorInvalidValue;
    }
    image->PixelFormat = layout->Format;
    image->BytesPerLine = BytesOfPixels(width, layout->BitsPerPixel());
    image->BufferSize = BytesOfPixels(pixels, layout->BitsPerPixel());
    image->Width = width;
    image->Height = height;
    image->BitsPerPixel = layout->BitsPerPixel();
    std::fill(std::begin(image->Reserved), std::end(image->Reserved), 0U);
    return ZltErrorSuccess;
}

// Whether the record says what a ZltSetImageInfo function would have put into it.
ZltErrorType CheckImage(const ZltImage* image)
{
    if (!IsDescriptor(image) || image->Data == nullptr)
    {
        return ZltErrorBadParameter;
    }
    ZltImage expected{};
    expected.Size = sizeof expected;
    const ZltErrorType result = Describe(FindLayout(image->PixelFormat), image->Width, image->Height, &expected);
    if (result != ZltErrorSuccess)
    {
        return result;
    }
    const bool agrees = image->BytesPerLine == expected.BytesPerLine && image->BufferSize == expected.BufferSize &&
                        image->BitsPerPixel == expected.BitsPerPixel;
    return agrees ? ZltErrorSuccess : ZltErrorInvalidValue;
}

bool Overlap(const ZltImage& one, const ZltImage& other)
{
    const auto* const oneData = static_cast<const std::uint8_t*>(one.Data);
    const auto* const otherData = static_cast<const std::uint8_t*>(other.Data);
    const std::less<> before;
    return before(oneData, otherData + other.BufferSize) && before(otherData, oneData + one.BufferSize);
}

bool IsFinite(const float* matrix)
{
    return std::all_of(matrix, matrix + 9, [](float element) { return std::isfinite(element); });
}

ZltErrorType CheckParameters(const ZltTransformInfo* parameters, std::uint32_t parameterCount)
{
    if (parameterCount > 0 && parameters == nullptr)
    {
        return ZltErrorBadParameter;
    }
    for (std::uint32_t i = 0; i < parameterCount; ++i)
    {
        switch (parameters[i].Type)
        {
        case ZltTransformNone:
            break;
        case ZltTransformColorCorrectionMatrix:
            if (!IsFinite(parameters[i].Matrix))
            {
                return ZltErrorInvalidValue;
            }
            break;
        default:
            return ZltErrorNotSupported;
        }
    }
    return ZltErrorSuccess;
}

ZltErrorType CheckTransform(const ZltImage* source, const ZltImage* destination, const ZltTransformInfo* parameters,
                            std::uint32_t parameterCount)
{
    for (const ZltErrorType result :
         {CheckImage(source), CheckImage(destination), CheckParameters(parameters, parameterCount)})
    {
        if (result != ZltErrorSuccess)
        {
            return result;
        }
    }
    if (destination->PixelFormat != ZltPixelFormatBGRa8)
    {
        return ZltErrorNotSupported;
    }
    const bool sameSize = source->Width == destination->Width && source->Height == destination->Height;
    return sameSize && !Overlap(*source, *destination) ? ZltErrorSuccess : ZltErrorInvalidValue;
}

// OpenCV interpolates bytes. The room for them is kept from frame to frame.
const std::uint8_t* MosaicBytes(const PixelLayout& layout, const std::uint8_t* source, std::size_t pixels)
{
    if (layout.Code == Encoding::Byte)
    {
        return source;
    }
    thread_local std::vector<std::uint8_t> t_bytes;
    if (t_bytes.size() < pixels)
    {
        t_bytes.resize(pixels);
    }
    ReduceToBytes(layout, source, t_bytes.data(), pixels);
    return t_bytes.data();
}

// Code elsewhere that leaves the upper halves of the vector registers in use makes each narrower instruction here wait
// for the one before: conversions took up to three times as long.
#if defined(__x86_64__)
__attribute__((target("avx"))) void ReleaseWideRegisters()
{
    _mm256_zeroupper();
}
#endif

void PrepareVectorRegisters()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx") != 0)
    {
        ReleaseWideRegisters();
    }
#endif
}

void Transform(const ZltImage& source, const ZltImage& destination, const ZltTransformInfo* parameters,
               std::uint32_t parameterCount)
{
    PrepareVectorRegisters();
    const PixelLayout& layout = *FindLayout(source.PixelFormat);
    const auto* const from = static_cast<const std::uint8_t*>(source.Data);
    auto* const to = static_cast<std::uint8_t*>(destination.Data);
    const std::size_t pixels = std::size_t{source.Width} * source.Height;
    const auto width = static_cast<int>(source.Width);
    const auto height = static_cast<int>(source.Height);
    if (layout.Colors != Mosaic::None)
    {
        Demosaic(layout.Colors, MosaicBytes(layout, from, pixels), to, width, height);
    }
    else if (layout.Code == Encoding::Rgb || layout.Code == Encoding::Bgr)
    {
        ConvertTriples(layout.Code == Encoding::Rgb, from, to, width, height);
    }
    else
    {
        ConvertToBgra(layout, from, to, pixels);
    }
    for (std::uint32_t i = 0; i < parameterCount; ++i)
    {
        if (parameters[i].Type == ZltTransformColorCorrectionMatrix)
        {
            ApplyColorMatrix(parameters[i].Matrix, to, pixels);
        }
    }
}

} // namespace

ZltErrorType ZltSetImageInfoFromPixelFormat(std::uint32_t format, std::uint32_t width, std::uint32_t height,
                                            ZltImage* image)
{
    return Describe(FindLayout(format), width, height, image);
}

ZltErrorType ZltSetImageInfoFromString(const char* name, std::uint32_t width, std::uint32_t height, ZltImage* image)
{
    return name != nullptr ? Describe(FindLayout(std::string_view(name)), width, height, image) : ZltErrorBadParameter;
}

ZltErrorType ZltSetColorCorrectionMatrix3x3(const float* matrix, ZltTransformInfo* info)
{
    if (matrix == nullptr || info == nullptr)
    {
        return ZltErrorBadParameter;
    }
    if (!IsFinite(matrix))
    {
        return ZltErrorInvalidValue;
    }
    info->Type = ZltTransformColorCorrectionMatrix;
    std::copy_n(matrix, 9, info->Matrix);
    return ZltErrorSuccess;
}

ZltErrorType ZltImageTransform(const ZltImage* source, ZltImage* destination, const ZltTransformInfo* parameters,
                               std::uint32_t parameterCount)
{
    try
    {
        const ZltErrorType result = CheckTransform(source, destination, parameters, parameterCount);
        if (result == ZltErrorSuccess)
        {
            Transform(*source, *destination, parameters, parameterCount);
        }
        return result;
    }
    catch (const std::bad_alloc&)
    {
        return ZltErrorResource;
    }
    catch (...)
    {
        return ZltErrorUnexpectedFault;
    }
}
