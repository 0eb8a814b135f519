// The window's camera session: from the choice of a camera over play and pause to its loss.
#include "AsynchronousCameraController.h"
#include "BottomPanel.h"
#include "CameraOptionPanel.h"
#include "ConfirmDialog.h"
#include "LoaderDialog.h"
#include "MainWindow.h"
#include "MessageDialog.h"
#include "OverviewPanel.h"
#include "RightPanel.h"
#include "TreeModel.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QThread>

namespace
{

constexpr int RightPanelPollMs = 500;

} // namespace

void MainWindow::SetCameraIndex(int index, const QString& serial)
{
    EndDetectionOfSession();
    m_loaderDialog->PushBackToList(tr("Setting new camera index..."));
    m_loaderDialog->PushBackToList(tr("Getting current settings of selected camera..."));
    m_loaderDialog->PushBackToList(tr("Adjusting overview panel..."));
    m_loaderDialog->PushBackToList(tr("Starting image acquisiton..."));
    m_rightPanelOpenTimer.stop(); // of the session before
    ApplicationLoaderShow();
    UpdateOptionList();
    m_cameraIndex = index;
    m_cameraId = serial;
    m_ui->cameraListButton->setChecked(false);
    OnCameraListButtonClick(Qt::Unchecked); // also when it was opened without the button
    QApplication::processEvents();
    if (m_controller->StopIfStreaming())
    {
        m_cameraChosen = false;
    }
    StartThreadImage();
    QApplication::processEvents();
}

void MainWindow::UpdateOptionList()
{
    m_controller->StopTimers();
    m_ui->cameraOptionsButton->setChecked(false);
    m_ui->pixelListButton->setChecked(false);
    m_correctionSetsLoaded = false;
    m_rightPanel->ResetCorrectionSetList();
    DisableCameraButtons();
    m_cameraChosen = false;
}

// Usable with a camera only; a loader that closes gives them back.
void MainWindow::DisableCameraButtons()
{
    m_ui->cameraOptionsButton->setEnabled(false);
    m_ui->pixelListButton->setEnabled(false);
    m_ui->importButton->setEnabled(false);
}

void MainWindow::StartThreadImage()
{
    ResetSession();
    NextLoaderStep();

    m_controller->StopIfStreaming();
    m_controller->SetNewIndex(m_cameraIndex, m_cameraId);
    m_availableDefects.clear();
    QPoint size;
    m_controller->GetEntryCamerasSetup(m_availableDefects, m_dpcSupported, size);
    QApplication::processEvents();
    if (m_controller->SetOffReverseXY())
    {
        SetErrorMessage(tr("NOTE:\nReverse X and Y have been disabled, so that coordinates are unambiguous.\nPlease "
                           "reenable after you have finished."));
    }
    NextLoaderStep();

    EnableDefectCommands(m_dpcSupported);
    SetMaximumOverviewSizes(size);
    m_sensorWidth = size.x();
    m_sensorHeight = size.y();
    m_ui->graphicsView->SetSizes(m_sensorWidth, m_sensorHeight);
    m_ui->cameraNameLabel->setText(m_controller->GetCameraName(QStringLiteral("Full")));
    m_rightPanel->SetCameraInfo(m_controller->GetCameraName(QString()), m_availableDefects);
    NextLoaderStep();

    if (!m_imageThreadStarted)
    {
        StartControllerThread();
    }
    else if (!m_controller->GetIfStreaming())
    {
        m_controller->StartStopAcquisition();
    }
    m_rightPanelOpenTimer.start(RightPanelPollMs);
    NextLoaderStep();
}

void MainWindow::ResetSession()
{
    m_treeModel->clear();
    m_cameraChosen = true;
    m_overviewPlaced = false;
    m_firstFrameShown = false;
    m_cameraSettingsLoaded = false;
    m_dpcSupported = false;
    m_automaticOverview = true;
    m_bottomPanel->OverviewButton()->setChecked(false); // opens anew, in the size that fits this camera
    m_optionPanel->DebayeringButton()->setChecked(false);
}

