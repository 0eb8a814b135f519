// The displayed list of cameras.
#include "CamerasList.h"

#include <algorithm>
#include <memory>

CamerasList::CamerasList(QObject* parent)
    : QAbstractListModel(parent),
      m_accessibleIcon(QStringLiteral(":/icons/resources/camera-icon.png")),
      m_inaccessibleIcon(QStringLiteral(":/icons/resources/group-14.png"))
{
}

CamerasList::~CamerasList()
{
    qDeleteAll(m_cameras);
}

void CamerasList::AddItemToList(const QString& name, const QString& model, const QString& id, const QString& serial,
                                const QString& interfaceId, bool dpc, bool access)
{
    const bool isThere =
        std::any_of(m_cameras.cbegin(), m_cameras.cend(),
                    [&](const CamerasInfo* camera) { return camera->ID == id && camera->interfaceID == interfaceId; });
    if (isThere)
    {
        return;
    }
    auto camera = std::make_unique<CamerasInfo>(CamerasInfo{dpc, access, name, model, id, serial, interfaceId});
    const int row = m_cameras.size();
    beginInsertRows({}, row, row);
    m_cameras.append(camera.release());
    if (!dpc)
    {
        Q_EMIT SendDpcSupportedIndex(index(row));
    }
    endInsertRows();
}

void CamerasList::RemoveItemFromList(int row)
{
    if (HasRow(row))
    {
        beginRemoveRows({}, row, row);
        delete m_cameras.takeAt(row);
        endRemoveRows();
    }
}

void CamerasList::ClearCurrentList()
{
    if (!m_cameras.isEmpty())
    {
        beginRemoveRows({}, 0, m_cameras.size() - 1);
        qDeleteAll(m_cameras);
        m_cameras.clear();
        endRemoveRows();
    }
    Q_EMIT ClearMarkersVectorSignal();
}

void CamerasList::ChangeCurrentAccess(int row, bool access)
{
    if (HasRow(row))
    {
        m_cameras[row]->access = access;
        AnnounceChange();
    }
}

void CamerasList::ChangeCurrentDpcSupport(int row, bool dpc)
{
    if (HasRow(row))
    {
        m_cameras[row]->dpc = dpc;
        AnnounceChange();
        Q_EMIT ClearMarkerSignal(index(row));
    }
}

bool CamerasList::GetCameraCurrentAccess(int row) const
{
    return HasRow(row) && m_cameras[row]->access;
}

int CamerasList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_cameras.size();
}

QVariant CamerasList::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || !HasRow(index.row()))
    {
        return {};
    }
    const CamerasInfo& camera = *m_cameras[index.row()];
    switch (role)
    {
    case Qt::DecorationRole:
        return camera.access ? m_accessibleIcon : m_inaccessibleIcon;
    case Qt::DisplayRole:
        return QString(camera.model + QLatin1Char('-') + camera.serial + QLatin1String("\n(") + camera.ID +
                       QLatin1Char(')'));
    default:
        return {};
    }
}

// The range ends one row past the last.
void CamerasList::AnnounceChange()
{
    const int count = m_cameras.size();
    Q_EMIT dataChanged(createIndex(0, 0), createIndex(count, count));
}
