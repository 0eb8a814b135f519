// Pixel format conversion of camera frames.
#pragma once

#include "ZltApi/PixelFormat.h"
#include "ZltApi/ResultCodes.h"

#include <cstdint>

#if defined(ZLTIMAGETRANSFORM_BUILDING)
#define ZLTIMAGETRANSFORM_EXPORT __attribute__((visibility("default")))
#else
#define ZLTIMAGETRANSFORM_EXPORT
#endif

// Describes one image buffer. The caller sets Size to sizeof(ZltImage), lets one of the ZltSetImageInfo functions fill
// in the format, and points Data at the pixels. Rows follow one another without padding; in packed formats a row may
// begin within a byte, and BytesPerLine is rounded up.
struct ZltImage
{
    std::uint32_t Size;         // sizeof(ZltImage): tells the library which form of the record it is given
    std::uint32_t PixelFormat;  // a ZltPixelFormat
    void* Data;                 // first byte of the first row
    std::uint64_t BytesPerLine; // bytes from one row to the next
    std::uint64_t BufferSize;   // bytes that Data must hold
    std::uint32_t Width;        // pixels
    std::uint32_t Height;       // pixels
    std::uint32_t BitsPerPixel;
    std::uint32_t Reserved[3];
};
static_assert(sizeof(ZltImage) == 56, "the record's size is part of the library's binary contract");

enum ZltTransformType : std::uint32_t
{
    ZltTransformNone = 0,
    ZltTransformColorCorrectionMatrix = 1
};

// One parameter of a conversion, made by a ZltSet... function.
struct ZltTransformInfo
{
    ZltTransformType Type;
    float Matrix[9]; // row by row; multiplies the column (red, green, blue)
};

extern "C"
{
    // Fills in everything but Size and Data for a buffer of the given format.
    // ZltErrorBadParameter: null image, wrong Size, or a width or height of 0. ZltErrorNotSupported: unknown format.
    // ZltErrorInvalidValue: a width that the format cannot hold (odd, for 4:2:2) or an image of more than 2^31 bytes.
    ZLTIMAGETRANSFORM_EXPORT ZltErrorType ZltSetImageInfoFromPixelFormat(std::uint32_t format, std::uint32_t width,
                                                                         std::uint32_t height, ZltImage* image);

    // The same from a format's name: a name of the pixel format naming convention such as "Mono8" or "BayerRG12Packed",
    // or "BGRA32" for blue-first 32-bit pixels.
    ZLTIMAGETRANSFORM_EXPORT ZltErrorType ZltSetImageInfoFromString(const char* name, std::uint32_t width,
                                                                    std::uint32_t height, ZltImage* image);

    // Makes the parameter that multiplies each pixel's (red, green, blue) by a 3 x 3 matrix, given row by row.
    // ZltErrorBadParameter: a null pointer. ZltErrorInvalidValue: an element that is not finite.
    ZLTIMAGETRANSFORM_EXPORT ZltErrorType ZltSetColorCorrectionMatrix3x3(const float* matrix, ZltTransformInfo* info);

    // Converts source into destination, interpolating the colours of Bayer mosaics. Deeper pixels lose their low bits.
    // The destination is "BGRA32", whose fourth byte becomes 255. Parameters apply one after another; results are
    // rounded and clamped. Thread-safe as long as the buffers are not shared. Nothing is written on failure:
    // ZltErrorBadParameter: a null pointer or wrong Size. ZltErrorNotSupported: a format or parameter that is not
    // known, or another destination. ZltErrorInvalidValue: descriptors that disagree with their format or with one
    // another, overlapping buffers, a matrix element that is not finite.
    ZLTIMAGETRANSFORM_EXPORT ZltErrorType ZltImageTransform(const ZltImage* source, ZltImage* destination,
                                                            const ZltTransformInfo* parameters,
                                                            std::uint32_t parameterCount);
}
