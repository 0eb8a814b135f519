// Packing of 12-bit counts into the raw pixel formats.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Simulation
{

// Turns pixels into bytes, line after line. Pixels that share a byte may lie on both sides of a line's end.
class FramePacker
{
public:
    enum class Packing
    {
        Byte,     // one byte a pixel, 8 bits deep
        Word10,   // one little-endian word a pixel, 10 bits deep
        Word12,   // one little-endian word a pixel, 12 bits deep
        Packed12, // GigE Vision: two pixels in three bytes, the low bits of both in the middle one
        Stream10, // PFNC "p": a stream of 10-bit pixels, least significant bit first
        Stream12  // PFNC "p": a stream of 12-bit pixels, least significant bit first
    };

    FramePacker(Packing packing, unsigned char* bytes) : m_packing(packing), m_bytes(bytes) {}

    void Append(const std::uint16_t* counts, std::size_t size);
    // Writes out a last byte that is not full.
    void Finish();

private:
    void AppendPacked12(const std::uint16_t* counts, std::size_t size);
    void AppendStream(const std::uint16_t* counts, std::size_t size, unsigned depth);

    Packing m_packing;
    unsigned char* m_bytes; // where the next byte goes
    // Bits of earlier pixels that do not fill a byte yet.
    std::uint32_t m_pending = 0;
    unsigned m_pendingBits = 0;
};

} // namespace Simulation
