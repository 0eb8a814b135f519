// The program's one window.
#pragma once

#include "DefectInfo.h"
#include "ImageDoubleBuffer.h"
#include "WindowOverlay.h"

#include <QMainWindow>
#include <QPixmap>
#include <QPointF>
#include <QPointer>
#include <QTimer>
#include <QVector>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

class AsynchronousCameraController;
class AutomaticDetectorDialog;
class BottomPanel;
class CameraOptionPanel;
class CustomLabelView;
class CustomListView;
class KeyEnterReceiver;
class LeftPanel;
class LoaderDialog;
class OnboardDialog;
class OverviewPanel;
class QCheckBox;
class QGraphicsPixmapItem;
class QGraphicsScene;
class QLabel;
class QPushButton;
class QSizeGrip;
class QThread;
class QTranslator;
class QTreeView;
class RightPanel;
class TreeModel;

namespace Ui
{
class MainWindowClass;
}

// Owns the pixel list, the panels and dialogs that live as long as the program, the camera controller, and the images
// that the controller fills; everything that the user starts begins in one of its slots. It holds no camera logic of
// its own. GUI thread; the images alone are shared with the controller's thread, under their own lock.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    // Ends the controller's thread, stops what runs on the camera, and writes the configuration file.
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    // Places the floating panels by the window's current size.
    void SetProperSizes();
    // Greets the user who starts the program for the first time, over a white overlay.
    void WelcomingDialog();
    // Lays the overlay over the window's place on the screen.
    void ChangeWindowOverlay();
    // Sets all texts in the current language.
    void SetStrings();
    // Fits the overview to an image of this size: the largest whole fraction of it that is at most 500 wide.
    void SetMaximumOverviewSizes(const QPoint& size);
    // While the overview opens by itself: shows it exactly when the image no longer fits into the view.
    void AutomaticOverviewViewer();
    bool isOptionPanelHidden() const;
    bool isRightPanelHidden() const;
    // Starts a session with the chosen camera, step by step behind the loader, which the first frame closes.
    void StartThreadImage();
    // Fills the options panel from the camera.
    void SetCameraSettings();

