// Builds and reads bytes in a chosen byte order.
#include "DataHelper.h"

#include "Exception.h"

#include <boost/format.hpp>

namespace KTR::DPC
{

DataHelper::DataHelper(bool order) : m_order(order) {}

DataHelper::DataHelper(const std::vector<std::uint8_t>& data, bool order) : m_data(data), m_order(order) {}

void DataHelper::pushBack8(std::uint8_t value)
{
    m_data.push_back(value);
}

void DataHelper::pushBack16(std::uint16_t value)
{
    push(value, 2);
}

void DataHelper::pushBack32(std::uint32_t value)
{
    push(value, 4);
}

void DataHelper::pushBack64(std::uint64_t value)
{
    push(value, 8);
}

void DataHelper::append(const std::vector<std::uint8_t>& data)
{
    m_data.insert(m_data.end(), data.begin(), data.end());
}

std::uint8_t DataHelper::read8(std::uint32_t position) const
{
    return static_cast<std::uint8_t>(read(position, 1));
}

std::uint16_t DataHelper::read16(std::uint32_t position) const
{
    return static_cast<std::uint16_t>(read(position, 2));
}

std::uint32_t DataHelper::read32(std::uint32_t position) const
{
    return static_cast<std::uint32_t>(read(position, 4));
}

std::uint64_t DataHelper::read64(std::uint32_t position) const
{
    return read(position, 8);
}

void DataHelper::write(std::string /*fileName*/) const {} // NOLINT(performance-unnecessary-value-param)

std::size_t DataHelper::getSize() const
{
    return m_data.size();
}

std::vector<std::uint8_t> DataHelper::getData() const
{
    return m_data;
}

void DataHelper::push(std::uint64_t value, unsigned size)
{
    for (unsigned i = 0; i < size; ++i)
    {
        const unsigned shift = 8 * (m_order ? size - 1 - i : i);
        m_data.push_back(static_cast<std::uint8_t>(value >> shift));
    }
}

std::uint64_t DataHelper::read(std::uint32_t position, unsigned size) const
{
    if (m_data.size() < size || position > m_data.size() - size)
    {
        throw System::Exception(
            (boost::format("%1% bytes at position %2% are outside of the data, which has %3% bytes.") % size %
             position % m_data.size())
                .str(),
            true);
    }
    std::uint64_t value = 0;
    for (unsigned i = 0; i < size; ++i)
    {
        const unsigned shift = 8 * (m_order ? i : size - 1 - i);
        value |= std::uint64_t{m_data[position + i]} << shift;
    }
    return value;
}

} // namespace KTR::DPC
