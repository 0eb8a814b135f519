// Builds and reads bytes in a chosen byte order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// The order flag means opposite things for writing and for reading, so that a helper does not read back in the same
// byte order what it pushed:
//   false: pushes the least significant byte first, reads the most significant byte first;
//   true:  pushes the most significant byte first, reads the least significant byte first.
// Little-endian formats are therefore built with false and read with true.
class DataHelper
{
public:
    explicit DataHelper(bool order);
    DataHelper(const std::vector<std::uint8_t>& data, bool order);

    void pushBack8(std::uint8_t value);
    void pushBack16(std::uint16_t value);
    void pushBack32(std::uint32_t value);
    void pushBack64(std::uint64_t value);
    void append(const std::vector<std::uint8_t>& data);

    // Positions are in bytes. A read that is not wholly inside the data throws a KTR::System::Exception.
    std::uint8_t read8(std::uint32_t position) const;
    std::uint16_t read16(std::uint32_t position) const;
    std::uint32_t read32(std::uint32_t position) const;
    std::uint64_t read64(std::uint32_t position) const;

    // Does nothing: correction data goes into cameras and never to a local file.
    void write(std::string fileName) const;

    std::size_t getSize() const;
    std::vector<std::uint8_t> getData() const;

private:
    void push(std::uint64_t value, unsigned size);
    std::uint64_t read(std::uint32_t position, unsigned size) const;

    std::vector<std::uint8_t> m_data;
    bool m_order;
};

} // namespace KTR::DPC
