// The window's buttons: panels, tools, shortcuts, small dialogs, and the busy state.
#include "AboutDialog.h"
#include "AsynchronousCameraController.h"
#include "BottomPanel.h"
#include "LeftPanel.h"
#include "LoaderDialog.h"
#include "MainWindow.h"
#include "OnboardDialog.h"
#include "Version.h"
#include "WelcomeDialog.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QMessageBox>
#include <QTranslator>

namespace
{

constexpr int GrabToolNumber = 0;
constexpr int AddToolNumber = 1;
constexpr int RubberToolNumber = 2;
constexpr int PlayPauseLockMs = 1000;

} // namespace

void MainWindow::ShowCaptionActive(QLabel* caption, bool active)
{
    caption->setStyleSheet(active ? QStringLiteral("color:white; background:none;")
                                  : QStringLiteral("color: #dbdbdb; background:none;"));
}

void MainWindow::WelcomingDialog()
{
    if (m_tutorialFinished)
    {
        return;
    }
    ChangeWindowOverlay();
    m_windowOverlay.show();
    if (WelcomeDialog::ExecuteDialog(x(), y()))
    {
        m_ui->supportButton->setChecked(true);
    }
    m_windowOverlay.hide();
    m_tutorialFinished = true;
}

void MainWindow::OnCameraListButtonClick(int state)
{
    if (state == Qt::Checked)
    {
        m_cameraListPanel->show();
        ShowCaptionActive(m_ui->labelCameras, true);
    }
    else if (state == Qt::Unchecked)
    {
        m_cameraListPanel->hide();
        ShowCaptionActive(m_ui->labelCameras, false);
    }
}

void MainWindow::OnSupportButtonClick(int state)
{
    if (state == Qt::Checked)
    {
        OnboardDialog::executeDialog(m_onboardDialog, x(), y(), width(), height());
    }
    else if (state == Qt::Unchecked)
    {
        m_onboardDialog->close();
    }
}

void MainWindow::OnAboutButtonClick()
{
    if (m_onboardDialog->isVisible())
    {
        m_ui->supportButton->setChecked(false);
    }
    ChangeWindowOverlay();
    m_windowOverlay.show();
    AboutDialog::executeDialog(QString::fromStdString(Lorvane::VersionString), m_apiVersion);
    m_windowOverlay.hide();
}

void MainWindow::OnAboutQtButtonClick()
{
    QMessageBox::aboutQt(this);
}

void MainWindow::OnCloseWindowButtonClick()
{
    close();
}

void MainWindow::OnMinimizeButtonClick()
{
    setWindowState(Qt::WindowMinimized | Qt::WindowActive);
}

void MainWindow::OnMaximizeButtonClick()
{
    setWindowState(windowState() == Qt::WindowMaximized ? Qt::WindowNoState : Qt::WindowMaximized);
}

void MainWindow::OnLanguageBoxItemChanged()
{
    const QString language = m_ui->languageBox->currentText();
    if (m_translator == nullptr)
    {
        return;
    }
    if (language == QLatin1String("Deutsch"))
    {
        QApplication::installTranslator(m_translator.get());
    }
    else if (language == QLatin1String("English"))
    {
        QApplication::removeTranslator(m_translator.get());
    }
}

void MainWindow::OnRefreshCameraListButtonClick()
{
    m_controller->TryRefreshList();
}

MainWindow::Tool MainWindow::GrabTool() const
{
    return {GrabToolNumber, m_ui->mouseGrabButton, m_ui->labelGrab};
}

MainWindow::Tool MainWindow::AddTool() const
{
    return {AddToolNumber, m_ui->mouseRectAddButton, m_ui->labelSelect};
}

MainWindow::Tool MainWindow::RubberTool() const
{
    return {RubberToolNumber, m_ui->mouseRubber, m_ui->labelErase};
}

void MainWindow::ToolStateChanged(int state, const Tool& tool, const Tool& second, const Tool& third)
{
    if (state == Qt::Checked)
    {
        m_currentTool = tool.number;
        m_ui->graphicsView->ChangeCurrentCursor(tool.number);
        ShowCaptionActive(tool.caption, true);
        ShowCaptionActive(second.caption, false);
        ShowCaptionActive(third.caption, false);
        second.button->setChecked(false);
        third.button->setChecked(false);
        tool.button->setEnabled(false);
    }
    else if (state == Qt::Unchecked)
    {
        ShowCaptionActive(tool.caption, false);
        tool.button->setEnabled(true);
    }
}

