// Where the pixel list has its defects.
#include "DefectLookup.h"

#include "DefectUiType.h"
#include "TreeItem.h"

namespace
{

// Without both ends.
bool IsBetween(int value, int first, int length)
{
    return value > first && value < qint64{first} + length;
}

bool IsHit(const DefectInfo& info, int x, int y)
{
    switch (info.type)
    {
    case DefectUiType::SinglePixel:
        return x == info.x && y == info.y;
    case DefectUiType::PixelColumn:
        return x == info.x && IsBetween(y, info.y, info.height);
    case DefectUiType::PixelRow:
        return y == info.y && IsBetween(x, info.x, info.width);
    case DefectUiType::Cluster:
        return IsBetween(x, info.x, info.width) && IsBetween(y, info.y, info.height);
    case DefectUiType::Column:
        return x == info.x;
    case DefectUiType::Row:
        return y == info.y;
    default:
        return false;
    }
}

} // namespace

bool DefectLookup::InRowOrder::operator()(const TreeItem* a, const TreeItem* b) const
{
    return a->row() < b->row();
}

bool DefectLookup::IsTaken(int x, int y) const
{
    const auto column = m_positions.constFind(x);
    return column != m_positions.constEnd() && column->contains(y);
}

DefectLookup::Items* DefectLookup::SearchedItems(const TreeItem& item)
{
    const DefectInfo& info = item.getDefectInfo();
    switch (info.type)
    {
    case DefectUiType::PixelColumn:
    case DefectUiType::Column:
        return &m_columns[info.x];
    case DefectUiType::PixelRow:
    case DefectUiType::Row:
        return &m_rows[info.y];
    case DefectUiType::Cluster:
        return &m_clusters;
    default:
        return nullptr;
    }
}

void DefectLookup::Add(TreeItem& item)
{
    const DefectInfo& info = item.getDefectInfo();
    m_positions[info.x].insert(info.y, &item);
    if (Items* items = SearchedItems(item))
    {
        items->insert(items->end(), &item);
    }
}

void DefectLookup::Remove(int x, int y)
{
    const auto column = m_positions.find(x);
    TreeItem* item = column == m_positions.end() ? nullptr : column->take(y);
    if (item == nullptr)
    {
        return;
    }
    if (Items* items = SearchedItems(*item))
    {
        items->erase(item);
    }
}

void DefectLookup::Clear()
{
    m_positions.clear();
    m_columns.clear();
    m_rows.clear();
    m_clusters.clear();
}

TreeItem* DefectLookup::FirstHit(int x, int y) const
{
    TreeItem* first = m_positions.value(x).value(y, nullptr);
    if (first != nullptr && !IsHit(first->getDefectInfo(), x, y))
    {
        first = nullptr;
    }
    const auto search = [&](const Items& items)
    {
        for (TreeItem* item : items)
        {
            if (first != nullptr && !InRowOrder()(item, first))
            {
                return;
            }
            if (IsHit(item->getDefectInfo(), x, y))
            {
                first = item;
                return;
            }
        }
    };
    if (const auto column = m_columns.find(x); column != m_columns.end())
    {
        search(column->second);
    }
    if (const auto row = m_rows.find(y); row != m_rows.end())
    {
        search(row->second);
    }
    search(m_clusters);
    return first;
}
