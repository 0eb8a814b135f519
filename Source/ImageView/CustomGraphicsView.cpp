// The image view: zoom, coordinates, markers.
#include "CustomGraphicsView.h"

#include <QEvent>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double ZoomStep = 1.25;
// At the deepest zoom this many sensor pixels of the longer side would fit into one unscaled image.
constexpr double PixelsAtDeepestZoom = 20.0;
constexpr double PixelsAroundTarget = 10.0;

// The transform's rounding must not push a position on a pixel's edge into its neighbour.
double SnapToPixelEdge(double coordinate)
{
    constexpr double RoundingError = 1e-9;
    const double edge = std::round(coordinate);
    return std::abs(coordinate - edge) < RoundingError ? edge : coordinate;
}

} // namespace

CustomGraphicsView::CustomGraphicsView(QWidget* parent)
    : QGraphicsView(parent),
      m_contextMenu(this),
      m_savePixelAction(m_contextMenu.addAction(QString())),
      m_resetViewAction(m_contextMenu.addAction(QString())),
      m_selectionItem(CreateSelectionItem())
{
    m_contextMenu.setObjectName(QStringLiteral("contextMenu"));
    m_savePixelAction->setObjectName(QStringLiteral("savePixelAction"));
    m_resetViewAction->setObjectName(QStringLiteral("resetViewAction"));
    m_contextMenu.setStyleSheet(
        QStringLiteral("QMenu{background-color:rgb(46,47,48); color: rgb(219,219,219); font-size:11px; border:none;} "
                       "QMenu::item:selected{background-color:rgb(66,67,68);}  "));
    connect(m_savePixelAction, &QAction::triggered, this, &CustomGraphicsView::SavePixFunc);
    connect(m_resetViewAction, &QAction::triggered, this, &CustomGraphicsView::ResetView);

    setFrameShape(QFrame::NoFrame);
    setBackgroundBrush(QColor(31, 32, 33));
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    // Regions of many small rectangles cost more than drawing the area around them.
    setViewportUpdateMode(BoundingRectViewportUpdate);
    // Each item sets the pen and the brush that it needs.
    setOptimizationFlag(DontSavePainterState);
    for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
    {
        bar->setCursor(Qt::ArrowCursor);
        connect(bar, &QScrollBar::sliderMoved, this, &CustomGraphicsView::SlidersMoved);
        connect(bar, &QScrollBar::actionTriggered, this, &CustomGraphicsView::OnScrollBarAction);
    }
    ScaleRectToSmallImg();
    ChangeCurrentCursor(m_currentTool);
    SetStrings();
}

CustomGraphicsView::~CustomGraphicsView()
{
    TakeSelectionAway();
}

void CustomGraphicsView::SetStrings()
{
    m_savePixelAction->setText(tr("Save current Pixel"));
    m_resetViewAction->setText(tr("Reset View"));
}

void CustomGraphicsView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
        return;
    }
    QGraphicsView::changeEvent(event);
}

void CustomGraphicsView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    ScaleRectToSmallImg();
}

void CustomGraphicsView::SetSizes(int width, int height)
{
    m_sensorSize = QSize(width, height);
}

// Coordinates

// Positions between two widget pixels come from screens with more than one device pixel for each.
QPointF CustomGraphicsView::ScenePosition(const QPointF& widgetPosition) const
{
    const QPoint whole(static_cast<int>(std::floor(widgetPosition.x())),
                       static_cast<int>(std::floor(widgetPosition.y())));
    const QPointF rest = widgetPosition - whole;
    const QPointF position = mapToScene(whole) + QPointF(rest.x() / transform().m11(), rest.y() / transform().m22());
    return {SnapToPixelEdge(position.x()), SnapToPixelEdge(position.y())};
}

// The first column and row do not count as inside.
bool CustomGraphicsView::IsInsideSensor(const QPoint& pixel) const
{
    return pixel.x() > 0 && pixel.y() > 0 && pixel.x() < m_sensorSize.width() && pixel.y() < m_sensorSize.height();
}

