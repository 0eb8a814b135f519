// The pixel list: the defects that the user is working on.
#include "TreeModel.h"

#include "ClusterDefect.h"
#include "DefectUiType.h"
#include "SensorDefectConversion.h"

#include <QColor>
#include <QEvent>

#include <cstddef>
#include <optional>
#include <utility>

namespace
{

constexpr int TypeColumn = 1;
constexpr int LabelColumn = 1;
constexpr QRgb NewTextColor = qRgb(57, 130, 223);
constexpr QRgb CameraTextColor = qRgb(37, 171, 37);

// Every insertion is announced as these rows, wherever the row really goes: at the end.
constexpr int FirstAnnouncedRow = 0;
constexpr int LastAnnouncedRow = 1;

// Shows the same picture in a disabled view; sharp on a screen of double density, also when the window is moved there.
QIcon MakeIcon(const QString& name)
{
    QIcon icon;
    for (const QLatin1String density : {QLatin1String(), QLatin1String("@2x")})
    {
        const QString path = QStringLiteral(":/icons/resources/%1%2.png").arg(name, density);
        icon.addFile(path);
        icon.addFile(path, QSize(), QIcon::Disabled, QIcon::On);
        icon.addFile(path, QSize(), QIcon::Disabled, QIcon::Off);
    }
    return icon;
}

} // namespace

TreeModel::TreeModel(QObject* parent) : QAbstractItemModel(parent), m_root(MakeRoot()), m_strings(TranslatedStrings())
{
    // Being the first connection, this comes before every listener's.
    connect(this, &QAbstractItemModel::rowsInserted, this, [this] { m_isEndingInsert = false; });
}

TreeModel::~TreeModel() = default;

std::unique_ptr<TreeItem> TreeModel::MakeRoot()
{
    const QString separator(6, QLatin1Char(' '));
    return std::make_unique<TreeItem>(QVector<QVariant>{QString(), QString(), separator, QString(), QString()});
}

TreeItem* TreeModel::ItemAt(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<TreeItem*>(index.internalPointer()) : m_root.get();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (m_isEndingInsert && !parent.isValid())
    {
        // endInsertRows() is moving the persistent indexes by the announced rows, but no row has moved: selection and
        // expanded rows stay where they are.
        row -= LastAnnouncedRow - FirstAnnouncedRow + 1;
    }
    return hasIndex(row, column, parent) ? createIndex(row, column, ItemAt(parent)->child(row)) : QModelIndex();
}

QModelIndex TreeModel::parent(const QModelIndex& index) const
{
    TreeItem* parent = index.isValid() ? ItemAt(index)->parentItem() : nullptr;
    return parent == nullptr || parent == m_root.get() ? QModelIndex() : createIndex(parent->row(), 0, parent);
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : ItemAt(parent)->childCount();
}

int TreeModel::columnCount(const QModelIndex& parent) const
{
    return ItemAt(parent)->columnCount();
}

bool TreeModel::hasChildren(const QModelIndex& parent) const
{
    return ItemAt(parent)->childCount() > 0;
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? QAbstractItemModel::flags(index) : Qt::NoItemFlags;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
    {
        return {};
    }
    const TreeItem& item = *ItemAt(index);
    if (item.childCount() > 0)
    {
        if (role == Qt::DecorationRole && index.column() >= EditColumn)
        {
            return ButtonIcon(index.column());
        }
        if (role == Qt::ForegroundRole && index.column() <= TypeColumn)
        {
            return QColor(item.isNew() ? NewTextColor : CameraTextColor);
        }
        if (role == Qt::DisplayRole && index.column() == 0)
        {
            return QStringLiteral("%1.").arg(index.row());
        }
    }
    return role == Qt::DisplayRole ? item.data(index.column()) : QVariant();
}

QVariant TreeModel::ButtonIcon(int column) const
{
    const bool isEdit = column == EditColumn;
    QIcon& icon = isEdit ? m_editIcon : m_deleteIcon;
    if (icon.isNull())
    {
        icon = MakeIcon(isEdit ? QStringLiteral("edit") : QStringLiteral("delete"));
    }
    return icon;
}

