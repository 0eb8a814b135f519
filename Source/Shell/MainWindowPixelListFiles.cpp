// Pixel lists saved to and loaded from XML files.
#include "AsynchronousCameraController.h"
#include "LoaderDialog.h"
#include "MainWindow.h"
#include "MessageDialog.h"
#include "ModalExecution.h"
#include "PixelListXml.h"
#include "TreeModel.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>

namespace
{

constexpr const char* FileDialogStyle =
    "QWidget { background-color: rgb(66,67,68); color: lightgrey; font-size: 12px; } "
    "QHeaderView::section { background-color: rgb(66,67,68); }";

// The file that the user names, or an empty text. proposal is a directory or a whole path.
QString AskFileName(const QString& title, const QString& proposal, QFileDialog::AcceptMode mode)
{
    QDialog styledParent;
    styledParent.setStyleSheet(QLatin1String(FileDialogStyle));
    const QFileInfo proposed(proposal);
    const bool isDirectory = proposed.isDir();
    QFileDialog dialog(&styledParent, title, isDirectory ? proposal : proposed.path(), QStringLiteral("*.xml"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!isDirectory)
    {
        dialog.selectFile(proposed.fileName());
    }
    if (Lorvane::ExecuteModal(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    {
        return {};
    }
    return dialog.selectedFiles().constFirst();
}

} // namespace

void MainWindow::ResumeStream(bool wasStreaming)
{
    if (wasStreaming && !m_controller->GetIfStreaming())
    {
        m_controller->StartStopAcquisition();
    }
    QApplication::processEvents();
}

void MainWindow::SaveXmlFile()
{
    m_loaderDialog->PushBackToList(tr("Stopping image acquisition..."));
    m_loaderDialog->PushBackToList(tr("Saving pixels to .xml..."));
    m_loaderDialog->PushBackToList(tr("Starting image acquisition..."));
    ApplicationLoaderShow();
    const bool wasStreaming = m_controller->StopIfStreaming();
    NextLoaderStep();

    if (m_treeModel->getDefectList().isEmpty())
    {
        MessageDialog::ExecuteDialog(tr("Loading info"), tr("List is empty!"), tr("OK"), nullptr);
    }
    else
    {
        const QString name = m_controller->GetCameraName(QStringLiteral("Full")) + tr(".xml");
        const QString path = AskFileName(tr("Save File"), QDir::home().filePath(name), QFileDialog::AcceptSave);
        if (!path.isEmpty())
        {
            SaveAsXmlImpl(path, m_treeModel->getDefectList());
        }
    }

    NextLoaderStep();
    ResumeStream(wasStreaming);
    ApplicationLoaderClose();
}

void MainWindow::LoadXmlFile()
{
    // Asked before the loader takes the image panel out of use.
    const bool hasCamera = m_ui->graphicsView->isEnabled() && m_cameraIndex != -1;

    m_loaderDialog->PushBackToList(tr("Stopping image acquisition..."));
    m_loaderDialog->PushBackToList(tr("Reading pixels from .xml..."));
    m_loaderDialog->PushBackToList(tr("Starting image acquisition..."));
    ApplicationLoaderShow();
    const bool wasStreaming = m_controller->StopIfStreaming();
    QApplication::processEvents();

    const QString path = AskFileName(tr("Open file"), QDir::homePath(), QFileDialog::AcceptOpen);
    NextLoaderStep();
    if (!path.isEmpty())
    {
        if (!hasCamera)
        {
            MessageDialog::ExecuteDialog(tr("Error"), tr("To load .xml file\nchoose a camera first"), tr("OK"),
                                         nullptr);
        }
        else if (!LoadFromXmlImpl(path, m_treeModel, m_sensorWidth, m_sensorHeight, m_availableDefects))
        {
            MessageDialog::ExecuteDialog(tr("Error"), tr("File is corrupted"), tr("OK"), nullptr);
        }
    }

    NextLoaderStep();
    ResumeStream(wasStreaming);
    ApplicationLoaderClose();
}
