// The displayed list of cameras.
#pragma once

#include "CamerasInfo.h"

#include <QAbstractListModel>
#include <QIcon>
#include <QList>

// Belongs to the GUI thread and is changed there only; other threads go through CameraListUpdates.
class CamerasList : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit CamerasList(QObject* parent = nullptr);
    ~CamerasList() override;

    // Appends a row, unless a camera with this ID is there already on the same interface.
    void AddItemToList(const QString& name, const QString& model, const QString& id, const QString& serial,
                       const QString& interfaceId, bool dpc, bool access);
    // A row that does not exist is left alone, here and below.
    void RemoveItemFromList(int row);
    void ClearCurrentList();
    void ChangeCurrentAccess(int row, bool access);
    // Takes the row's badge away, whatever the new value is.
    void ChangeCurrentDpcSupport(int row, bool dpc);

    bool GetCameraCurrentAccess(int row) const; // false for a row that does not exist
    const QList<CamerasInfo*>& GetCamerasList() const { return m_cameras; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

Q_SIGNALS:
    // The camera of this row does not support the correction; the name has stayed from earlier times.
    void SendDpcSupportedIndex(QModelIndex index);
    void ClearMarkersVectorSignal();
    void ClearMarkerSignal(QModelIndex index);

private:
    bool HasRow(int row) const { return row >= 0 && row < m_cameras.size(); }
    void AnnounceChange();

    QList<CamerasInfo*> m_cameras; // owned
    const QIcon m_accessibleIcon;
    const QIcon m_inaccessibleIcon;
};
