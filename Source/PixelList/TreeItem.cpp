// One row of the pixel list's tree.
#include "TreeItem.h"

#include <QtAlgorithms>

#include <algorithm>

TreeItem::TreeItem(const QVector<QVariant>& columns, TreeItem* parent) : m_columns(columns), m_parent(parent) {}

TreeItem::~TreeItem()
{
    qDeleteAll(m_children);
}

void TreeItem::appendChild(TreeItem* child)
{
    if (HasGaps())
    {
        m_rows.Append();
    }
    child->m_slot = SlotCount();
    m_children.push_back(child);
    ++m_childCount;
}

void TreeItem::removeChild(TreeItem* child)
{
    const int slot = child->m_slot;
    if (slot < 0 || slot >= SlotCount() || m_children[static_cast<std::size_t>(slot)] != child)
    {
        return;
    }
    if (!HasGaps())
    {
        m_rows.Reset(SlotCount());
    }
    m_rows.Vacate(slot);
    m_children[static_cast<std::size_t>(slot)] = nullptr;
    child->m_slot = -1;
    --m_childCount;
    if (m_childCount < SlotCount() / 2)
    {
        CloseGaps();
    }
}

void TreeItem::CloseGaps()
{
    m_children.erase(std::remove(m_children.begin(), m_children.end(), nullptr), m_children.end());
    int slot = 0;
    for (TreeItem* child : m_children)
    {
        child->m_slot = slot++;
    }
}

TreeItem* TreeItem::child(int row) const
{
    if (row < 0 || row >= m_childCount)
    {
        return nullptr;
    }
    return m_children[static_cast<std::size_t>(HasGaps() ? m_rows.SlotAt(row) : row)];
}

int TreeItem::row() const
{
    if (m_parent == nullptr)
    {
        return 0;
    }
    return m_slot >= 0 && m_parent->HasGaps() ? m_parent->m_rows.RowOf(m_slot) : m_slot;
}
