// Row numbers of a list out of which entries are taken.
#include "SlotRows.h"

#include <cstddef>

namespace
{

std::size_t LowestBit(std::size_t number)
{
    return number & (~number + 1);
}

} // namespace

void SlotRows::Reset(int count)
{
    m_counts.resize(static_cast<std::size_t>(count));
    for (std::size_t i = 1; i <= m_counts.size(); ++i)
    {
        m_counts[i - 1] = static_cast<int>(LowestBit(i));
    }
}

void SlotRows::Append()
{
    const std::size_t last = m_counts.size() + 1;
    int count = 1;
    for (std::size_t i = last - 1; i > last - LowestBit(last); i -= LowestBit(i))
    {
        count += m_counts[i - 1];
    }
    m_counts.push_back(count);
}

void SlotRows::Vacate(int slot)
{
    for (std::size_t i = static_cast<std::size_t>(slot) + 1; i <= m_counts.size(); i += LowestBit(i))
    {
        --m_counts[i - 1];
    }
}

int SlotRows::RowOf(int slot) const
{
    int row = 0;
    for (auto i = static_cast<std::size_t>(slot); i > 0; i -= LowestBit(i))
    {
        row += m_counts[i - 1];
    }
    return row;
}

int SlotRows::SlotAt(int row) const
{
    std::size_t step = 1;
    while (step * 2 <= m_counts.size())
    {
        step *= 2;
    }
    std::size_t slot = 0;
    for (; step > 0; step /= 2)
    {
        if (slot + step <= m_counts.size() && m_counts[slot + step - 1] <= row)
        {
            slot += step;
            row -= m_counts[slot - 1];
        }
    }
    return static_cast<int>(slot);
}