QVariant TreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? m_root->data(section) : QVariant();
}

void TreeModel::addDefectItem(int x, int y, int width, int height, int type, int color)
{
    addDefectInfo(x, y, width, height, type, color, m_root.get());
}

void TreeModel::addDefectInfo(int x, int y, int width, int height, int type, int color, TreeItem* parent)
{
    const bool isNothing = x == 0 && y == 0 && width == 0 && height == 0;
    if (isNothing || m_lookup.IsTaken(x, y))
    {
        return;
    }
    beginInsertRows(QModelIndex(), FirstAnnouncedRow, LastAnnouncedRow);
    std::unique_ptr<TreeItem> owner = MakeDefectItem({x, y, width, height, type, color, m_root->childCount()}, parent);
    TreeItem& item = *owner;
    parent->appendChild(owner.release());
    m_defectList.reset();
    if (parent == m_root.get())
    {
        m_lookup.Add(item);
    }
    else
    {
        m_lookup.Add(x, y);
    }
    m_isEndingInsert = true;
    endInsertRows();
    m_isEndingInsert = false; // also when signals are blocked
    Q_EMIT SendPointToRect(QRect(x, y, width, height), color);
    Q_EMIT SendNumberOfDefects(rowCount());
}

std::unique_ptr<TreeItem> TreeModel::MakeDefectItem(const DefectInfo& info, TreeItem* parent) const
{
    const QVector<QVariant> columns{info.number, TypeText(info.type), QString(), QString()};
    auto item = std::make_unique<TreeItem>(columns, parent);
    item->setDefectInfo(info);
    item->setNew(info.color == DefectInfo::NewColor);
    const std::array<int, 4> values{info.x, info.y, info.width, info.height};
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        const QVector<QVariant> detail{QString(), m_strings.details[i], values[i]};
        item->appendChild(std::make_unique<TreeItem>(detail, item.get()).release());
    }
    return item;
}

void TreeModel::onClicked(QModelIndex index)
{
    if (!m_areButtonsEnabled || !index.isValid())
    {
        return;
    }
    if (index.column() == EditColumn)
    {
        const DefectInfo info = ItemAt(index)->getDefectInfo();
        if (!m_editedIndex.isValid() && info.isValid())
        {
            m_editedIndex = index;
            Q_EMIT startItemEditor(info.x, info.y, info.width, info.height, info.type);
        }
    }
    else if (index.column() == DeleteColumn)
    {
        removeDefectItem(index);
    }
}

void TreeModel::removeDefectItem(const QModelIndex& index)
{
    if (!index.isValid())
    {
        return;
    }
    // The index may be a persistent one, which the removal itself makes invalid.
    const int row = index.row();
    TreeItem* item = ItemAt(index);
    const DefectInfo info = item->getDefectInfo();
    std::unique_ptr<TreeItem> removed;

    beginRemoveRows(index.parent(), row, row);
    m_lookup.Remove(info.x, info.y);
    // Only a top-level row goes: below a heading the row stays and just its position becomes free.
    if (item->parentItem() == m_root.get())
    {
        m_root->removeChild(item);
        m_defectList.reset();
        removed.reset(item);
    }
    if (m_lookup.HasColumn(info.x))
    {
        Q_EMIT SendIndexToDelete(row);
        Q_EMIT SendNumberOfDefects(rowCount());
    }
    endRemoveRows();
}

void TreeModel::onDefectEdited(int x, int y, int width, int height, int type)
{
    if (m_editedIndex.isValid())
    {
        const int row = m_editedIndex.row();
        removeDefectItem(m_editedIndex);
        addDefectItem(x, y, width, height, type, DefectInfo::NewColor);
        QRect rect(x, y, width, height);
        Q_EMIT SendNewPixelPoint(rect, type, row);
    }
    cancelEditing();
}

void TreeModel::removeDefectPixel(int x, int y)
{
    if (const TreeItem* item = m_lookup.FirstHit(x, y))
    {
        removeDefectItem(index(item->row(), 0));
    }
}

