// The image view: mouse tools and context menu.
#include "CustomGraphicsView.h"

#include "DefectColors.h"
#include "DefectUiType.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace
{

// The tools' numbers are those of the main window.
constexpr int GrabTool = 0;
constexpr int SelectionTool = 1;
constexpr int RubberTool = 2;

constexpr int NoKind = -1;
// Above the image and the markers.
constexpr qreal SelectionLevel = 2.0;

// Toward zero.
QPoint SensorPixel(const QPointF& scenePosition)
{
    return {static_cast<int>(scenePosition.x()), static_cast<int>(scenePosition.y())};
}

} // namespace

void CustomGraphicsView::ChangeCurrentCursor(int cursor)
{
    m_currentTool = cursor;
    switch (cursor)
    {
    case GrabTool:
        setCursor(Qt::OpenHandCursor);
        break;
    case SelectionTool:
    case RubberTool:
        setCursor(Qt::CrossCursor);
        break;
    default:
        setCursor(Qt::ArrowCursor);
    }
}

// The point under the pointer moves to the middle of the view.
void CustomGraphicsView::wheelEvent(QWheelEvent* event)
{
    const QPointF position = ScenePosition(event->position());
    if (HasSceneItems())
    {
        if (event->angleDelta().y() > 0)
        {
            StepIn();
        }
        else
        {
            StepOut();
        }
        centerOn(position);
    }
    event->accept();
    Q_EMIT SendScaleFactor(m_currentScale);
    Q_EMIT SendUpdateView();
}

void CustomGraphicsView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (m_currentTool != GrabTool || !HasSceneItems())
    {
        return;
    }
    const QPointF position = ScenePosition(event->localPos());
    ResetScale();
    centerOn(position);
    MultiplyScale(DeepestScale());
    Q_EMIT SendScaleFactor(m_currentScale);
}

void CustomGraphicsView::mousePressEvent(QMouseEvent* event)
{
    ShowSelection();
    const QPointF position = ScenePosition(event->localPos());
    switch (m_currentTool)
    {
    case GrabTool:
        if (event->button() == Qt::LeftButton)
        {
            m_lastViewPosition = event->pos();
            setCursor(Qt::ClosedHandCursor);
        }
        break;
    case SelectionTool:
        setCursor(Qt::CrossCursor);
        m_selectionStart = SensorPixel(position);
        break;
    case RubberTool:
        setCursor(Qt::CrossCursor);
        Q_EMIT SendDeleteSignal(position);
        break;
    default:
        break;
    }
}

void CustomGraphicsView::mouseMoveEvent(QMouseEvent* event)
{
    m_pointerPosition = ScenePosition(event->localPos());
    const QPoint pixel = SensorPixel(m_pointerPosition);
    if (event->buttons() == Qt::LeftButton)
    {
        if (m_currentTool == GrabTool)
        {
            Pan(event->pos());
        }
        else if (m_currentTool == SelectionTool && IsInsideSensor(pixel))
        {
            StretchSelection(pixel);
        }
    }
    ShowCoordinates(pixel, event->globalPos());
}

void CustomGraphicsView::mouseReleaseEvent(QMouseEvent* event)
{
    switch (m_currentTool)
    {
    case GrabTool:
        if (event->button() == Qt::LeftButton)
        {
            setCursor(Qt::OpenHandCursor);
        }
        break;
    case SelectionTool:
        FinishSelection(SensorPixel(ScenePosition(event->localPos())));
        break;
    case RubberTool:
    {
        QPointF corner = m_selectionItem->rect().topLeft();
        const QSize size = m_selectionItem->rect().size().toSize();
        Q_EMIT SendPressedMousePos(corner, size.width(), size.height(), DefectUiType::SinglePixel);
        break;
    }
    default:
        break;
    }
    TakeSelectionAway();
}

void CustomGraphicsView::Pan(const QPoint& widgetPosition)
{
    const QPoint moved = widgetPosition - m_lastViewPosition;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
    m_lastViewPosition = widgetPosition;
    Q_EMIT SendUpdateView();
}

