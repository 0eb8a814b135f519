// Where the pixel list has its defects.
#pragma once

#include <QHash>

#include <set>
#include <unordered_map>

class TreeItem;

// The occupied positions (top-left corners) and the top-level rows that a pixel can hit. Positions in sensor
// coordinates. Items are borrowed; while one is known here, it stands in its parent's list with the DefectInfo that it
// was added with.
class DefectLookup
{
public:
    bool IsTaken(int x, int y) const;
    // Whether there is a list of positions for this column, be it an empty one: true from the first position on.
    bool HasColumn(int x) const { return m_positions.contains(x); }

    // A position without a row that could be hit.
    void Add(int x, int y) { m_positions[x].insert(y, nullptr); }
    // The position of a top-level row; it must stand below all rows added before.
    void Add(TreeItem& item);
    // Frees the position; what stood there can no longer be hit. To be called while the row is still in the list.
    void Remove(int x, int y);
    void Clear();

    // The first row that the pixel hits, or null. A pixel column, pixel row or cluster is not hit on its first pixel.
    //
    // Takes no longer with more rows, except with many clusters or many partial columns or rows in one line.
    TreeItem* FirstHit(int x, int y) const;

private:
    struct InRowOrder
    {
        bool operator()(const TreeItem* a, const TreeItem* b) const;
    };
    using Items = std::set<TreeItem*, InRowOrder>;

    // The items that have to be searched for this one's kind, or null for one that its position finds or nothing hits.
    Items* SearchedItems(const TreeItem& item);

    QHash<int, QHash<int, TreeItem*>> m_positions; // by x, then by y
    std::unordered_map<int, Items> m_columns;      // whole and partial columns by x
    std::unordered_map<int, Items> m_rows;         // whole and partial rows by y
    Items m_clusters;
};
