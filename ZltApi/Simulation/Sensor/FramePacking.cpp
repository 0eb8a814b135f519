// The packing loops: the simple forms plain enough for the compiler to vectorise.
#include "FramePacking.h"

namespace Simulation
{

namespace
{

constexpr unsigned CountBits = 12;
constexpr unsigned LowBits = 4; // of a GigE Vision packed pixel, apart from its high eight

void PackBytes(const std::uint16_t* __restrict counts, std::size_t size, unsigned char* __restrict bytes)
{
    for (std::size_t i = 0; i < size; ++i)
    {
        bytes[i] = static_cast<unsigned char>(counts[i] >> (CountBits - 8U));
    }
}

void PackWords(const std::uint16_t* __restrict counts, std::size_t size, unsigned char* __restrict bytes,
               unsigned depth)
{
    for (std::size_t i = 0; i < size; ++i)
    {
        const unsigned value = static_cast<unsigned>(counts[i]) >> (CountBits - depth);
        bytes[2 * i] = static_cast<unsigned char>(value);
        bytes[2 * i + 1] = static_cast<unsigned char>(value >> 8U);
    }
}

} // namespace

void FramePacker::Append(const std::uint16_t* counts, std::size_t size)
{
    switch (m_packing)
    {
    case Packing::Byte:
        PackBytes(counts, size, m_bytes);
        m_bytes += size;
        break;
    case Packing::Word10:
        PackWords(counts, size, m_bytes, 10);
        m_bytes += 2 * size;
        break;
    case Packing::Word12:
        PackWords(counts, size, m_bytes, 12);
        m_bytes += 2 * size;
        break;
    case Packing::Packed12:
        AppendPacked12(counts, size);
        break;
    case Packing::Stream10:
        AppendStream(counts, size, 10);
        break;
    case Packing::Stream12:
        AppendStream(counts, size, 12);
        break;
    }
}

void FramePacker::AppendPacked12(const std::uint16_t* counts, std::size_t size)
{
    constexpr unsigned LowMask = (1U << LowBits) - 1U;
    std::size_t i = 0;
    if (m_pendingBits != 0 && size > 0)
    {
        *m_bytes++ = static_cast<unsigned char>(m_pending | (counts[0] & LowMask) << LowBits);
        *m_bytes++ = static_cast<unsigned char>(counts[0] >> LowBits);
        m_pendingBits = 0;
        i = 1;
    }
    for (; i + 1 < size; i += 2)
    {
        m_bytes[0] = static_cast<unsigned char>(counts[i] >> LowBits);
        m_bytes[1] = static_cast<unsigned char>((counts[i] & LowMask) | (counts[i + 1] & LowMask) << LowBits);
        m_bytes[2] = static_cast<unsigned char>(counts[i + 1] >> LowBits);
        m_bytes += 3;
    }
    if (i < size)
    {
        *m_bytes++ = static_cast<unsigned char>(counts[i] >> LowBits);
        m_pending = counts[i] & LowMask;
        m_pendingBits = LowBits;
    }
}

void FramePacker::AppendStream(const std::uint16_t* counts, std::size_t size, unsigned depth)
{
    for (std::size_t i = 0; i < size; ++i)
    {
        m_pending |= static_cast<std::uint32_t>(counts[i] >> (CountBits - depth)) << m_pendingBits;
        for (m_pendingBits += depth; m_pendingBits >= 8; m_pendingBits -= 8)
        {
            *m_bytes++ = static_cast<unsigned char>(m_pending);
            m_pending >>= 8U;
        }
    }
}

void FramePacker::Finish()
{
    if (m_pendingBits != 0)
    {
        *m_bytes++ = static_cast<unsigned char>(m_pending);
        m_pendingBits = 0;
        m_pending = 0;
    }
}

} // namespace Simulation
