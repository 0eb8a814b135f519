// The picture of the overview.
#include "CustomLabelView.h"

#include "DefectColors.h"

#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>

#include <cstring>
#include <type_traits>
#include <utility>

namespace
{

constexpr qreal PenWidth = 1.0;

bool IsSame(const QVector<DefectInfo>& left, const QVector<DefectInfo>& right)
{
    static_assert(std::has_unique_object_representations_v<DefectInfo>, "compared as bytes");
    return left.size() == right.size() &&
           (left.constData() == right.constData() ||
            std::memcmp(left.constData(), right.constData(),
                        static_cast<std::size_t>(left.size()) * sizeof(DefectInfo)) == 0);
}

// The painter leaves out rectangles of size 0; here each one is a dot of the pen's width.
void DrawOutlines(QPainter& painter, const QVector<QRect>& rectangles)
{
    QVector<QRect> outlines;
    QPolygon dots;
    for (const QRect& rectangle : rectangles)
    {
        if (rectangle.width() == 0 && rectangle.height() == 0)
        {
            dots.append(rectangle.topLeft());
        }
        else
        {
            outlines.append(rectangle);
        }
    }
    painter.drawRects(outlines);
    painter.drawPoints(dots);
}

} // namespace

CustomLabelView::CustomLabelView(QWidget* parent, int width, int height)
    : QLabel(parent),
      m_viewPen(Qt::red, PenWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin),
      m_cameraDefectPen(Lorvane::DefectPen(DefectInfo::CameraColor, PenWidth)),
      m_newDefectPen(Lorvane::DefectPen(DefectInfo::NewColor, PenWidth))
{
    setObjectName(QStringLiteral("overviewLabel"));
    // The picture's origin is the label's, also where the image's ratio leaves room.
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // The picture follows the label's size, never the other way round.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setCursor(Qt::OpenHandCursor);
    SetLabelSizes(width, height);
}

void CustomLabelView::SetLabelSizes(int w, int h)
{
    m_labelSize = QSize(w, h);
    resize(m_labelSize);
}

// A label that is resized while no frames come shows the last one in its new size.
void CustomLabelView::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    m_labelSize = event->size();
    ShowPicture();
}

void CustomLabelView::UpdateScreenSizes(int width, int height)
{
    m_screenSize = QSizeF(width, height);
}

void CustomLabelView::ChangeRect(float x, float y, float w, float h)
{
    m_viewRectangle =
        QRectF(static_cast<qreal>(x), static_cast<qreal>(y), static_cast<qreal>(w), static_cast<qreal>(h));
}

void CustomLabelView::UpdatePixelList(QVector<DefectInfo> pixelList)
{
    if (!IsSame(m_pixelList, pixelList))
    {
        m_markerLayer = QPixmap();
    }
    // Also an equal one: a list that is handed over again then shares its data with this one.
    m_pixelList = std::move(pixelList);
}

void CustomLabelView::UpdateScaleFactor()
{
    m_scaleX = m_labelSize.width() > 0 ? m_screenSize.width() / m_labelSize.width() : 0.0;
    m_scaleY = m_labelSize.height() > 0 ? m_screenSize.height() / m_labelSize.height() : 0.0;
}

void CustomLabelView::SetPixmap(QPixmap const& pix)
{
    m_frame = pix;
    ShowPicture();
}

void CustomLabelView::ShowPicture()
{
    UpdateScaleFactor();
    if (m_frame.isNull() || m_labelSize.isEmpty())
    {
        clear();
        return;
    }
    // In device pixels, so that nothing is blurred on a screen with more than one for each label pixel.
    QPixmap picture = m_frame.scaled(m_labelSize * devicePixelRatioF(), Qt::KeepAspectRatio, Qt::FastTransformation);
    picture.setDevicePixelRatio(devicePixelRatioF());
    if (HasScale())
    {
        UpdateMarkerLayer(picture);
        QPainter painter(&picture);
        painter.setPen(m_viewPen);
        DrawOutlines(painter, {ToLabel(m_viewRectangle)});
        if (!m_pixelList.isEmpty())
        {
            painter.drawPixmap(0, 0, m_markerLayer);
        }
    }
    setPixmap(picture);
}

void CustomLabelView::UpdateMarkerLayer(const QPixmap& picture)
{
    const QSizeF scale(m_scaleX, m_scaleY);
    const bool isCurrent = m_markerLayer.size() == picture.size() && m_markerLayerScale == scale &&
                           m_markerLayer.devicePixelRatioF() == picture.devicePixelRatioF();
    if (isCurrent || m_pixelList.isEmpty())
    {
        return;
    }
    m_markerLayer = QPixmap(picture.size());
    m_markerLayer.setDevicePixelRatio(picture.devicePixelRatioF());
    m_markerLayer.fill(Qt::transparent);
    m_markerLayerScale = scale;
    QPainter painter(&m_markerLayer);
    DrawMarkers(painter);
}

// In the order of the list, where a later defect covers an earlier one; runs of one colour go out together.
void CustomLabelView::DrawMarkers(QPainter& painter) const
{
    QVector<QRect> run;
    run.reserve(m_pixelList.size());
    for (int i = 0; i < m_pixelList.size(); ++i)
    {
        const DefectInfo& defect = m_pixelList[i];
        run.append(ToLabel(QRectF(defect.x, defect.y, defect.width, defect.height)));
        const bool isCamera = defect.color == DefectInfo::CameraColor;
        const bool isLast = i + 1 == m_pixelList.size();
        if (isLast || (m_pixelList[i + 1].color == DefectInfo::CameraColor) != isCamera)
        {
            painter.setPen(isCamera ? m_cameraDefectPen : m_newDefectPen);
            DrawOutlines(painter, run);
            run.clear();
        }
    }
}

// A pixel becomes a rectangle of size 0.
QRect CustomLabelView::ToLabel(const QRectF& sensorRectangle) const
{
    return {static_cast<int>(sensorRectangle.x() / m_scaleX), static_cast<int>(sensorRectangle.y() / m_scaleY),
            static_cast<int>(sensorRectangle.width() / m_scaleX),
            static_cast<int>(sensorRectangle.height() / m_scaleY)};
}

// The corner of the view rectangle whose middle stands at the position.
QPoint CustomLabelView::CornerAround(const QPointF& labelPosition) const
{
    return {static_cast<int>(labelPosition.x() * m_scaleX - m_viewRectangle.width() / 2.0),
            static_cast<int>(labelPosition.y() * m_scaleY - m_viewRectangle.height() / 2.0)};
}

void CustomLabelView::mousePressEvent(QMouseEvent* /*event*/)
{
    setCursor(Qt::ClosedHandCursor);
    UpdateScaleFactor();
    m_pressed = true;
}

void CustomLabelView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_pressed)
    {
        const QPoint corner = CornerAround(event->localPos());
        Q_EMIT SendNewRectPosition(corner.x(), corner.y());
        Q_EMIT SendUpdateOverview();
    }
}

void CustomLabelView::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    setCursor(Qt::OpenHandCursor);
    m_pressed = false;
}
