// The view of the camera list.
#include "CustomListView.h"

#include "CameraItemDelegate.h"
#include "CamerasList.h"
#include "DpcMarker.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

CustomListView::CustomListView(QWidget* parent) : QListView(parent), m_camerasList(new CamerasList(this))
{
    setModel(m_camerasList);
    setItemDelegate(new CameraItemDelegate(this));
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setResizeMode(QListView::Adjust);
    setMouseTracking(true);
    setStyleSheet(QStringLiteral("QListView{ border:none; font-size:12px; } QListView::item{font-weight: bold; "
                                 "border-radius:4px; color:gray;} QListView::item:hover{ color:white; }"));
    for (const auto change : {&CamerasList::rowsInserted, &CamerasList::rowsRemoved})
    {
        connect(m_camerasList, change, this, &CustomListView::updateGeometry);
    }
    connect(m_camerasList, &CamerasList::SendDpcSupportedIndex, this, &CustomListView::SetDpcReadyMarks);
    connect(m_camerasList, &CamerasList::ClearMarkersVectorSignal, this, &CustomListView::ClearMarkersVector);
    connect(m_camerasList, &CamerasList::ClearMarkerSignal, this, &CustomListView::DeleteDpcReadyMark);
}

QSize CustomListView::sizeHint() const
{
    int height = 2 * frameWidth();
    for (int row = 0; row < m_camerasList->rowCount(); ++row)
    {
        height += sizeHintForRow(row);
    }
    return {QListView::sizeHint().width(), height};
}

void CustomListView::SetDpcReadyMarks(QModelIndex index)
{
    setIndexWidget(index, new DpcMarker);
}

void CustomListView::ClearMarkersVector()
{
    clearSelection();
    update();
    reset();
}

void CustomListView::DeleteDpcReadyMark(QModelIndex index)
{
    setIndexWidget(index, nullptr);
}

void CustomListView::mousePressEvent(QMouseEvent* event)
{
    // A press beside the rows leaves the current row as it is, which then must not be the one of an earlier click.
    setCurrentIndex(QModelIndex());
    QListView::mousePressEvent(event);
    SendCurrent();
}

void CustomListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    {
        SendCurrent();
        return;
    }
    QListView::keyPressEvent(event);
}

void CustomListView::SendCurrent()
{
    const int row = currentIndex().row();
    if (row >= 0 && row < m_camerasList->rowCount())
    {
        Q_EMIT SendCurrentIndex(row, m_camerasList->GetCamerasList().at(row)->ID);
    }
    clearSelection();
}

// The base class lays all rows out for every row that comes while there are badges; once, afterwards, is enough.
void CustomListView::rowsInserted(const QModelIndex& parent, int start, int end)
{
    const QScopedValueRollback inserting(m_insertingRows, true);
    QListView::rowsInserted(parent, start, end);
}

void CustomListView::updateEditorGeometries()
{
    if (!m_insertingRows)
    {
        QListView::updateEditorGeometries();
    }
}
