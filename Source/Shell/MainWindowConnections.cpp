// Which signal reaches which slot of the window.
#include "AsynchronousCameraController.h"
#include "BottomPanel.h"
#include "CameraOptionPanel.h"
#include "CustomLabelView.h"
#include "CustomListView.h"
#include "KeyEnterReceiver.h"
#include "LeftPanel.h"
#include "MainWindow.h"
#include "OnboardDialog.h"
#include "RightPanel.h"
#include "TreeModel.h"
#include "ui_MainWindow.h"

#include <QThread>
#include <QTreeView>

void MainWindow::MakeConnections()
{
    ConnectPanels();
    connect(m_treeModel, &TreeModel::startItemEditor, this, &MainWindow::EditDefect);
    connect(m_treeModel, &TreeModel::SendPointToRect, m_ui->graphicsView, &CustomGraphicsView::AddNewRectToScene);
    connect(m_treeModel, &TreeModel::SendIndexToDelete, m_ui->graphicsView, &CustomGraphicsView::DeleteSceneRect);
    connect(m_pixelListView, &QTreeView::clicked, m_treeModel, &TreeModel::onClicked);
    connect(m_cameraListPanel->RefreshListButton(), &QAbstractButton::clicked, this,
            &MainWindow::OnRefreshCameraListButtonClick);
    connect(m_cameraListView, &CustomListView::SendCurrentIndex, this, &MainWindow::SetCameraIndex);
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
    connect(m_ui->cameraOptionsButton, &QCheckBox::stateChanged, this, &MainWindow::OnCameraOptionsButtonClick);
    connect(m_ui->pixelListButton, &QCheckBox::stateChanged, this, &MainWindow::OnRightPanelButtonClick);
    connect(m_ui->mouseGrabButton, &QCheckBox::stateChanged, this, &MainWindow::OnMouseGrabButtonClick);
    connect(m_ui->mouseRubber, &QCheckBox::stateChanged, this, &MainWindow::OnMouseRubberButtonClick);
    connect(m_ui->mouseRectAddButton, &QCheckBox::stateChanged, this, &MainWindow::OnRectAddButtonClick);
    connect(m_ui->supportButton, &QCheckBox::stateChanged, this, &MainWindow::OnSupportButtonClick);
    connect(m_ui->importButton, &QAbstractButton::clicked, this, &MainWindow::LoadXmlFile);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &MainWindow::OnCloseWindowButtonClick);
    connect(m_ui->minimizeButton, &QAbstractButton::clicked, this, &MainWindow::OnMinimizeButtonClick);
    connect(m_ui->maximizeButton, &QAbstractButton::clicked, this, &MainWindow::OnMaximizeButtonClick);
    connect(m_ui->graphicsView, &CustomGraphicsView::SendPressedMousePos, this, &MainWindow::SetPressedPoint);
    connect(m_ui->graphicsView, &CustomGraphicsView::SendDeleteSignal, this, &MainWindow::PassDeletingPoint);
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

    connect(&m_rightPanelOpenTimer, &QTimer::timeout, this, &MainWindow::CheckIfRightPanelCanBeOpened);
    connect(&m_streamCheckTimer, &QTimer::timeout, this, &MainWindow::CheckIfStreaming);
    connect(&m_playPauseShortcutTimer, &QTimer::timeout, this, &MainWindow::PlayPauseShortcutController);
    connect(&m_exposureWaitTimer, &QTimer::timeout, this, &MainWindow::CheckIfExposureWasSet);
    connect(m_rightPanel->AutomaticDetectionButton(), &QAbstractButton::clicked, this,
            &MainWindow::OnAutomaticDetectionButtonClick);
    connect(m_onboardDialog, &OnboardDialog::CloseDialog, m_ui->supportButton, &QCheckBox::setChecked);
}