public Q_SLOTS:
    // Panels and window buttons.
    void OnCameraListButtonClick(int state);
    void OnCameraOptionsButtonClick(int state);
    void OnRightPanelButtonClick(int state);
    void OnSupportButtonClick(int state);
    void OnAboutButtonClick();
    void OnAboutQtButtonClick();
    void OnCloseWindowButtonClick();
    void OnMinimizeButtonClick();
    void OnMaximizeButtonClick();
    void OnLanguageBoxItemChanged();
    void OnRefreshCameraListButtonClick();

    // Tools: exactly one of the three buttons is down, and disabled, so that a click cannot release it.
    void OnMouseGrabButtonClick(int state);
    void OnRectAddButtonClick(int state);
    void OnMouseRubberButtonClick(int state);
    void EnableSelectEraseButtons(bool value);
    void ShortcutSelectionCursor();
    void ShortcutRubberCursor();
    void ShortcutGrabCursor();
    // Play or pause, at most once a second.
    void ShortcutPlayPause();
    void PlayPauseShortcutController();

    // Busy state: from Show to Close the loader tells the steps and nothing else can be used.
    void ApplicationLoaderShow();
    void ApplicationLoaderClose();

    // Image view and overview. Positions in sensor pixels.
    void SetNewRectPosition(int x, int y);
    void UpdateOverview();
    void UpdateOverviewFromMoving();
    void UpdateScaleButton(double scale);
    void GoToPixel(int x, int y);
    void OnOverviewButtonClick();
    void OnOverviewStateChanged(int state);
    void OnOverlayCheckBoxStateChanged(int state);
    void OnZoomInButtonClick();
    void OnZoomOutButtonClick();
    void OnScaleButtonClick();

    // Camera session.
    void SetCameraIndex(int index, const QString& serial);
    // Takes away what belongs to the camera so far.
    void UpdateOptionList();
    void SetImageFromCamera();
    void CheckIfRightPanelCanBeOpened();
    void OnPlayPauseButtonClick();
    void CheckIfStreaming();
    void PlayPauseStateChanged(bool state);
    void SetErrorMessage(const QString& text);
    void CloseLoaderDialogIfCameraBusy();
    void OnCameraDisconnected();

    // Camera settings.
    void OnDebayeringOnOffStateChanged();
    void DebayeringDefaultState();
    void PassNewPixelFormat(const QString& format);
    void PassRestoringSettings();
    void OnExposureAutoOffClick();
    void OnExposureAutoOnceClick();
    void OnExposureAutoContinuousClick();
    void OnGainAutoOffClick();
    void OnGainAutoOnceClick();
    void OnGainAutoContinuousClick();
    // mode: 0 off, 1 once, 2 continuous, anything else: the camera has none.
    void SetAutoExposureButtons(int mode);
    void SetAutoGainButtons(int mode);
    void OnTemperatureStatusUnstable(const QString& status);

    // Correction sets.
    // Reads the set into the pixel list; an empty name empties it. Asks before defects are lost that no camera holds.
    void PassReadingDefectSignal(const QString& name);
    // Writes the pixel list into the selected set, shows what the camera holds then, and offers a restart.
    void UploadListToTheCamera();
    // Switches the correction with this set on or off.
    void PassChangingStateSignal(const QString& name);
    void PassRestoringCorrectionSet();
    // The panel shows the default set of before when the camera refuses.
    void SetDefaultCorrectionSetSlot(const std::string& name);

    // Automatic detection.
    // Brings the camera into an 8-bit format with one image pixel for each sensor pixel, and opens the dialog.
    void OnAutomaticDetectionButtonClick();
    // Applies the exposure, in microseconds, and the gain, and waits for frames that were taken with them.
    void PassAutoDetectorSettingsSlot(double exposure, double gain);
    // Hands the dialog a settled frame.
    void CheckIfExposureWasSet();
    void CloseAutomaticDetectionDialog();

    // Pixel list entry.
    void ShowDialog();
    void DeleteAllPixelsSlot();
    void UnlockClearButtonSlot();
    void SetPressedPoint(QPointF& point, int width, int height, int type);
    void PassDeletingPoint(QPointF point);
    void OnCopyPixelListButtonClicked();
    void OnPastePixelListButtonClicked();

    // Pixel list files.
    void SaveXmlFile();
    void LoadXmlFile();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // A tool of the image view with its button and the caption below it.
    struct Tool
    {
        int number;
        QCheckBox* button;
        QLabel* caption;
    };

    void CreateMembers();
    void StyleChrome();
    void PlaceChildren();
    void MakeConnections();
    void ConnectPanels();
    // What only makes sense with the controller on its thread.
    void MakeSessionConnections();
    void PlaceBottomPanel();
    // What all three tool slots do: tool is the one whose button changed.
    void ToolStateChanged(int state, const Tool& tool, const Tool& second, const Tool& third);
    Tool GrabTool() const;
    Tool AddTool() const;
    Tool RubberTool() const;

    void MoveOverviewToCorner();
    int WidthBesideOverview() const;

    void ResetSession();
    void ShowFrame(const QImage& image);
    void StartControllerThread();
    void DisableCameraButtons();
    void EnableDefectCommands(bool dpcSupported);
    void EditDefect(int x, int y, int width, int height, int type);
    // The buttons of the modes, by mode number.
    std::array<QPushButton*, 3> ExposureModeButtons() const;
    std::array<QPushButton*, 3> GainModeButtons() const;
    static void ShowMode(int mode, QWidget& group, const std::array<QPushButton*, 3>& buttons);
    void ChooseExposureMode(int mode);
    void ChooseGainMode(int mode);
    // Fills the right panel once for each camera.
    void SetCorrectionSet();
    bool UploadPlain(const QString& name);
    bool UploadWithMetadata(const std::string& name);
    void WriteAndShow(const std::string& name, const std::map<std::string, double>& metadata);
    void OfferRestart();
    void RestartCamera();
    static void ShowCaptionActive(QLabel* caption, bool active);

    // In place of the one before. Sizes in sensor pixels.
    void MakeDetectorDialog(const QString& pixelFormat, int width, int height, const std::vector<int>& defects);
    void ConnectDetectorDialog();
    void EnableButtonsOffDuringDetection(bool enabled);
    // The position in the box of formats that the detection is to choose, -1 when no format will do.
    int FormatIndexForDetection(const QString& format) const;
    // What the detection that is open has changed in the camera; nothing when none is.
    void ShowDetectionWarning();
    void EndDetectionOfSession();

    // Starts a stream again that was stopped for a step.
    void ResumeStream(bool wasStreaming);
    // What the busy state takes out of use.
    std::vector<QWidget*> WidgetsOffWhileBusy() const;
    // The next loader step, shown before and after which pending events run.
    void NextLoaderStep();

    bool m_cameraChosen = false;
    bool m_overviewPlaced = false;
    bool m_firstFrameShown = false;
    bool m_correctionSetsLoaded = false;
    bool m_cameraSettingsLoaded = false;
    bool m_dpcSupported = false;
    bool m_imageThreadStarted = false;
    bool m_temperatureWarningOpen = false;
    bool m_playPauseShortcutLocked = false;
    bool m_automaticOverview = false;
    bool m_tutorialFinished = false;
    bool m_automaticDetectionEnabled = true;
    bool m_pixelEditingEnabled = true;
    int m_cameraIndex = -1;
    int m_sensorWidth = 0;
    int m_sensorHeight = 0;
    QString m_switchedOffSet;     // by the latest detection
    QString m_changedFormat;      // by the latest detection; empty when it left the format
    bool m_detectionOpen = false; // from the click on its button until its dialog is closed
    unsigned m_shownFrameCount = 0;
    QPointer<QWidget> m_focusBeforeLoader;
    std::array<QPixmap, 2> m_framePixmaps; // shown in turn
    int m_currentTool = 0;
    QGraphicsScene* m_scene = nullptr;
    QGraphicsPixmapItem* m_imageItem = nullptr; // the scene's
    std::unique_ptr<Ui::MainWindowClass> m_ui;
    std::unique_ptr<KeyEnterReceiver> m_keyReceiver;
    QTimer m_streamCheckTimer;
    QTimer m_playPauseShortcutTimer;
    QTimer m_rightPanelOpenTimer;
    QTimer m_exposureWaitTimer;
    LeftPanel* m_cameraListPanel = nullptr;
    CameraOptionPanel* m_optionPanel = nullptr;
    OverviewPanel* m_overviewPanel = nullptr;
    RightPanel* m_rightPanel = nullptr;
    CustomLabelView* m_overviewLabel = nullptr;
    CustomListView* m_cameraListView = nullptr;
    BottomPanel* m_bottomPanel = nullptr;
    LoaderDialog* m_loaderDialog = nullptr;
    OnboardDialog* m_onboardDialog = nullptr;
    AutomaticDetectorDialog* m_detectorDialog = nullptr; // null after a refused detection
    QTreeView* m_pixelListView = nullptr;
    TreeModel* m_treeModel = nullptr;
    std::unique_ptr<QSizeGrip> m_sizeGrip;
    QString m_cameraId;
    std::vector<int> m_availableDefects; // DefectUiType values
    QVector<DefectInfo> m_copiedPixelList;
    std::unique_ptr<QTranslator> m_translator;
    QString m_apiVersion;
    ImageDoubleBuffer m_imageBuffer;
    WindowOverlay m_windowOverlay;
    std::unique_ptr<QThread> m_imageThread; // the controller's
    std::unique_ptr<AsynchronousCameraController> m_controller;
};
