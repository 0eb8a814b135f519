// The window's side of the image view and its overview.
#include "BottomPanel.h"
#include "CustomLabelView.h"
#include "MainWindow.h"
#include "OverviewPanel.h"
#include "TreeModel.h"
#include "ui_MainWindow.h"

#include <QGraphicsPixmapItem>
#include <QGraphicsScene>

namespace
{

constexpr int OverviewMargin = 15;
constexpr int OverviewMinimumSize = 300;
constexpr int OverviewWidthLimit = 501; // the reduced image stays below it

} // namespace

void MainWindow::SetNewRectPosition(int x, int y)
{
    m_ui->graphicsView->UpdateSceneRectFromMinimap(x, y);
}

void MainWindow::UpdateOverview()
{
    m_ui->graphicsView->ScaleRectToSmallImg();
    if (m_overviewPanel->isHidden())
    {
        return; // drawn when it is shown
    }
    const QRectF visible = m_ui->graphicsView->GetRectToOverview();
    m_overviewLabel->ChangeRect(static_cast<float>(visible.x()), static_cast<float>(visible.y()),
                                static_cast<float>(visible.width()), static_cast<float>(visible.height()));
    m_overviewLabel->UpdatePixelList(m_treeModel->getDefectList());
    m_overviewLabel->SetPixmap(m_imageItem->pixmap());
}

void MainWindow::UpdateOverviewFromMoving()
{
    m_imageBuffer.Lock();
    UpdateOverview();
    m_imageBuffer.Unlock();
}

void MainWindow::UpdateScaleButton(double scale)
{
    m_bottomPanel->ScaleButton()->setText(tr(" %1 %").arg(static_cast<int>(scale * 100)));
    AutomaticOverviewViewer();
}

void MainWindow::GoToPixel(int x, int y)
{
    m_ui->graphicsView->GoToPixel(QPointF(x, y));
}

void MainWindow::MoveOverviewToCorner()
{
    const QWidget& view = *m_ui->graphicsView;
    m_overviewPanel->move(view.x() + view.width() - m_overviewPanel->width() - OverviewMargin,
                          view.y() + view.height() - m_overviewPanel->height() - OverviewMargin);
}

void MainWindow::SetMaximumOverviewSizes(const QPoint& size)
{
    int divisor = 1;
    while (size.x() / divisor >= OverviewWidthLimit)
    {
        ++divisor;
    }
    m_overviewPanel->SetMinimumSizes(OverviewMinimumSize, OverviewMinimumSize);
    m_overviewPanel->SetMaximumSizes(size.x() / divisor, size.y() / divisor);
    m_overviewPanel->SetImageRatio(size.x(), size.y());
    m_overviewLabel->UpdateScreenSizes(size.x(), size.y());
}

void MainWindow::OnOverviewStateChanged(int state)
{
    if (state == Qt::Checked)
    {
        if (!m_overviewPlaced)
        {
            m_overviewPanel->resize(m_overviewPanel->GetMaximumSizes());
            m_overviewPlaced = true;
        }
        MoveOverviewToCorner();
        m_overviewPanel->SetAdditionalWidth(WidthBesideOverview());
        m_overviewPanel->show();
        UpdateOverview();
    }
    else if (state == Qt::Unchecked)
    {
        m_overviewPanel->hide();
    }
}

void MainWindow::OnOverviewButtonClick()
{
    // A user who closes what opened by itself, or opens it again, decides.
    m_automaticOverview = !(m_automaticOverview && m_overviewPanel->isHidden());
}

void MainWindow::AutomaticOverviewViewer()
{
    if (!m_automaticOverview)
    {
        return;
    }
    const double scale = m_ui->graphicsView->ReturnCurrentScale();
    const QWidget& view = *m_ui->graphicsView;
    m_bottomPanel->OverviewButton()->setChecked(view.width() < m_scene->width() * scale ||
                                                view.height() < m_scene->height() * scale);
}

void MainWindow::OnOverlayCheckBoxStateChanged(int state)
{
    // The button reads the other way round: checked means that the rectangles are hidden.
    if (state == Qt::Checked)
    {
        m_ui->graphicsView->ShowHideRects(Qt::Unchecked);
    }
    else if (state == Qt::Unchecked)
    {
        m_ui->graphicsView->ShowHideRects(Qt::Checked);
    }
}

void MainWindow::OnZoomInButtonClick()
{
    m_ui->graphicsView->ZoomingIn();
}

void MainWindow::OnZoomOutButtonClick()
{
    m_ui->graphicsView->ZoomingOut();
}

void MainWindow::OnScaleButtonClick()
{
    m_ui->graphicsView->ResetView();
}