void MainWindow::EnableDefectCommands(bool dpcSupported)
{
    for (QPushButton* button :
         {m_rightPanel->AddPixelButton(), m_rightPanel->ExportToFileButton(), m_rightPanel->UploadToCameraButton(),
          m_rightPanel->CopyPixelListButton(), m_rightPanel->PastePixelListButton()})
    {
        button->setEnabled(dpcSupported);
    }
    QPushButton& detection = *m_rightPanel->AutomaticDetectionButton();
    if (!dpcSupported)
    {
        detection.setEnabled(false);
    }
    else if (m_automaticDetectionEnabled)
    {
        detection.setEnabled(true);
        detection.show();
    }
    m_rightPanel->ClearListButton()->setEnabled(false);
}

void MainWindow::StartControllerThread()
{
    m_imageThread = std::make_unique<QThread>();
    m_controller->moveToThread(m_imageThread.get());
    MakeSessionConnections();
    m_imageThread->start(QThread::InheritPriority);
    m_imageThreadStarted = true;
    QApplication::processEvents();
}

void MainWindow::CheckIfRightPanelCanBeOpened()
{
    if (m_firstFrameShown)
    {
        m_rightPanelOpenTimer.stop();
        m_ui->pixelListButton->setChecked(true);
    }
}

// The lock of the images is let go of before anything that runs events or calls the controller.
void MainWindow::SetImageFromCamera()
{
    if (!m_firstFrameShown)
    {
        m_imageBuffer.Lock();
        const QSize size = m_imageBuffer.Front()->size();
        m_imageBuffer.Unlock();
        if (size.isEmpty())
        {
            return; // announced by the session before
        }
        m_scene->removeItem(m_imageItem);
        m_scene->clear();
        m_scene->setSceneRect(0, 0, size.width(), size.height());
        m_scene->addItem(m_imageItem);
        AutomaticOverviewViewer();
        ApplicationLoaderClose();
        m_firstFrameShown = true;
        return;
    }
    m_imageBuffer.Lock();
    const QImage& front = *m_imageBuffer.Front();
    if (!front.isNull())
    {
        ShowFrame(front);
    }
    UpdateOverview();
    m_imageBuffer.Unlock();
}

// Into the pixmap that the scene does not hold. One made from the image would share its data with it, so that the next
// conversion had to copy the image first.
void MainWindow::ShowFrame(const QImage& image)
{
    ++m_shownFrameCount;
    QPixmap& pixmap = m_framePixmaps[static_cast<std::size_t>(m_shownFrameCount) % m_framePixmaps.size()];
    if (pixmap.size() != image.size())
    {
        pixmap = QPixmap(image.size());
        pixmap.fill(Qt::black); // without an alpha channel
    }
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, image);
    painter.end();
    m_imageItem->setPixmap(pixmap);
}

void MainWindow::OnPlayPauseButtonClick()
{
    if (!m_cameraChosen)
    {
        MessageDialog::ExecuteDialog(tr("Camera Error"), tr("Please select a camera"), tr("OK"), nullptr);
        return;
    }
    m_controller->StartStopAcquisition();
}

void MainWindow::CheckIfStreaming()
{
    PlayPauseStateChanged(m_controller->GetIfStreaming());
}

void MainWindow::PlayPauseStateChanged(bool state)
{
    const QSignalBlocker blocker(m_bottomPanel->PlayPauseButton());
    m_bottomPanel->PlayPauseButton()->setChecked(state);
}

void MainWindow::OnDebayeringOnOffStateChanged()
{
    if (!m_firstFrameShown)
    {
        return;
    }
    // Checked means the raw mosaic.
    const bool raw = m_controller->GetIfDebayering();
    m_controller->SetDebayeringOnOff(!raw);
    m_optionPanel->DebayeringButton()->setChecked(raw);
    m_optionPanel->DebayeringButton()->setToolTip(raw ? tr("On") : tr("Off"));
}

void MainWindow::DebayeringDefaultState()
{
    m_controller->SetDebayeringOnOff(true);
    m_optionPanel->DebayeringButton()->setChecked(false);
}

void MainWindow::PassNewPixelFormat(const QString& format)
{
    if (m_firstFrameShown)
    {
        m_controller->SetPixelFormat(format);
    }
}

void MainWindow::OnCameraOptionsButtonClick(int state)
{
    ShowCaptionActive(m_ui->labelOptions, state == Qt::Checked);
    m_optionPanel->setVisible(state == Qt::Checked);
    if (state == Qt::Checked && !m_cameraSettingsLoaded)
    {
        SetCameraSettings();
    }
}

