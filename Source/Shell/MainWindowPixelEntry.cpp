// The window's pixel list: entry by mouse and dialog, editing, copy and paste.
#include "AddDialog.h"
#include "AsynchronousCameraController.h"
#include "CameraOptionPanel.h"
#include "ConfirmDialog.h"
#include "EditPixelDialog.h"
#include "LoaderDialog.h"
#include "MainWindow.h"
#include "MessageDialog.h"
#include "ModalExecution.h"
#include "OverviewPanel.h"
#include "RightPanel.h"
#include "TreeModel.h"
#include "ui_MainWindow.h"

#include <QPushButton>

namespace
{

constexpr int MostPixelsByMouse = 25;
constexpr int RightPanelWidth = 300;

} // namespace

void MainWindow::OnRightPanelButtonClick(int state)
{
    if (state == Qt::Checked)
    {
        m_loaderDialog->PushBackToList(tr("Reading correction sets..."));
        m_loaderDialog->PushBackToList(tr("Reading defects from camera..."));
        m_loaderDialog->PushBackToList(tr("Opening right panel..."));
        ApplicationLoaderShow();
        SetCorrectionSet();
        NextLoaderStep();
        m_rightPanel->show();
        NextLoaderStep();
        ShowCaptionActive(m_ui->labelPixelList, true);
        ApplicationLoaderClose();
        MoveOverviewToCorner();
        m_overviewPanel->SetAdditionalWidth(RightPanelWidth);
    }
    else if (state == Qt::Unchecked)
    {
        m_rightPanel->hide();
        ShowCaptionActive(m_ui->labelPixelList, false);
        m_overviewPanel->SetAdditionalWidth(0);
        // The view is about to become wider by the panel; the margin stays.
        MoveOverviewToCorner();
        m_overviewPanel->move(m_overviewPanel->x() + RightPanelWidth, m_overviewPanel->y());
    }
}

bool MainWindow::isRightPanelHidden() const
{
    return m_rightPanel->isHidden();
}

bool MainWindow::isOptionPanelHidden() const
{
    return m_optionPanel->isHidden();
}

int MainWindow::WidthBesideOverview() const
{
    return isRightPanelHidden() ? 0 : RightPanelWidth;
}

void MainWindow::SetPressedPoint(QPointF& point, int width, int height, int type)
{
    if (!m_dpcSupported)
    {
        MessageDialog::ExecuteDialog(tr("Error"), tr("DPC not supported"), tr("OK"), nullptr);
    }
    else if (width * height > MostPixelsByMouse)
    {
        MessageDialog::ExecuteDialog(tr("Error"), tr("Too many pixels!"), tr("OK"), nullptr);
    }
    else
    {
        m_treeModel->addDefectItem(static_cast<int>(point.x()), static_cast<int>(point.y()), width, height, type,
                                   DefectInfo::NewColor);
    }
}

void MainWindow::PassDeletingPoint(QPointF point)
{
    m_treeModel->removeDefectPixel(static_cast<int>(point.x()), static_cast<int>(point.y()));
}

void MainWindow::ShowDialog()
{
    if (!m_dpcSupported)
    {
        MessageDialog::ExecuteDialog(tr("Error"), tr("DPC not supported"), tr("OK"), nullptr);
        return;
    }
    const bool wasStreaming = m_controller->StopIfStreaming();
    {
        AddDialog dialog(nullptr, m_sensorWidth, m_sensorHeight, m_availableDefects);
        connect(&dialog, &AddDialog::SendDataBack, m_treeModel, &TreeModel::addDefectItem);
        Lorvane::ExecuteModal(dialog);
    }
    ResumeStream(wasStreaming);
}

void MainWindow::EditDefect(int x, int y, int width, int height, int type)
{
    EditPixelDialog dialog(this, type, x, y, m_sensorWidth, m_sensorHeight, width, height);
    if (Lorvane::ExecuteModal(dialog) == QDialog::Accepted)
    {
        const QRect edited = dialog.GetNewPixelPoint();
        m_treeModel->onDefectEdited(edited.x(), edited.y(), edited.width(), edited.height(), type);
    }
    else
    {
        m_treeModel->cancelEditing();
    }
}

void MainWindow::DeleteAllPixelsSlot()
{
    if (ConfirmDialog::executeDialog(tr("Deleting list"), tr("WARNING: All list entries will be deleted!")))
    {
        m_treeModel->clear();
        m_rightPanel->ClearListButton()->setEnabled(false);
    }
}

void MainWindow::UnlockClearButtonSlot()
{
    m_rightPanel->ClearListButton()->setEnabled(true);
}

void MainWindow::OnCopyPixelListButtonClicked()
{
    m_copiedPixelList = m_treeModel->getDefectList();
    const int count = m_copiedPixelList.size();
    MessageDialog::ExecuteDialog(
        tr("Copy success"),
        QStringLiteral("The pixel list '%1' was copied (%2 defect%3). You can paste it into the selected Set.")
            .arg(m_rightPanel->GetCurrentRow(), QString::number(count), count == 1 ? QString() : QStringLiteral("s")),
        tr("OK"), nullptr);
}

void MainWindow::OnPastePixelListButtonClicked()
{
    m_treeModel->setupModelData(m_copiedPixelList, m_sensorWidth, m_sensorHeight);
}
