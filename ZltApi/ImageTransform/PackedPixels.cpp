// Pixels that share bytes with their neighbours, as one byte each.
#include "PackedPixels.h"

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

void UnpackGroup(const Packing& packing, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels)
{
    for (std::size_t i = 0; i < pixels; ++i)
    {
        const unsigned word = source[packing.Bytes[i * 2]] | static_cast<unsigned>(source[packing.Bytes[i * 2 + 1]])
                                                                 << 8U;
        destination[i] = static_cast<std::uint8_t>(word * packing.Factors[i] >> 8U);
    }
}

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
        _mm_storeu_si128(reinterpret_cast<__m128i*>(destination + done), _mm_packus_epi16(first, second));
        done += 2 * GroupPixels;
    }
    return done;
}
#endif

std::size_t UnpackFast([[maybe_unused]] const Packing& packing, [[maybe_unused]] const std::uint8_t* source,
                       [[maybe_unused]] std::uint8_t* destination, [[maybe_unused]] std::size_t pixels)
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("ssse3") != 0)
    {
        return UnpackPairsOfGroups(packing, source, destination, pixels);
    }
#endif
    return 0;
}

} // namespace

bool IsPacked(Encoding encoding)
{
    return encoding == Encoding::Packed || encoding == Encoding::Lsb10 || encoding == Encoding::Lsb12;
}

void UnpackPixels(Encoding encoding, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels)
{
    assert(IsPacked(encoding));
    const Packing& packing = encoding == Encoding::Lsb10 ? Lsb10 : encoding == Encoding::Lsb12 ? Lsb12 : Pairs;
    for (std::size_t i = UnpackFast(packing, source, destination, pixels); i < pixels; i += GroupPixels)
    {
        UnpackGroup(packing, source + i / GroupPixels * packing.GroupBytes, destination + i,
                    std::min(GroupPixels, pixels - i));
    }
}

} // namespace ZltApi::ImageTransform
