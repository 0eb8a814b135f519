// One row of the pixel list's tree.
#pragma once

#include "DefectInfo.h"
#include "SlotRows.h"

#include <QVariant>
#include <QVector>

#include <vector>

// Owns its children. Their rows are found and children are removed in log n, so that long lists stay quick.
class TreeItem
{
public:
    // The parent is only remembered; appendChild makes the item its child.
    explicit TreeItem(const QVector<QVariant>& columns, TreeItem* parent = nullptr);
    TreeItem(const TreeItem&) = delete;
    TreeItem& operator=(const TreeItem&) = delete;
    ~TreeItem();

    // Takes ownership.
    void appendChild(TreeItem* child);
    // Takes the child out without deleting it: from here on it is the caller's. Any other item is left alone.
    void removeChild(TreeItem* child);
    // Null outside the range.
    TreeItem* child(int row) const;
    int childCount() const { return m_childCount; }

    int columnCount() const { return m_columns.size(); }
    // Invalid outside the range.
    QVariant data(int column) const { return m_columns.value(column); }
    // The column must be there.
    void setData(int column, const QVariant& value) { m_columns[column] = value; }

    TreeItem* parentItem() const { return m_parent; }
    // The place among the parent's children: 0 for an item without parent, -1 when it is none of its children.
    int row() const;

    void setDefectInfo(const DefectInfo& info) { m_defectInfo = info; }
    const DefectInfo& getDefectInfo() const { return m_defectInfo; }

    bool isNew() const { return m_isNew; }
    void setNew(bool isNew) { m_isNew = isNew; }

private:
    int SlotCount() const { return static_cast<int>(m_children.size()); }
    bool HasGaps() const { return m_childCount != SlotCount(); }
    void CloseGaps();

    std::vector<TreeItem*> m_children; // in order, with null where a child was removed
    SlotRows m_rows;                   // kept only while there are gaps
    int m_childCount = 0;
    int m_slot = -1; // index among the parent's m_children
    QVector<QVariant> m_columns;
    TreeItem* m_parent;
    DefectInfo m_defectInfo;
    bool m_isNew = false;
};