void TreeModel::clear()
{
    beginResetModel();
    cancelEditing();
    m_lookup.Clear();
    m_root = MakeRoot();
    m_defectList.reset();
    endResetModel();
    Q_EMIT SendClearingList();
}

QVector<DefectInfo> TreeModel::getDefectList() const
{
    if (!m_defectList)
    {
        QVector<DefectInfo>& list = m_defectList.emplace();
        list.reserve(m_root->childCount());
        for (int row = 0; row < m_root->childCount(); ++row)
        {
            list.append(m_root->child(row)->getDefectInfo());
        }
    }
    return *m_defectList;
}

bool TreeModel::hasUnsavedDefects() const
{
    for (int row = 0; row < m_root->childCount(); ++row)
    {
        if (m_root->child(row)->getDefectInfo().color == DefectInfo::NewColor)
        {
            return true;
        }
    }
    return false;
}

void TreeModel::setupModelData(const QVector<DefectInfo>& list, int /*width*/, int /*height*/)
{
    clear();
    beginResetModel();
    for (const DefectInfo& info : list)
    {
        addDefectItem(info.x, info.y, info.width, info.height, info.type, DefectInfo::NewColor);
    }
    endResetModel();
}

void TreeModel::setupModelData(KTR::DPC::SensorDefectList defects, int width, int height)
{
    clear();
    beginResetModel();
    for (const boost::shared_ptr<KTR::DPC::SensorDefect>& defect : defects)
    {
        if (defect->GetSensorDefectType() == KTR::DPC::SensorDefectType::Cluster)
        {
            AddCluster(*defect);
        }
        else if (const std::optional<DefectInfo> info = ToDefectInfo(*defect, width, height))
        {
            addDefectItem(info->x, info->y, info->width, info->height, info->type, info->color);
        }
    }
    endResetModel();
}

void TreeModel::AddCluster(const KTR::DPC::SensorDefect& cluster)
{
    const QVector<QVariant> columns{TypeText(DefectUiType::Cluster), QString(), QString(), QString()};
    auto owner = std::make_unique<TreeItem>(columns, m_root.get());
    TreeItem* heading = owner.get();
    m_root->appendChild(owner.release());
    m_defectList.reset();
    for (const KTR::DPC::PixelDefect& pixel : static_cast<const KTR::DPC::ClusterDefect&>(cluster).getPixels())
    {
        addDefectInfo(static_cast<int>(pixel.getX()), static_cast<int>(pixel.getY()), 1, 1, DefectUiType::SinglePixel,
                      DefectInfo::CameraColor, heading);
    }
}

const QString& TreeModel::TypeText(int type) const
{
    const bool isKnown = type >= DefectUiType::SinglePixel && type <= DefectUiType::Row;
    return isKnown ? m_strings.types[static_cast<std::size_t>(type)] : m_strings.types.back();
}

TreeModel::Strings TreeModel::TranslatedStrings()
{
    Strings strings;
    for (std::size_t type = 0; type < strings.types.size(); ++type)
    {
        strings.types[type] = tr(DefectUiType::Text(static_cast<int>(type)));
    }
    strings.details = {tr("X"), tr("Y"), tr("Width"), tr("Height")};
    return strings;
}

void TreeModel::SetStrings()
{
    m_strings = TranslatedStrings();
    Q_EMIT layoutAboutToBeChanged();
    for (int row = 0; row < m_root->childCount(); ++row)
    {
        SetItemStrings(*m_root->child(row));
    }
    Q_EMIT layoutChanged();
}

void TreeModel::SetItemStrings(TreeItem& item) const
{
    if (item.getDefectInfo().number != DefectInfo().number)
    {
        item.setData(TypeColumn, TypeText(item.getDefectInfo().type));
        for (int row = 0; row < item.childCount(); ++row)
        {
            item.child(row)->setData(LabelColumn, m_strings.details[static_cast<std::size_t>(row)]);
        }
        return;
    }
    item.setData(0, TypeText(DefectUiType::Cluster));
    for (int row = 0; row < item.childCount(); ++row)
    {
        SetItemStrings(*item.child(row));
    }
}

bool TreeModel::event(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
    }
    return QAbstractItemModel::event(event);
}