void MainWindow::SetCameraSettings()
{
    m_loaderDialog->PushBackToList(tr("Getting settings from camera..."));
    m_loaderDialog->PushBackToList(tr("Adjusting sliders..."));
    ApplicationLoaderShow();
    NextLoaderStep();
    m_controller->SetCameraSettings();
    QApplication::processEvents();
    ApplicationLoaderClose();
    m_cameraSettingsLoaded = true;
}

void MainWindow::PassRestoringSettings()
{
    if (!ConfirmDialog::executeDialog(tr("Confirm"), tr("Are you sure? \nReset camera settings")))
    {
        return;
    }
    m_loaderDialog->PushBackToList(tr("Restoring settings..."));
    ApplicationLoaderShow();
    NextLoaderStep();
    m_controller->RestoreSettingsToDefault();
    ApplicationLoaderClose();
}

std::array<QPushButton*, 3> MainWindow::ExposureModeButtons() const
{
    return {m_optionPanel->OffAutoExposure(), m_optionPanel->OnceAutoExposure(),
            m_optionPanel->ContinuousAutoExposure()};
}

std::array<QPushButton*, 3> MainWindow::GainModeButtons() const
{
    return {m_optionPanel->OffAutoGain(), m_optionPanel->OnceAutoGain(), m_optionPanel->ContinuousAutoGain()};
}

// Shows the mode; one that does not exist takes the whole group out of use.
void MainWindow::ShowMode(int mode, QWidget& group, const std::array<QPushButton*, 3>& buttons)
{
    group.setEnabled(mode >= 0 && mode < static_cast<int>(buttons.size()));
    for (std::size_t number = 0; number < buttons.size(); ++number)
    {
        buttons[number]->setChecked(static_cast<int>(number) == mode);
    }
}

void MainWindow::ChooseExposureMode(int mode)
{
    SetAutoExposureButtons(mode);
    m_controller->SetExposureMode(mode);
}

void MainWindow::ChooseGainMode(int mode)
{
    SetAutoGainButtons(mode);
    m_controller->SetGainMode(mode);
}

void MainWindow::SetAutoExposureButtons(int mode)
{
    ShowMode(mode, *m_optionPanel->AutoExposureWidget(), ExposureModeButtons());
}

void MainWindow::SetAutoGainButtons(int mode)
{
    ShowMode(mode, *m_optionPanel->AutoGainWidget(), GainModeButtons());
}

void MainWindow::OnExposureAutoOffClick()
{
    ChooseExposureMode(0);
}

void MainWindow::OnExposureAutoOnceClick()
{
    ChooseExposureMode(1);
}

void MainWindow::OnExposureAutoContinuousClick()
{
    ChooseExposureMode(2);
}

void MainWindow::OnGainAutoOffClick()
{
    ChooseGainMode(0);
}

void MainWindow::OnGainAutoOnceClick()
{
    ChooseGainMode(1);
}

void MainWindow::OnGainAutoContinuousClick()
{
    ChooseGainMode(2);
}

void MainWindow::SetErrorMessage(const QString& text)
{
    MessageDialog::ExecuteDialog(tr("Camera info"), text, tr("OK"), nullptr);
}

void MainWindow::CloseLoaderDialogIfCameraBusy()
{
    if (m_loaderDialog->isVisible())
    {
        ApplicationLoaderClose();
    }
    DisableCameraButtons();
    m_ui->cameraNameLabel->clear();
}

void MainWindow::OnCameraDisconnected()
{
    OnCameraListButtonClick(Qt::Checked);
    m_treeModel->clear();
    m_rightPanel->ResetCorrectionSetList();
    m_rightPanel->close();
    MessageDialog::ExecuteDialog(tr("Connection lost"), tr("Camera has been disconnected"), tr("OK"), nullptr);
}

void MainWindow::OnTemperatureStatusUnstable(const QString& status)
{
    if (m_temperatureWarningOpen)
    {
        return;
    }
    m_temperatureWarningOpen = true;
    MessageDialog::ExecuteDialog(QStringLiteral("Temperature Warning"),
                                 tr("Sensor Temperature is not stable, current status is '%1'").arg(status), tr("OK"),
                                 nullptr);
    m_temperatureWarningOpen = false;
}
