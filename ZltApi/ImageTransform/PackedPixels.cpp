// Unpacking of pixels that share bytes with their neighbours.
#include "PackedPixels.h"

#include <opencv2/core/hal/intrin.hpp>

#include <algorithm>
#include <cassert>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace ZltApi::ImageTransform
{

namespace
{

constexpr std::size_t GroupPixels = 8; // so that a group of any packing ends with a whole byte

// Where a group has its pixels: each stands in a word of two bytes, low byte first, and the factor moves its high bits
// to the upper end of the word.
struct Packing
{
    std::size_t GroupBytes = 0;
    std::uint8_t Bytes[GroupPixels * 2] = {};
    std::uint16_t Factors[GroupPixels] = {};
};

constexpr Packing FollowingBits(std::size_t depth)
{
    Packing packing;
    packing.GroupBytes = depth;
    for (std::size_t i = 0; i < GroupPixels; ++i)
    {
        const std::size_t bit = i * depth;
        packing.Bytes[i * 2] = static_cast<std::uint8_t>(bit / 8);
        packing.Bytes[i * 2 + 1] = static_cast<std::uint8_t>(bit / 8 + 1);
        packing.Factors[i] = static_cast<std::uint16_t>(1U << (16 - depth - bit % 8));
    }
    return packing;
}

// Of three bytes the one in the middle holds low bits only, whether of 10-bit or of 12-bit pixels.
constexpr Packing BytePairs()
{
    Packing packing;
    packing.GroupBytes = 12;
    for (std::size_t i = 0; i < GroupPixels; ++i)
    {
        const auto byte = static_cast<std::uint8_t>(i / 2 * 3 + i % 2 * 2);
        packing.Bytes[i * 2] = packing.Bytes[i * 2 + 1] = byte;
        packing.Factors[i] = 1;
    }
    return packing;
}

constexpr Packing Lsb10 = FollowingBits(10);
constexpr Packing Lsb12 = FollowingBits(12);
constexpr Packing Pairs = BytePairs();

std::uint8_t PixelOf(const Packing& packing, const std::uint8_t* group, std::size_t i)
{
    const unsigned low = group[packing.Bytes[i * 2]];
    const unsigned high = group[packing.Bytes[i * 2 + 1]];
    return static_cast<std::uint8_t>((low | high << 8U) * packing.Factors[i] >> 8U);
}

struct ByteWriter
{
    static constexpr std::size_t PixelBytes = 1;
    static void Write(std::uint8_t grey, std::uint8_t* destination) { *destination = grey; }
#if defined(__x86_64__)
    static void Write(__m128i grey, std::uint8_t* destination)
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(destination), grey);
    }
#endif
};

struct BgraWriter
{
    static constexpr std::size_t PixelBytes = 4;
    static void Write(std::uint8_t grey, std::uint8_t* destination)
    {
        std::fill_n(destination, 3, grey);
        destination[3] = 0xFF;
    }
#if defined(__x86_64__)
    static void Write(__m128i grey, std::uint8_t* destination)
    {
        const cv::v_uint8x16 pixels(grey);
        cv::v_store_interleave(destination, pixels, pixels, pixels, cv::v_setall_u8(0xFF));
    }
#endif
};

#if defined(__x86_64__)
__m128i Load(const void* bytes)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

// The pixels of a group as words.
__attribute__((target("ssse3"))) __m128i Shuffled(__m128i group, __m128i bytes, __m128i factors)
{
    return _mm_srli_epi16(_mm_mullo_epi16(_mm_shuffle_epi8(group, bytes), factors), 8);
}

// Takes two groups at a time for as long as a whole register can be loaded at the second of them. The number of pixels.
template <class Writer>
__attribute__((target("ssse3"))) std::size_t UnpackPairsOfGroups(const Packing& packing, const std::uint8_t* source,
                                                                 std::uint8_t* destination, std::size_t pixels)
{
    const __m128i bytes = Load(packing.Bytes);
    const __m128i factors = Load(packing.Factors);
    const std::size_t sourceBytes = pixels / GroupPixels * packing.GroupBytes;
    std::size_t done = 0;
    for (std::size_t at = 0; at + packing.GroupBytes + sizeof(__m128i) <= sourceBytes; at += 2 * packing.GroupBytes)
    {
        const __m128i first = Shuffled(Load(source + at), bytes, factors);
        const __m128i second = Shuffled(Load(source + at + packing.GroupBytes), bytes, factors);
        Writer::Write(_mm_packus_epi16(first, second), destination + done * Writer::PixelBytes);
        done += 2 * GroupPixels;
    }
    return done;
}
#endif

template <class Writer>
void Unpack(Encoding encoding, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels)
{
    assert(IsPacked(encoding));
    const Packing& packing = encoding == Encoding::Lsb10 ? Lsb10 : encoding == Encoding::Lsb12 ? Lsb12 : Pairs;
    std::size_t done = 0;
#if defined(__x86_64__)
    if (__builtin_cpu_supports("ssse3") != 0)
    {
        done = UnpackPairsOfGroups<Writer>(packing, source, destination, pixels);
    }
#endif
    for (; done < pixels; ++done)
    {
        const std::uint8_t* const group = source + done / GroupPixels * packing.GroupBytes;
        Writer::Write(PixelOf(packing, group, done % GroupPixels), destination + done * Writer::PixelBytes);
    }
}

} // namespace

bool IsPacked(Encoding encoding)
{
    return encoding == Encoding::Packed || encoding == Encoding::Lsb10 || encoding == Encoding::Lsb12;
}

void UnpackToBytes(Encoding encoding, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels)
{
    Unpack<ByteWriter>(encoding, source, destination, pixels);
}

void UnpackToBgra(Encoding encoding, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels)
{
    Unpack<BgraWriter>(encoding, source, destination, pixels);
}

} // namespace ZltApi::ImageTransform
