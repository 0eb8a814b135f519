// The pixel list: the defects that the user is working on.
#pragma once

#include "DefectInfo.h"
#include "DefectLookup.h"
#include "SensorDefect.h"
#include "TreeItem.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QPersistentModelIndex>
#include <QRect>
#include <QString>
#include <QVector>

#include <array>
#include <memory>
#include <optional>

// Each defect is a top-level row with four detail rows: X, Y, width and height. Coordinates are zero-based sensor
// coordinates, sizes in pixels, kinds DefectUiType. A defect whose top-left corner is another's is dropped in silence,
// and so is one that is zero throughout.
//
// Belongs to the user-interface thread. Texts follow the language when the parent is a widget; otherwise call
// SetStrings() after a change.
class TreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    // Columns of a defect's row that are clicked.
    static constexpr int EditColumn = 3;
    static constexpr int DeleteColumn = 4;

    explicit TreeModel(QObject* parent = nullptr);
    ~TreeModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    // color is DefectInfo::NewColor or CameraColor. The parent is an item of this model.
    void addDefectInfo(int x, int y, int width, int height, int type, int color, TreeItem* parent);
    void removeDefectItem(const QModelIndex& index);
    // Removes the first defect that the pixel hits. A pixel column, pixel row or cluster is not hit on its first pixel.
    void removeDefectPixel(int x, int y);
    void clear();

    // The edit and delete icons act only while enabled.
    void EnableEditDeleteButtons(bool isEnabled) { m_areButtonsEnabled = isEnabled; }

    // One entry for each top-level row; that of a cluster's heading is a default DefectInfo.
    // Costs nothing while the list does not change.
    QVector<DefectInfo> getDefectList() const;
    // Replaces the list; all defects count as new. The two numbers are not used.
    void setupModelData(const QVector<DefectInfo>& list, int width, int height);
    // Replaces the list by a camera's defects. width and height are the sensor's. A cluster becomes a heading with its
    // pixels below it.
    void setupModelData(KTR::DPC::SensorDefectList defects, int width, int height);

    // Whether there is a defect that is not yet in the camera.
    bool hasUnsavedDefects() const;
    bool isEmpty() const { return m_root->childCount() == 0; }

    // Translates the texts of all rows anew.
    void SetStrings();

public Q_SLOTS:
    void addDefectItem(int x, int y, int width, int height, int type, int color);
    // Acts on the edit and delete icons.
    void onClicked(QModelIndex index);
    // Ends the open edit, if there is one: the edited defect goes to the end of the list, as a new one.
    void onDefectEdited(int x, int y, int width, int height, int type);
    void cancelEditing() { m_editedIndex = QPersistentModelIndex(); }

Q_SIGNALS:
    void startItemEditor(int x, int y, int width, int height, int type);
    // A defect was added; type carries its color.
    void SendPointToRect(QRect rect, int type);
    // The defect of this row was removed.
    void SendIndexToDelete(int row);
    void SendClearingList();
    // The number of top-level rows after an add or a remove.
    void SendNumberOfDefects(int count);
    // An edit ended: the new rectangle and kind, and the row that the defect had before.
    void SendNewPixelPoint(QRect& rect, int type, int row);

protected:
    bool event(QEvent* event) override;

private:
    // In the language of the last SetStrings().
    struct Strings
    {
        std::array<QString, 7> types; // by kind, the last for no kind
        std::array<QString, 4> details;
    };

    static Strings TranslatedStrings();
    static std::unique_ptr<TreeItem> MakeRoot();
    const QString& TypeText(int type) const;
    // The item of a valid index, else the root.
    TreeItem* ItemAt(const QModelIndex& index) const;
    std::unique_ptr<TreeItem> MakeDefectItem(const DefectInfo& info, TreeItem* parent) const;
    void SetItemStrings(TreeItem& item) const;
    QVariant ButtonIcon(int column) const;
    void AddCluster(const KTR::DPC::SensorDefect& cluster);

    std::unique_ptr<TreeItem> m_root;
    mutable std::optional<QVector<DefectInfo>> m_defectList; // empty after a change
    DefectLookup m_lookup;
    QPersistentModelIndex m_editedIndex; // follows its row when others are removed; invalid when no edit is open
    bool m_areButtonsEnabled = true;
    bool m_isEndingInsert = false;
    Strings m_strings;
    mutable QIcon m_editIcon;
    mutable QIcon m_deleteIcon;
};