// From the pixel of the press to that of the pointer, which is not part of it: ten to fifteen is five wide.
void CustomGraphicsView::StretchSelection(const QPoint& pixel)
{
    const QPoint corner(std::min(m_selectionStart.x(), pixel.x()), std::min(m_selectionStart.y(), pixel.y()));
    const QSize size(std::abs(m_selectionStart.x() - pixel.x()), std::abs(m_selectionStart.y() - pixel.y()));
    m_selectionItem->setRect(QRect(corner, size));
}

void CustomGraphicsView::FinishSelection(const QPoint& pixel)
{
    const bool isClick = pixel == m_selectionStart;
    const QRect selection = m_selectionItem->rect().toRect();
    const int kind = SelectedKind(isClick ? DefectUiType::SinglePixel : NoKind);
    QPointF corner = isClick ? m_selectionStart : selection.topLeft();
    if (kind == DefectUiType::SinglePixel)
    {
        Q_EMIT SendPressedMousePos(corner, 1, 1, kind);
    }
    else if (kind != NoKind)
    {
        Q_EMIT SendPressedMousePos(corner, selection.width(), selection.height(), kind);
    }
}

// The later test wins. A selection without area is no defect. kind: that of a selection which passes none.
int CustomGraphicsView::SelectedKind(int kind) const
{
    const QSizeF selected = m_selectionItem->rect().size();
    if (selected.isEmpty())
    {
        return kind;
    }
    const bool isOneWide = selected.width() == 1.0;
    const bool isOneHigh = selected.height() == 1.0;
    if (isOneWide)
    {
        kind = isOneHigh ? DefectUiType::SinglePixel : DefectUiType::PixelColumn;
    }
    else
    {
        kind = isOneHigh ? DefectUiType::PixelRow : DefectUiType::Cluster;
    }
    if (scene() != nullptr && isOneWide && selected.height() >= scene()->height())
    {
        kind = DefectUiType::Column;
    }
    if (scene() != nullptr && selected.width() >= scene()->width() && !isOneHigh)
    {
        kind = DefectUiType::Row;
    }
    return kind;
}

void CustomGraphicsView::ShowCoordinates(const QPoint& pixel, const QPoint& globalPosition)
{
    if (IsInsideSensor(pixel))
    {
        QToolTip::showText(globalPosition, tr("x: %1\ny: %2").arg(pixel.x()).arg(pixel.y()));
    }
    else
    {
        QToolTip::hideText();
    }
}

std::unique_ptr<SceneRectItem> CustomGraphicsView::CreateSelectionItem()
{
    SceneRectItemOwner& owner = *this;
    auto item = std::make_unique<SceneRectItem>(owner, QRectF(), Lorvane::DefectPen(DefectInfo::NewColor, 0));
    item->setZValue(SelectionLevel);
    return item;
}

void CustomGraphicsView::ShowSelection()
{
    if (scene() != nullptr && m_selectionItem->scene() != scene())
    {
        scene()->addItem(m_selectionItem.get());
    }
}

void CustomGraphicsView::TakeSelectionAway()
{
    if (m_selectionItem->scene() != nullptr)
    {
        m_selectionItem->scene()->removeItem(m_selectionItem.get());
    }
    m_selectionItem->setRect(QRectF());
}

void CustomGraphicsView::OnDeletedByScene(const SceneRectItem& /*item*/)
{
    // The scene is deleting it.
    static_cast<void>(m_selectionItem.release());
    m_selectionItem = CreateSelectionItem();
}

void CustomGraphicsView::contextMenuEvent(QContextMenuEvent* event)
{
    // The menu, not the view, gets the release of the button.
    TakeSelectionAway();
    setCursor(Qt::ArrowCursor);
    m_menuPosition = ScenePosition(event->pos());
    m_contextMenu.exec(QCursor::pos());
}

void CustomGraphicsView::SavePixFunc()
{
    if (m_menuPosition.x() > 0.0 && m_menuPosition.y() > 0.0 && m_menuPosition.x() < m_sensorSize.width() &&
        m_pointerPosition.y() < m_sensorSize.height())
    {
        QPointF position = m_menuPosition;
        Q_EMIT SendPressedMousePos(position, 1, 1, DefectUiType::SinglePixel);
    }
}
