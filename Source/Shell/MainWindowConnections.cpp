// Which signal reaches which slot of the window.
#include "AsynchronousCameraController.h"
#include "BottomPanel.h"
#include "CustomLabelView.h"
#include "CustomListView.h"
#include "KeyEnterReceiver.h"
#include "LeftPanel.h"
#include "MainWindow.h"
#include "OnboardDialog.h"
#include "TreeModel.h"
#include "ui_MainWindow.h"

#include <QTreeView>

void MainWindow::MakeConnections()
{
    connect(m_treeModel, &TreeModel::SendPointToRect, m_ui->graphicsView, &CustomGraphicsView::AddNewRectToScene);
    connect(m_treeModel, &TreeModel::SendIndexToDelete, m_ui->graphicsView, &CustomGraphicsView::DeleteSceneRect);
    connect(m_pixelListView, &QTreeView::clicked, m_treeModel, &TreeModel::onClicked);
    connect(m_cameraListPanel->RefreshListButton(), &QAbstractButton::clicked, this,
            &MainWindow::OnRefreshCameraListButtonClick);
    connect(m_overviewLabel, &CustomLabelView::SendNewRectPosition, this, &MainWindow::SetNewRectPosition);
    connect(m_overviewLabel, &CustomLabelView::SendUpdateOverview, this, &MainWindow::UpdateOverviewFromMoving);
    connect(m_keyReceiver.get(), &KeyEnterReceiver::SetGrabCursor, this, &MainWindow::ShortcutGrabCursor);
    connect(m_keyReceiver.get(), &KeyEnterReceiver::SetRubberCursor, this, &MainWindow::ShortcutRubberCursor);
    connect(m_keyReceiver.get(), &KeyEnterReceiver::SetSelectionCursor, this, &MainWindow::ShortcutSelectionCursor);
    connect(m_keyReceiver.get(), &KeyEnterReceiver::SetPlayPause, this, &MainWindow::ShortcutPlayPause);
    connect(m_keyReceiver.get(), &KeyEnterReceiver::DecreaseZoom, this, &MainWindow::OnZoomOutButtonClick);
    connect(m_keyReceiver.get(), &KeyEnterReceiver::IncreaseZoom, this, &MainWindow::OnZoomInButtonClick);
    connect(m_treeModel, &TreeModel::SendClearingList, m_ui->graphicsView, &CustomGraphicsView::RemoveAllRects);
    connect(m_treeModel, &TreeModel::SendNewPixelPoint, m_ui->graphicsView, &CustomGraphicsView::MovePixelRects);

    connect(m_ui->cameraListButton, &QCheckBox::stateChanged, this, &MainWindow::OnCameraListButtonClick);
    connect(m_ui->mouseGrabButton, &QCheckBox::stateChanged, this, &MainWindow::OnMouseGrabButtonClick);
    connect(m_ui->mouseRubber, &QCheckBox::stateChanged, this, &MainWindow::OnMouseRubberButtonClick);
    connect(m_ui->mouseRectAddButton, &QCheckBox::stateChanged, this, &MainWindow::OnRectAddButtonClick);
    connect(m_ui->supportButton, &QCheckBox::stateChanged, this, &MainWindow::OnSupportButtonClick);
    connect(m_ui->importButton, &QAbstractButton::clicked, this, &MainWindow::LoadXmlFile);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &MainWindow::OnCloseWindowButtonClick);
    connect(m_ui->minimizeButton, &QAbstractButton::clicked, this, &MainWindow::OnMinimizeButtonClick);
    connect(m_ui->maximizeButton, &QAbstractButton::clicked, this, &MainWindow::OnMaximizeButtonClick);
    connect(m_ui->graphicsView, &CustomGraphicsView::SendScaleFactor, this, &MainWindow::UpdateScaleButton);
    connect(m_ui->graphicsView, &CustomGraphicsView::SendUpdateView, this, &MainWindow::UpdateOverviewFromMoving);
    connect(m_ui->languageBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &MainWindow::OnLanguageBoxItemChanged);
    connect(m_ui->aboutButton, &QAbstractButton::clicked, this, &MainWindow::OnAboutButtonClick);
    connect(m_ui->aboutQtButton, &QAbstractButton::clicked, this, &MainWindow::OnAboutQtButtonClick);

    connect(m_bottomPanel->ScaleButton(), &QAbstractButton::clicked, this, &MainWindow::OnScaleButtonClick);
    connect(m_bottomPanel->OverlayButton(), &QCheckBox::stateChanged, this, &MainWindow::OnOverlayCheckBoxStateChanged);
    connect(m_bottomPanel->ZoomInButton(), &QAbstractButton::clicked, this, &MainWindow::OnZoomInButtonClick);
    connect(m_bottomPanel->ZoomOutButton(), &QAbstractButton::clicked, this, &MainWindow::OnZoomOutButtonClick);
    connect(m_bottomPanel->PlayPauseButton(), &QAbstractButton::clicked, this, &MainWindow::OnPlayPauseButtonClick);
    connect(m_bottomPanel->OverviewButton(), &QCheckBox::stateChanged, this, &MainWindow::OnOverviewStateChanged);
    connect(m_bottomPanel->OverviewButton(), &QAbstractButton::clicked, this, &MainWindow::OnOverviewButtonClick);

    connect(&m_streamCheckTimer, &QTimer::timeout, this, &MainWindow::CheckIfStreaming);
    connect(&m_playPauseShortcutTimer, &QTimer::timeout, this, &MainWindow::PlayPauseShortcutController);
    connect(m_onboardDialog, &OnboardDialog::CloseDialog, m_ui->supportButton, &QCheckBox::setChecked);
}
