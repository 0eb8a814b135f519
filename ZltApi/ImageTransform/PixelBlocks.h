// Readers that take 32 pixels of one unpacked encoding out of memory, as 8-bit channels in vector registers.
#pragma once

#include <opencv2/core/hal/intrin.hpp>

#include <cstddef>
#include <cstdint>

namespace ZltApi::ImageTransform
{

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "16-bit pixels are read as the machine's words");

constexpr std::size_t BlockPixels = 32;

// 32 values of one channel.
struct Channel
{
    cv::v_uint8x16 First, Second;
};

struct ColorBlock
{
    Channel Blue, Green, Red;
};

// Readers of grey or mosaic pixels: Read gives one channel. Deeper pixels lose their low bits; a value that is larger
// than its depth allows becomes white.
struct ByteReader
{
    static constexpr std::size_t SourceBytes = BlockPixels;
    static Channel Read(const std::uint8_t* source) { return {cv::v_load(source), cv::v_load(source + 16)}; }
};

template <int Depth> struct WordReader
{
    static constexpr std::size_t SourceBytes = BlockPixels * 2;
    static cv::v_uint16x8 Words(const std::uint8_t* source)
    {
        return cv::v_shr<Depth - 8>(cv::v_reinterpret_as_u16(cv::v_load(source)));
    }
    static Channel Read(const std::uint8_t* source)
    {
        return {cv::v_pack(Words(source), Words(source + 16)), cv::v_pack(Words(source + 32), Words(source + 48))};
    }
};

// Readers of colour pixels: Read gives blue, green and red.
template <class Reader> struct GreyReader
{
    static constexpr std::size_t SourceBytes = Reader::SourceBytes;
    static ColorBlock Read(const std::uint8_t* source)
    {
        const Channel grey = Reader::Read(source);
        return {grey, grey, grey};
    }
};

template <bool RedFirst> struct QuadReader
{
    static constexpr std::size_t SourceBytes = BlockPixels * 4;
    static ColorBlock Read(const std::uint8_t* source)
    {
        ColorBlock block;
        Channel& first = RedFirst ? block.Red : block.Blue;
        Channel& third = RedFirst ? block.Blue : block.Red;
        cv::v_uint8x16 alpha;
        cv::v_load_deinterleave(source, first.First, block.Green.First, third.First, alpha);
        cv::v_load_deinterleave(source + SourceBytes / 2, first.Second, block.Green.Second, third.Second, alpha);
        return block;
    }
};

// Two pixels share one pair of colour differences. BT.601 with the full range of 0 to 255:
//   red = Y + 1.402 V, green = Y - 0.344136 U - 0.714136 V, blue = Y + 1.772 U, U and V counted from 128.
template <bool LumaFirst> struct YuvReader
{
    static constexpr std::size_t SourceBytes = BlockPixels * 2;

    static constexpr int FractionBits = 5;
    static constexpr short Scaled(double factor)
    {
        return static_cast<short>(factor * (1 << 14) + (factor < 0 ? -0.5 : 0.5));
    }

    // A colour difference of 7 more bits times a factor of 14 fraction bits leaves 5 fraction bits in the upper word.
    static cv::v_int16x8 Times(const cv::v_int16x8& difference, double factor)
    {
        return cv::v_mul_hi(difference, cv::v_setall_s16(Scaled(factor)));
    }

    struct Offsets
    {
        cv::v_int16x8 Blue, Green, Red;
    };

    static Offsets ToOffsets(const cv::v_uint16x8& u, const cv::v_uint16x8& v)
    {
        const cv::v_int16x8 center = cv::v_setall_s16(128);
        const cv::v_int16x8 blueness = cv::v_shl<7>(cv::v_reinterpret_as_s16(u) - center);
        const cv::v_int16x8 redness = cv::v_shl<7>(cv::v_reinterpret_as_s16(v) - center);
        return {Times(blueness, 1.772), Times(blueness, -0.344136) + Times(redness, -0.714136), Times(redness, 1.402)};
    }

    static cv::v_uint8x16 Add(const cv::v_uint8x16& luma, const cv::v_int16x8& low, const cv::v_int16x8& high)
    {
        cv::v_uint16x8 lumaLow;
        cv::v_uint16x8 lumaHigh;
        cv::v_expand(luma, lumaLow, lumaHigh);
        const cv::v_int16x8 half = cv::v_setall_s16(1 << (FractionBits - 1));
        return cv::v_pack_u(
            cv::v_shr<FractionBits>(cv::v_reinterpret_as_s16(cv::v_shl<FractionBits>(lumaLow)) + low + half),
            cv::v_shr<FractionBits>(cv::v_reinterpret_as_s16(cv::v_shl<FractionBits>(lumaHigh)) + high + half));
    }

    static ColorBlock Read(const std::uint8_t* source)
    {
        cv::v_uint8x16 even;
        cv::v_uint8x16 odd;
        cv::v_uint8x16 u;
        cv::v_uint8x16 v;
        if constexpr (LumaFirst)
        {
            cv::v_load_deinterleave(source, even, u, odd, v);
        }
        else
        {
            cv::v_load_deinterleave(source, u, even, v, odd);
        }
        cv::v_uint16x8 uLow;
        cv::v_uint16x8 uHigh;
        cv::v_uint16x8 vLow;
        cv::v_uint16x8 vHigh;
        cv::v_expand(u, uLow, uHigh);
        cv::v_expand(v, vLow, vHigh);
        const Offsets low = ToOffsets(uLow, vLow);
        const Offsets high = ToOffsets(uHigh, vHigh);

        ColorBlock block;
        cv::v_zip(Add(even, low.Blue, high.Blue), Add(odd, low.Blue, high.Blue), block.Blue.First, block.Blue.Second);
        cv::v_zip(Add(even, low.Green, high.Green), Add(odd, low.Green, high.Green), block.Green.First,
                  block.Green.Second);
        cv::v_zip(Add(even, low.Red, high.Red), Add(odd, low.Red, high.Red), block.Red.First, block.Red.Second);
        return block;
    }
};

} // namespace ZltApi::ImageTransform