bool CustomGraphicsView::HasSceneItems()
{
    return Markers().IsAnyInScene() || (scene() != nullptr && !scene()->items().isEmpty());
}

double CustomGraphicsView::LongerSceneSide() const
{
    return scene() == nullptr ? 0.0 : std::max(scene()->width(), scene()->height());
}

void CustomGraphicsView::ScaleRectToSmallImg()
{
    m_visibleSize = QSizeF(size()) / m_currentScale;
}

QRectF CustomGraphicsView::GetRectToOverview()
{
    return {mapToScene(QPoint(0, 0)),
            QSizeF(std::trunc(width() / m_currentScale), std::trunc(height() / m_currentScale))};
}

void CustomGraphicsView::UpdateSceneRectFromMinimap(int x, int y)
{
    horizontalScrollBar()->setValue(static_cast<int>(x * m_currentScale));
    verticalScrollBar()->setValue(static_cast<int>(y * m_currentScale));
}

void CustomGraphicsView::SlidersMoved()
{
    Q_EMIT SendUpdateView();
}

// Keys and clicks beside the handle move the image without moving the slider; the bar takes its new value afterwards.
void CustomGraphicsView::OnScrollBarAction(int action)
{
    if (action != QAbstractSlider::SliderMove)
    {
        QTimer::singleShot(0, this, &CustomGraphicsView::SlidersMoved);
    }
}

// Zoom

void CustomGraphicsView::MultiplyScale(double factor)
{
    if (factor > 0.0)
    {
        scale(factor, factor);
        m_currentScale *= factor;
    }
    ScaleRectToSmallImg();
}

void CustomGraphicsView::ResetScale()
{
    resetTransform();
    m_currentScale = 1.0;
    ScaleRectToSmallImg();
}

double CustomGraphicsView::DeepestScale() const
{
    return LongerSceneSide() / PixelsAtDeepestZoom;
}

void CustomGraphicsView::StepIn()
{
    if (m_currentScale < DeepestScale())
    {
        MultiplyScale(ZoomStep);
    }
}

// The scene's height plays no part in the limit.
void CustomGraphicsView::StepOut()
{
    if (scene()->width() > m_visibleSize.width() || scene()->width() > m_visibleSize.height())
    {
        MultiplyScale(1.0 / ZoomStep);
    }
}

void CustomGraphicsView::ZoomingIn()
{
    if (HasSceneItems())
    {
        StepIn();
        Q_EMIT SendScaleFactor(m_currentScale);
    }
}

void CustomGraphicsView::ZoomingOut()
{
    if (HasSceneItems())
    {
        StepOut();
        Q_EMIT SendScaleFactor(m_currentScale);
    }
}

void CustomGraphicsView::ResetView()
{
    ResetScale();
    Q_EMIT SendScaleFactor(m_currentScale);
}

void CustomGraphicsView::GoToPixel(QPointF point)
{
    const QPointF middleOfPixel = point + QPointF(0.5, 0.5);
    ResetScale();
    centerOn(middleOfPixel);
    MultiplyScale(LongerSceneSide() / PixelsAroundTarget);
    Q_EMIT SendScaleFactor(m_currentScale);
}

// Markers

// The scene may have been changed by its owner since the last call.
DefectMarkers& CustomGraphicsView::Markers()
{
    m_markers.SetScene(scene());
    return m_markers;
}

void CustomGraphicsView::AddNewRectToScene(QRect const& rect, int type)
{
    Markers().Add(rect, type);
}

void CustomGraphicsView::DeleteSceneRect(int index)
{
    Markers().Remove(index);
}

void CustomGraphicsView::RemoveAllRects()
{
    Markers().RemoveAll();
}

void CustomGraphicsView::MovePixelRects(QRect& rect, int /*type*/, int index)
{
    Markers().Move(index, rect);
}

void CustomGraphicsView::ShowHideRects(int state)
{
    if (state == Qt::Unchecked || state == Qt::Checked)
    {
        Markers().SetHidden(state == Qt::Unchecked);
    }
}
