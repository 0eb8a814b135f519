// Row numbers of a list out of which entries are taken.
#pragma once

#include <vector>

// Maps the slots of a list, which never move, to rows, which count the occupied slots only. Append, Vacate and both
// look-ups cost log n.
class SlotRows
{
public:
    // Starts anew with this many slots, all occupied.
    void Reset(int count);
    // Adds an occupied slot at the end.
    void Append();
    // The slot must be occupied.
    void Vacate(int slot);
    // How many slots before this one are occupied.
    int RowOf(int slot) const;
    // The occupied slot that has this row; the row must be below the number of occupied slots.
    int SlotAt(int row) const;

private:
    // A binary indexed tree: entry i - 1 counts the occupied ones of the last (i & -i) slots up to and with slot i - 1.
    std::vector<int> m_counts;
};
