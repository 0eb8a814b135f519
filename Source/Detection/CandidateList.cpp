// The candidates of a detection while runs are joined.
#include "CandidateList.h"

#include <algorithm>
#include <cassert>

namespace
{

// The step of a Fenwick tree: the lowest set bit.
std::size_t LowBit(std::size_t i)
{
    return i & (~i + 1);
}

} // namespace

CandidateList::CandidateList(const QList<TemporaryDefectInfo>& candidates)
    : m_items(candidates.cbegin(), candidates.cend()),
      m_erased(m_items.size()),
      m_counts(m_items.size() + 1),
      m_size(candidates.size())
{
    m_entries.reserve(m_items.size());
    for (const TemporaryDefectInfo& item : m_items)
    {
        m_entries.emplace_back(Key(item), NumberOf(item));
    }
    // Fresh candidates come row by row, so are in order already.
    if (!std::is_sorted(m_entries.begin(), m_entries.end()))
    {
        std::sort(m_entries.begin(), m_entries.end());
    }
    for (std::size_t i = 1; i < m_counts.size(); ++i)
    {
        m_counts[i] = static_cast<int>(LowBit(i));
    }
}

TemporaryDefectInfo* CandidateList::StartWalk()
{
    m_place = -1;
    m_leftSlots.clear();
    return ContinueWalk();
}

TemporaryDefectInfo* CandidateList::ContinueWalk()
{
    for (++m_place; m_place < 0; ++m_place)
    {
        const int number = m_leftSlots[m_leftSlots.size() - static_cast<std::size_t>(-m_place)];
        if (!m_erased[static_cast<std::size_t>(number)])
        {
            return &m_items[static_cast<std::size_t>(number)];
        }
    }
    return m_place < m_size ? &m_items[static_cast<std::size_t>(NumberAt(m_place))] : nullptr;
}

TemporaryDefectInfo* CandidateList::Find(int x, int y)
{
    const quint64 key = Key(x, y);
    for (auto entry = std::lower_bound(m_entries.begin(), m_entries.end(), Entry(key, 0));
         entry != m_entries.end() && entry->first == key; ++entry)
    {
        if (!m_erased[static_cast<std::size_t>(entry->second)])
        {
            return &m_items[static_cast<std::size_t>(entry->second)];
        }
    }
    return nullptr;
}

void CandidateList::ExchangePositions(TemporaryDefectInfo& one, TemporaryDefectInfo& other)
{
    std::swap(EntryOf(one)->second, EntryOf(other)->second);
    SortEntriesAt(Key(one));
    SortEntriesAt(Key(other));
    std::swap(one.x, other.x);
    std::swap(one.y, other.y);
}

void CandidateList::Erase(const TemporaryDefectInfo& item)
{
    const int number = NumberOf(item);
    const int place = CountBefore(number);
    if (place < m_size - place)
    {
        m_leftSlots.push_back(NumberAt(0));
        --m_place;
    }
    --m_size;
    m_erased[static_cast<std::size_t>(number)] = true;
    for (std::size_t i = static_cast<std::size_t>(number) + 1; i < m_counts.size(); i += LowBit(i))
    {
        --m_counts[i];
    }
}

QList<TemporaryDefectInfo> CandidateList::ToList() const
{
    QList<TemporaryDefectInfo> list;
    list.reserve(m_size);
    for (const TemporaryDefectInfo& item : m_items)
    {
        if (!m_erased[static_cast<std::size_t>(NumberOf(item))])
        {
            list.append(item);
        }
    }
    return list;
}

quint64 CandidateList::Key(const TemporaryDefectInfo& item)
{
    return Key(item.x, item.y);
}

quint64 CandidateList::Key(int x, int y)
{
    return static_cast<quint64>(static_cast<quint32>(y)) << 32 | static_cast<quint32>(x);
}

int CandidateList::NumberOf(const TemporaryDefectInfo& item) const
{
    return static_cast<int>(&item - m_items.data());
}

std::vector<CandidateList::Entry>::iterator CandidateList::EntryOf(const TemporaryDefectInfo& item)
{
    const auto entry = std::lower_bound(m_entries.begin(), m_entries.end(), Entry(Key(item), NumberOf(item)));
    assert(entry != m_entries.end() && entry->second == NumberOf(item));
    return entry;
}

void CandidateList::SortEntriesAt(quint64 key)
{
    const auto first = std::lower_bound(m_entries.begin(), m_entries.end(), key,
                                        [](const Entry& entry, quint64 wanted) { return entry.first < wanted; });
    const auto last = std::find_if(first, m_entries.end(), [key](const Entry& entry) { return entry.first != key; });
    std::sort(first, last);
}

int CandidateList::CountBefore(int number) const
{
    int count = 0;
    for (auto i = static_cast<std::size_t>(number); i > 0; i -= LowBit(i))
    {
        count += m_counts[i];
    }
    return count;
}

int CandidateList::NumberAt(int place) const
{
    std::size_t step = 1;
    while (step * 2 < m_counts.size())
    {
        step *= 2;
    }
    std::size_t passed = 0;
    for (; step > 0; step /= 2)
    {
        if (passed + step < m_counts.size() && m_counts[passed + step] <= place)
        {
            passed += step;
            place -= m_counts[passed];
        }
    }
    return static_cast<int>(passed);
}