void MainWindow::ConnectPanels()
{
    connect(m_treeModel, &TreeModel::SendNumberOfDefects, m_rightPanel, &RightPanel::OnNumberOfDefectsUpdated);
    connect(m_rightPanel, &RightPanel::EnablePixelEditingSignal, m_treeModel, &TreeModel::EnableEditDeleteButtons);
    connect(m_rightPanel, &RightPanel::EnablePixelEditingSignal, this, &MainWindow::EnableSelectEraseButtons);
    connect(m_rightPanel, &RightPanel::ReadDefectsSignal, this, &MainWindow::PassReadingDefectSignal);
    connect(m_rightPanel, &RightPanel::ChangeDpcStateSignal, this, &MainWindow::PassChangingStateSignal);
    connect(m_rightPanel, &RightPanel::SetDefaultCorrectionSetSignal, this, &MainWindow::SetDefaultCorrectionSetSlot);
    connect(m_rightPanel->UploadToCameraButton(), &QAbstractButton::clicked, this, &MainWindow::UploadListToTheCamera);
    connect(m_rightPanel->RestoreDefaultSetButton(), &QAbstractButton::clicked, this,
            &MainWindow::PassRestoringCorrectionSet);
    connect(m_rightPanel->CopyPixelListButton(), &QAbstractButton::clicked, this,
            &MainWindow::OnCopyPixelListButtonClicked);
    connect(m_rightPanel->PastePixelListButton(), &QAbstractButton::clicked, this,
            &MainWindow::OnPastePixelListButtonClicked);
    connect(m_rightPanel->ExportToFileButton(), &QAbstractButton::clicked, this, &MainWindow::SaveXmlFile);
    connect(m_rightPanel, &RightPanel::SignalToAddPixels, this, &MainWindow::ShowDialog);
    connect(m_rightPanel->ClearListButton(), &QAbstractButton::clicked, this, &MainWindow::DeleteAllPixelsSlot);

    connect(m_optionPanel, &CameraOptionPanel::SendNewPixelFormat, this, &MainWindow::PassNewPixelFormat);
    connect(m_optionPanel, &CameraOptionPanel::SetDebayeringtoDefault, this, &MainWindow::DebayeringDefaultState);
    connect(m_optionPanel->RestoreDefaultButton(), &QAbstractButton::clicked, this, &MainWindow::PassRestoringSettings);
    const auto click = [this](QAbstractButton* button, void (MainWindow::*slot)())
    { connect(button, &QAbstractButton::clicked, this, slot); };
    click(m_optionPanel->ContinuousAutoExposure(), &MainWindow::OnExposureAutoContinuousClick);
    click(m_optionPanel->OnceAutoExposure(), &MainWindow::OnExposureAutoOnceClick);
    click(m_optionPanel->OffAutoExposure(), &MainWindow::OnExposureAutoOffClick);
    click(m_optionPanel->ContinuousAutoGain(), &MainWindow::OnGainAutoContinuousClick);
    click(m_optionPanel->OnceAutoGain(), &MainWindow::OnGainAutoOnceClick);
    click(m_optionPanel->OffAutoGain(), &MainWindow::OnGainAutoOffClick);
    click(m_optionPanel->DebayeringButton(), &MainWindow::OnDebayeringOnOffStateChanged);

    using Controller = AsynchronousCameraController;
    Controller* const controller = m_controller.get();
    connect(m_optionPanel, &CameraOptionPanel::SendChangedSliderValue, controller, &Controller::UpdateSliderFeatures);
    connect(m_optionPanel, &CameraOptionPanel::SendChangedComboboxValue, controller,
            &Controller::UpdateComboboxFeatures);
    connect(m_optionPanel, &CameraOptionPanel::SendActivateSetpoint, controller, &Controller::OnActivateSetpoint);
    connect(m_optionPanel, &CameraOptionPanel::SendNucModeValue, controller, &Controller::SetNucModeValue);
    connect(controller, &Controller::SendSetpointActivationDone, m_optionPanel,
            &CameraOptionPanel::ReleaseSetpointButton);
    connect(controller, &Controller::CameraDisconnected, this, &MainWindow::OnCameraDisconnected);
}

void MainWindow::MakeSessionConnections()
{
    using Controller = AsynchronousCameraController;
    Controller* const controller = m_controller.get();
    connect(m_imageThread.get(), &QThread::started, controller, &Controller::StartStopAcquisition);
    connect(controller, &Controller::SendPixmapToArea, this, &MainWindow::SetImageFromCamera);
    connect(controller, &Controller::ErrorSignal, this, &MainWindow::SetErrorMessage);
    connect(controller, &Controller::CamerasListChangedSignal, this, &MainWindow::UpdateOptionList);
    connect(controller, &Controller::SendSlidersValues, m_optionPanel, &CameraOptionPanel::SetSliders);
    connect(controller, &Controller::SendPixelFormats, m_optionPanel, &CameraOptionPanel::SetPixelFormats);
    connect(controller, &Controller::SendLockSliders, m_optionPanel, &CameraOptionPanel::LockChosenSliders);
    connect(controller, &Controller::SendCloseCameraIfBusy, this, &MainWindow::CloseLoaderDialogIfCameraBusy);
    connect(controller, &Controller::SendCurrentExposureMode, this, &MainWindow::SetAutoExposureButtons);
    connect(controller, &Controller::SendCurrentGainMode, this, &MainWindow::SetAutoGainButtons);
    connect(controller, &Controller::SendUpdatedSLiderValue, m_optionPanel, &CameraOptionPanel::SetUpdatedSliderValues);
    connect(controller, &Controller::SendTemperatureControlEnabled, m_optionPanel,
            &CameraOptionPanel::InitTemperatureWidgets);
    connect(controller, &Controller::SendComboboxValues, m_optionPanel, &CameraOptionPanel::SetUpdatedComboboxValues);
    connect(controller, &Controller::SendActiveSetpointValue, m_optionPanel,
            &CameraOptionPanel::OnActiveSetpointChanged);
    connect(controller, &Controller::SendTemperatureControlStateValue, m_optionPanel,
            &CameraOptionPanel::OnControlStateChanged);
    connect(controller, &Controller::SendTemperatureStatusUnstable, this, &MainWindow::OnTemperatureStatusUnstable);
    connect(controller, &Controller::SendNucControlEnabled, m_optionPanel, &CameraOptionPanel::InitNucWidgets);
    connect(controller, &Controller::SencNucDatasetDescription, m_optionPanel, &CameraOptionPanel::SetNucDescription);
    connect(controller, &Controller::SendNucModeValues, m_optionPanel, &CameraOptionPanel::SetNucModeValues);
}
