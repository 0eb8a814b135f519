// The frame around the overview's picture.
#include "OverviewPanel.h"

#include "CustomLabelView.h"

#include <QMouseEvent>

#include <algorithm>
#include <cstdlib>

namespace
{

constexpr QSize DefaultMinimum(300, 300);
constexpr QSize DefaultMaximum(500, 500);
constexpr int DistanceFromParent = 15;
// At or below this the panel is too small to be of use.
constexpr int SmallestSide = 99;
// The edge that can be taken hold of.
constexpr int EdgeWidth = 4;
constexpr int WidestEdge = 12;

struct Extent
{
    int position;
    int size;
};

// One axis of the panel while the mouse is dragged from one coordinate to another.
Extent Resized(Extent extent, int from, int to, int minimum, int maximum)
{
    const int distance = std::abs(to - from);
    if (to >= from)
    {
        return extent.size >= minimum ? Extent{extent.position + distance, extent.size - distance} : extent;
    }
    return extent.size < maximum ? Extent{extent.position - distance, extent.size + distance} : extent;
}

} // namespace

OverviewPanel::OverviewPanel(QWidget* parent, CustomLabelView* label)
    : QFrame(parent),
      m_layout(this),
      m_minimum(DefaultMinimum),
      m_maximum(DefaultMaximum)
{
    setObjectName(QStringLiteral("overviewPanel"));
    setFrameShape(QFrame::Box);
    setFrameShadow(QFrame::Plain);
    setLineWidth(1);
    setStyleSheet(QStringLiteral("border:none; border-radius:3px;"));
    setAutoFillBackground(true);
    setMouseTracking(true);
    m_layout.addWidget(label, 0, 0);
    SetMargins();
}

void OverviewPanel::SetMaximumSizes(int width, int height)
{
    m_maximum = QSize(width, height);
}

void OverviewPanel::SetMinimumSizes(int width, int height)
{
    m_minimum = QSize(width, height);
}

void OverviewPanel::SetImageRatio(int width, int height)
{
    if (width > 0 && height > 0)
    {
        m_imageRatio = static_cast<double>(width) / height;
        SetMargins();
    }
}

void OverviewPanel::SetAdditionalWidth(int width)
{
    m_additionalWidth = width;
}

// In the image's ratio too, so that the picture fills what they leave of the panel.
void OverviewPanel::SetMargins()
{
    const auto edge = [](double ratio)
    { return std::clamp(static_cast<int>(EdgeWidth * ratio + 0.5), EdgeWidth, WidestEdge); };
    const int horizontal = edge(m_imageRatio);
    const int vertical = edge(1.0 / m_imageRatio);
    m_layout.setContentsMargins(horizontal, vertical, horizontal, vertical);
}

void OverviewPanel::mousePressEvent(QMouseEvent* event)
{
    m_pressPosition = event->pos();
    m_current = geometry();
    m_atPress = m_current;
}

void OverviewPanel::mouseMoveEvent(QMouseEvent* event)
{
    setCursor(Qt::SizeFDiagCursor);
    if (event->buttons() == Qt::NoButton)
    {
        return;
    }
    const QPoint position = event->pos();
    const Extent horizontal = Resized({m_current.x(), m_current.width()}, m_pressPosition.x(), position.x(),
                                      m_minimum.width(), m_maximum.width());
    const Extent vertical = Resized({m_current.y(), m_current.height()}, m_pressPosition.y(), position.y(),
                                    m_minimum.height(), m_maximum.height());
    m_current = QRect(horizontal.position, vertical.position, horizontal.size, vertical.size);
    ControlOverviewSizes();
    if (m_current.width() <= SmallestSide || m_current.height() <= SmallestSide)
    {
        m_current = m_atPress;
    }
    setGeometry(m_current);
}

// The bottom right corner stays where it is, whatever the drag made of the position.
void OverviewPanel::ControlOverviewSizes()
{
    const QSize limited = m_current.size().boundedTo(m_maximum);
    const int width = static_cast<int>(limited.height() * m_imageRatio);
    const int height = static_cast<int>(width / m_imageRatio);
    m_current.setSize(QSize(width, height));
    if (parentWidget() != nullptr)
    {
        m_current.moveTopLeft(QPoint(parentWidget()->width() - (width + m_additionalWidth) - DistanceFromParent,
                                     parentWidget()->height() - height - DistanceFromParent));
    }
}
