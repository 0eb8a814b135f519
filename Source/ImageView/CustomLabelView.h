// The picture of the overview.
#pragma once

#include "DefectInfo.h"

#include <QLabel>
#include <QPen>
#include <QPixmap>
#include <QRectF>
#include <QVector>

// Draws the whole sensor reduced, with the part that the image view shows and with all defects, and moves the image
// view while the mouse is dragged over it. GUI thread.
class CustomLabelView : public QLabel
{
    Q_OBJECT

public:
    // width, height: the room for the picture.
    CustomLabelView(QWidget* parent, int width, int height);

public Q_SLOTS:
    // A frame of any size; shows it with what the other slots have set.
    void SetPixmap(QPixmap const& pix);
    // The visible part, in sensor coordinates.
    void ChangeRect(float x, float y, float w, float h);
    // The sensor's size in pixels.
    void UpdateScreenSizes(int width, int height);
    void UpdateScaleFactor();
    void SetLabelSizes(int w, int h);
    // Handing the list over again for each frame costs no more than comparing it.
    void UpdatePixelList(QVector<DefectInfo> pixelList);

Q_SIGNALS:
    // The sensor pixel that the user wants in the image view's top-left corner; may lie outside of the sensor.
    void SendNewRectPosition(int x, int y);
    void SendUpdateOverview();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void ShowPicture();
    bool HasScale() const { return m_scaleX > 0.0 && m_scaleY > 0.0; }
    QRect ToLabel(const QRectF& sensorRectangle) const;
    QPoint CornerAround(const QPointF& labelPosition) const;
    void UpdateMarkerLayer(const QPixmap& picture);
    void DrawMarkers(QPainter& painter) const;

    QRectF m_viewRectangle;
    QSize m_labelSize;
    QSizeF m_screenSize;
    double m_scaleX = 0.0; // sensor pixels for each label pixel
    double m_scaleY = 0.0;
    bool m_pressed = false;
    QPen m_viewPen;
    QPen m_cameraDefectPen;
    QPen m_newDefectPen;
    QVector<DefectInfo> m_pixelList;
    QPixmap m_frame;

    // All markers on a transparent ground, as of the list and the sizes for which they were drawn.
    QPixmap m_markerLayer;
    QSizeF m_markerLayerScale;
};
