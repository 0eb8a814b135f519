// The candidates of a detection while runs are joined.
#pragma once

#include "TemporaryDefectInfo.h"

#include <QList>

#include <cstddef>
#include <utility>
#include <vector>

// A list that gives the same answers as a QList that is searched from its start, erased from and walked with one
// iterator at the same time, in logarithmic instead of linear time for each step.
//
// What a walk meets after an erasure is part of the answer. QList closes a gap from its nearer end, and an iterator is
// a slot of its array. An erasure in the rear half moves the elements behind the gap; one in the front half moves those
// before it one slot up, so that an iterator falls back by one element. It can even fall before the first
// element, where each slot still shows the element that was first when the slot was left.
class CandidateList
{
public:
    explicit CandidateList(const QList<TemporaryDefectInfo>& candidates);

    // The walk: the first element, then the one in the next slot; null at the end. Slots before the list that show an
    // erased element are passed over.
    TemporaryDefectInfo* StartWalk();
    TemporaryDefectInfo* ContinueWalk();

    // The first element of the list whose first pixel is (x, y); null when there is none.
    TemporaryDefectInfo* Find(int x, int y);

    // Exchanges the positions of two elements that stand at different positions; both keep their places in the list.
    void ExchangePositions(TemporaryDefectInfo& one, TemporaryDefectInfo& other);

    void Erase(const TemporaryDefectInfo& item);

    // The elements that are left, in list order.
    QList<TemporaryDefectInfo> ToList() const;

private:
    using Entry = std::pair<quint64, int>; // position key, number of the element

    static quint64 Key(const TemporaryDefectInfo& item);
    static quint64 Key(int x, int y);
    int NumberOf(const TemporaryDefectInfo& item) const;
    std::vector<Entry>::iterator EntryOf(const TemporaryDefectInfo& item);
    void SortEntriesAt(quint64 key);
    int CountBefore(int number) const;
    int NumberAt(int place) const;

    std::vector<TemporaryDefectInfo> m_items; // as handed in; never grows, shrinks or changes its order
    std::vector<bool> m_erased;               // by number
    std::vector<Entry> m_entries;             // sorted; the elements at one position are in list order
    std::vector<int> m_counts;                // Fenwick tree: how many elements are left among the first n
    std::vector<int> m_leftSlots;             // numbers that the slots before the list show, the nearest last
    int m_size;                               // elements that are left
    int m_place = 0;                          // of the walk, below 0 in a slot before the list
};
