// The frame around the overview's picture.
#pragma once

#include <QFrame>
#include <QGridLayout>

class CustomLabelView;

// Floats over the bottom right corner of its parent, which the panel's bottom right corner keeps its distance from; the
// edge can be dragged to resize it. All sizes in widget pixels. GUI thread.
class OverviewPanel : public QFrame
{
    Q_OBJECT

public:
    // Becomes the parent of the picture.
    OverviewPanel(QWidget* parent, CustomLabelView* label);

    void SetMaximumSizes(int width, int height);
    void SetMinimumSizes(int width, int height);
    // width, height: the image's.
    void SetImageRatio(int width, int height);
    // Room to leave free at the right, for another panel.
    void SetAdditionalWidth(int width);
    QSize GetMaximumSizes() const { return m_maximum; }
    // Brings the wanted size within the limits and into the image's ratio, and finds the place for it.
    void ControlOverviewSizes();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void SetMargins();

    QGridLayout m_layout;
    QPoint m_pressPosition;
    QRect m_current;
    QRect m_atPress;
    QSize m_minimum;
    QSize m_maximum;
    int m_additionalWidth = 0;
    double m_imageRatio = 1.0; // width divided by height
};
