// Camera memory, in accesses that the device takes.
#include "Device/CameraMemory.h"

#include "Aravis/Ask.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace GenICam
{

namespace
{

// Aravis splits an access into what fits into the packets of the transport layer, but counts it in 32 bits.
constexpr std::size_t LongestAccess = 1U << 20U;

// Except for what is written over USB: there it counts with the longest answer in place of the longest command. Where a
// USB3 Vision camera tells that, little-endian, and how many bytes of a command are not data.
constexpr std::uint64_t TechnologyRegisters = 0x01D8; // 8 bytes: the address of the registers that USB adds
constexpr std::uint64_t LongestCommand = 0x14;        // 4 bytes, behind that address
constexpr std::size_t CommandHead = 20;
constexpr std::size_t WriteStep = 4; // pieces of what begins on a register begin on one

std::uint64_t LittleEndian(const std::vector<unsigned char>& bytes)
{
    return std::accumulate(bytes.rbegin(), bytes.rend(), std::uint64_t{0},
                           [](std::uint64_t value, unsigned char byte) { return value << 8U | byte; });
}

} // namespace

CameraMemory::CameraMemory(ArvDevice* device, bool isGigEVision)
    : m_device(device),
      m_word(isGigEVision ? 4 : 1),
      m_memory(isGigEVision ? std::uint64_t{1} << 32U : std::numeric_limits<std::uint64_t>::max()),
      m_longestWrite(LongestAccess)
{
    if (!isGigEVision)
    {
        Bytes address(8);
        Bytes command(4);
        Read(TechnologyRegisters, address);
        Read(LittleEndian(address) + LongestCommand, command);
        const std::size_t longest = std::max<std::size_t>(LittleEndian(command), CommandHead + WriteStep) - CommandHead;
        m_longestWrite = std::min(longest / WriteStep * WriteStep, LongestAccess);
    }
}

void CameraMemory::CheckRange(std::uint64_t address, std::uint64_t size) const
{
    if (address > m_memory || size > m_memory - address)
    {
        throw AravisError(ZltErrorBadParameter);
    }
}

void CameraMemory::Move(std::uint64_t address, Bytes& data, bool isWrite) const
{
    for (std::size_t done = 0; done < data.size();)
    {
        const auto size = static_cast<guint32>(std::min(data.size() - done, isWrite ? m_longestWrite : LongestAccess));
        if (Ask(isWrite ? arv_device_write_memory : arv_device_read_memory, m_device, guint64{address + done}, size,
                static_cast<void*>(data.data() + done)) == FALSE)
        {
            throw AravisError(ZltErrorTransportLayer);
        }
        done += size;
    }
}

void CameraMemory::Read(std::uint64_t address, Bytes& data) const
{
    CheckRange(address, data.size());
    const std::size_t before = address % m_word;
    const std::size_t behind = (m_word - (before + data.size()) % m_word) % m_word;
    if (before == 0 && behind == 0)
    {
        Move(address, data, false);
        return;
    }
    Bytes words(before + data.size() + behind);
    Move(address - before, words, false);
    std::copy_n(words.begin() + static_cast<std::ptrdiff_t>(before), data.size(), data.begin());
}

void CameraMemory::Write(std::uint64_t address, const Bytes& data) const
{
    CheckRange(address, data.size());
    const std::size_t before = address % m_word;
    const std::size_t behind = (m_word - (before + data.size()) % m_word) % m_word;
    Bytes words(before + data.size() + behind);
    Bytes word(m_word);
    if (data.empty())
    {
        return;
    }
    if (before != 0)
    {
        Move(address - before, word, false);
        std::copy(word.begin(), word.end(), words.begin());
    }
    if (behind != 0)
    {
        Move(address + data.size() + behind - m_word, word, false);
        std::copy(word.begin(), word.end(), words.end() - static_cast<std::ptrdiff_t>(m_word));
    }
    std::copy(data.begin(), data.end(), words.begin() + static_cast<std::ptrdiff_t>(before));
    Move(address - before, words, true);
}

void CameraMemory::WriteAtStart(std::uint64_t address, const Bytes& data, std::size_t registerLength) const
{
    Bytes words(data);
    words.resize(std::min((data.size() + m_word - 1) / m_word * m_word, registerLength));
    Write(address, words);
}

} // namespace GenICam