void MainWindow::OnMouseGrabButtonClick(int state)
{
    ToolStateChanged(state, GrabTool(), AddTool(), RubberTool());
}

void MainWindow::OnRectAddButtonClick(int state)
{
    ToolStateChanged(state, AddTool(), GrabTool(), RubberTool());
}

void MainWindow::OnMouseRubberButtonClick(int state)
{
    ToolStateChanged(state, RubberTool(), AddTool(), GrabTool());
}

void MainWindow::EnableSelectEraseButtons(bool value)
{
    m_pixelEditingEnabled = value;
    m_ui->mouseRectAddButton->setEnabled(value);
    m_ui->mouseRubber->setEnabled(value);
}

void MainWindow::ShortcutSelectionCursor()
{
    if (m_pixelEditingEnabled)
    {
        m_ui->mouseRectAddButton->setChecked(true);
    }
}

void MainWindow::ShortcutRubberCursor()
{
    if (m_pixelEditingEnabled)
    {
        m_ui->mouseRubber->setChecked(true);
    }
}

void MainWindow::ShortcutGrabCursor()
{
    m_ui->mouseGrabButton->setChecked(true);
}

void MainWindow::ShortcutPlayPause()
{
    if (m_playPauseShortcutLocked)
    {
        return;
    }
    OnPlayPauseButtonClick();
    m_playPauseShortcutTimer.start(PlayPauseLockMs);
    m_playPauseShortcutLocked = true;
}

void MainWindow::PlayPauseShortcutController()
{
    m_playPauseShortcutLocked = false;
    m_playPauseShortcutTimer.stop();
}

void MainWindow::ApplicationLoaderShow()
{
    if (!m_loaderDialog->isVisible())
    {
        m_focusBeforeLoader = focusWidget();
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::processEvents();
    m_loaderDialog->DisplayNextStepInformation();
    m_loaderDialog->show();
    m_ui->graphicsView->ChangeCurrentCursor(m_pixelEditingEnabled ? AddToolNumber : GrabToolNumber);
    for (const Tool& tool : {GrabTool(), AddTool(), RubberTool()})
    {
        tool.button->setChecked(false);
    }
    for (QWidget* widget : WidgetsOffWhileBusy())
    {
        widget->setEnabled(false);
    }
    QApplication::processEvents();
}

void MainWindow::ApplicationLoaderClose()
{
    for (QWidget* widget : WidgetsOffWhileBusy())
    {
        widget->setEnabled(true);
    }
    m_ui->mouseRubber->setEnabled(m_pixelEditingEnabled);
    m_ui->mouseRectAddButton->setEnabled(m_pixelEditingEnabled);
    QApplication::restoreOverrideCursor();
    if (!m_pixelEditingEnabled)
    {
        m_currentTool = GrabToolNumber;
    }
    m_ui->graphicsView->ChangeCurrentCursor(m_currentTool);
    m_loaderDialog->close();
    m_loaderDialog->ClearInfoList();
    // It has gone to the next widget in use.
    const bool isStillThere =
        m_focusBeforeLoader && m_focusBeforeLoader->isVisible() && m_focusBeforeLoader->isEnabled();
    (isStillThere ? m_focusBeforeLoader.data() : m_ui->graphicsView)->setFocus();
}

std::vector<QWidget*> MainWindow::WidgetsOffWhileBusy() const
{
    return {m_ui->graphicsView,   m_ui->importButton,   m_ui->cameraOptionsButton, m_ui->cameraListButton,
            m_ui->maximizeButton, m_ui->minimizeButton, m_ui->mouseGrabButton,     m_ui->mouseRectAddButton,
            m_ui->mouseRubber,    m_ui->pixelListButton};
}

void MainWindow::NextLoaderStep()
{
    QApplication::processEvents();
    m_loaderDialog->DisplayNextStepInformation();
    QApplication::processEvents();
}
