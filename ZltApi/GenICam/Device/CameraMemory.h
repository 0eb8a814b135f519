// Camera memory, in accesses that the device takes.
#pragma once

#include <arv.h>

#include <cstdint>
#include <vector>

namespace GenICam
{

// Guarded by the lock of the camera's connection. Throws AravisError.
class CameraMemory
{
public:
    using Bytes = std::vector<unsigned char>;

    // GigE Vision cameras are read and written in whole words of 4 bytes, USB3 Vision cameras in single bytes and in
    // commands as long as they say.
    CameraMemory(ArvDevice* device, bool isGigEVision);

    // Fills the vector.
    void Read(std::uint64_t address, Bytes& data) const;
    // Of words that are written in part, the rest is read first and stays what it is.
    void Write(std::uint64_t address, const Bytes& data) const;
    // Writes at the start of a register of that many bytes. What is missing in a last word becomes 0 where it belongs
    // to the register: such registers need not be readable.
    void WriteAtStart(std::uint64_t address, const Bytes& data, std::size_t registerLength) const;

private:
    void CheckRange(std::uint64_t address, std::uint64_t size) const;
    void Move(std::uint64_t address, Bytes& data, bool isWrite) const;

    ArvDevice* const m_device;
    const std::uint64_t m_word;   // bytes
    const std::uint64_t m_memory; // bytes of address space
    std::size_t m_longestWrite;   // bytes of one command
};

} // namespace GenICam
