// The window's part in the automatic detection: the camera's state, and a settled dark frame for the dialog.
#include "AsynchronousCameraController.h"
#include "AutomaticDetectorDialog.h"
#include "CameraOptionPanel.h"
#include "MainWindow.h"
#include "MessageDialog.h"
#include "RightPanel.h"
#include "ui_MainWindow.h"

#include <QComboBox>
#include <QGraphicsPixmapItem>
#include <QPushButton>
#include <QThread>

namespace
{

constexpr char BAYER_FORMAT_REG_EXP[] = "Bayer(GR|RG|BG|GB)8";
constexpr char MonoFormat[] = "Mono8";
constexpr int ExposureWaitMs = 1000;
constexpr unsigned FramesToWaitFor = 4;

} // namespace

void MainWindow::OnAutomaticDetectionButtonClick()
{
    m_exposureWaitTimer.stop(); // of a detection that was left while it waited
    m_detectionOpen = true;
    if (!m_cameraSettingsLoaded)
    {
        SetCameraSettings();
    }
    m_ui->cameraListButton->setChecked(false);
    m_ui->cameraOptionsButton->setChecked(false);
    EnableButtonsOffDuringDetection(false);
    delete m_detectorDialog;
    m_detectorDialog = nullptr;

    const QString formatBefore = m_controller->GetCurrentPixelFormat();
    const int index = FormatIndexForDetection(formatBefore);
    if (index == -1)
    {
        m_detectionOpen = false;
        MessageDialog::ExecuteDialog(tr("No valid pixel format"),
                                     tr("Supported pixel formats: BayerGR8, BayerRG8, BayerBG8, BayerGB8, Mono8"),
                                     tr("OK"), nullptr);
        return;
    }
    m_optionPanel->PixelFormatBox()->setCurrentIndex(index);
    const QString format = m_controller->GetCurrentPixelFormat();

    MakeDetectorDialog(format, m_sensorWidth, m_sensorHeight, m_availableDefects);
    ConnectDetectorDialog();
    m_rightPanel->DeactivateCurrentDPC();
    EnableButtonsOffDuringDetection(false); // the loader has enabled them at its end
    m_switchedOffSet = m_rightPanel->GetCurrentRow();
    m_changedFormat = formatBefore != format ? format : QString();
    ShowDetectionWarning();
    const auto [leastExposure, mostExposure] = m_controller->GetExposureRange();
    m_detectorDialog->SetExposureRange(leastExposure, mostExposure, m_controller->GetCurrentExposure(),
                                       m_optionPanel->GetMaximumAutomaticExposure());
    const auto [leastGain, mostGain] = m_controller->GetGainRange();
    m_detectorDialog->SetGainRange(leastGain, mostGain, m_controller->GetCurrentGain());
    if (m_detectionOpen) // the camera may have gone meanwhile
    {
        AutomaticDetectorDialog::executeDialog(m_detectorDialog);
    }
}

void MainWindow::MakeDetectorDialog(const QString& pixelFormat, int width, int height, const std::vector<int>& defects)
{
    m_detectorDialog = new AutomaticDetectorDialog(this, m_treeModel, pixelFormat, width, height, defects);
    m_detectorDialog->setObjectName(QStringLiteral("detectorDialog"));
    connect(m_detectorDialog, &AutomaticDetectorDialog::SendExposureGain, this,
            &MainWindow::PassAutoDetectorSettingsSlot);
    connect(m_detectorDialog, &AutomaticDetectorDialog::CloseDialog, this, &MainWindow::CloseAutomaticDetectionDialog);
}

// The connection goes with the dialog, so that a detection of before does not answer for a later one.
void MainWindow::ConnectDetectorDialog()
{
    connect(m_controller.get(), &AsynchronousCameraController::CameraDisconnected, m_detectorDialog,
            [this] { EndDetectionOfSession(); });
}

void MainWindow::EndDetectionOfSession()
{
    if (m_detectionOpen)
    {
        CloseAutomaticDetectionDialog();
    }
}

void MainWindow::EnableButtonsOffDuringDetection(bool enabled)
{
    m_ui->cameraListButton->setEnabled(enabled);
    m_ui->cameraOptionsButton->setEnabled(enabled);
    m_ui->importButton->setEnabled(enabled);
}

// A camera that is at an 8-bit Bayer format goes on to "Mono8". One that begins with "Mono8" takes the first format of
// the box, whatever that is.
int MainWindow::FormatIndexForDetection(const QString& format) const
{
    if (m_optionPanel->BayerFormatAvailable() && !m_optionPanel->CheckBayerFormat(format))
    {
        return m_optionPanel->findPixelFormat(QLatin1String(BAYER_FORMAT_REG_EXP));
    }
    if (!format.startsWith(QLatin1String(MonoFormat)))
    {
        return m_optionPanel->findPixelFormat(QLatin1String(MonoFormat));
    }
    return 0;
}

void MainWindow::ShowDetectionWarning()
{
    if (!m_detectionOpen || m_detectorDialog == nullptr)
    {
        return;
    }
    QString text = tr("Switch off Correction Set '%1'... \t<img src=':/icons/resources/Path Copy 4.svg'/>")
                       .arg(m_switchedOffSet.toHtmlEscaped());
    if (!m_changedFormat.isEmpty())
    {
        text += QStringLiteral("<br><br>") +
                tr("Change Pixel Format to '%1'... \t<img src=':/icons/resources/Path Copy 4.svg'/>")
                    .arg(m_changedFormat.toHtmlEscaped());
    }
    m_detectorDialog->SetWarningText(text);
}

void MainWindow::PassAutoDetectorSettingsSlot(double exposure, double gain)
{
    // A checked button means the raw mosaic.
    if (m_optionPanel->CheckBayerFormat(m_controller->GetCurrentPixelFormat()) &&
        !m_optionPanel->DebayeringButton()->isChecked())
    {
        OnDebayeringOnOffStateChanged();
    }
    m_controller->StopIfStreaming();
    m_shownFrameCount = 0;
    m_optionPanel->SetValuesFromAutomatic(exposure, gain);
    if (m_imageThread)
    {
        // Behind the values that the panel has just sent to the controller's thread: no frame of the new stream may
        // still have the old exposure.
        AsynchronousCameraController* const controller = m_controller.get();
        QMetaObject::invokeMethod(controller, &AsynchronousCameraController::WritePendingExposure,
                                  Qt::BlockingQueuedConnection);
    }
    m_imageItem->setPixmap(QPixmap());
    if (!m_controller->GetIfStreaming())
    {
        m_controller->StartStopAcquisition();
    }
    m_exposureWaitTimer.start(ExposureWaitMs);
}

void MainWindow::CheckIfExposureWasSet()
{
    m_imageBuffer.Lock();
    const QImage image = m_imageItem->pixmap().toImage();
    if (!image.isNull() && m_shownFrameCount >= FramesToWaitFor)
    {
        if (m_detectorDialog != nullptr)
        {
            m_detectorDialog->SetImage(image.copy());
        }
        m_exposureWaitTimer.stop();
    }
    m_imageBuffer.Unlock();
}

void MainWindow::CloseAutomaticDetectionDialog()
{
    m_detectionOpen = false;
    if (m_detectorDialog != nullptr)
    {
        m_detectorDialog->close();
        m_detectorDialog->OnStopDetectClick();
    }
    EnableButtonsOffDuringDetection(true);
}
