// Leads the user through one automatic detection.
#pragma once

#include "FramelessDialog.h"

#include <QImage>
#include <QPointer>

#include <vector>

class AutomaticDetectorLoader;
class AutomaticDetectorStarter;
class DetectionRun;
class QPushButton;
class QSizeGrip;
class TreeModel;
class TresholdExposureWidget;

// Three pages, of which one shows at a time: what to do before, the configuration, the search with its result. It does
// not know the camera: it asks for exposure and gain by a signal and is handed a frame in which one image pixel is one
// sensor pixel. The receiver of CloseDialog closes it and stops the search. GUI thread; the search has a thread of its
// own.
class AutomaticDetectorDialog : public FramelessDialog
{
    Q_OBJECT

public:
    // treeModel is borrowed: it takes the defects that the user accepts. pixelFormat: its first number is the depth of
    // a pixel in bits. width, height: of the sensor, in pixels. supportedDefects: the DefectUiType values that the
    // camera can store.
    AutomaticDetectorDialog(QWidget* parent, TreeModel* treeModel, const QString& pixelFormat, int width, int height,
                            const std::vector<int>& supportedDefects);
    ~AutomaticDetectorDialog() override;

    // Shows the dialog over its parent's window; not modal.
    static void executeDialog(AutomaticDetectorDialog* dialog);

    // Rich text about what was changed in the camera; an empty one is not shown.
    void SetWarningText(const QString& text);
    // Searches the frame, unless the user has stopped meanwhile.
    void SetImage(QImage frame);
    // Exposures in microseconds; maximumPosition: the last one of the slider.
    void SetExposureRange(double min, double max, double current, int maximumPosition);
    void SetGainRange(double min, double max, double current);

    // The escape key asks to be closed like the exit button.
    void reject() override;

Q_SIGNALS:
    void SendExposureGain(double exposure, double gain);
    void CloseDialog();

public Q_SLOTS:
    void OnDetectionFinished();
    // Returns at once, with the result page shown; may be called at any time and more than once.
    void OnStopDetectClick();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private Q_SLOTS:
    void OnConfigureClick();
    void OnConfigStartClick();
    void OnStartClick();
    void OnConfigureBackClick();
    void OnContinueDetection();
    void OnCloseDetection();

private:
    void BuildLayout();
    void MakeConnections();
    void SetStrings() override;
    void StartDetection();
    void ShowPage(QWidget* page);
    void DiscardRun();
    void UpdateList();

    int m_width;
    int m_height;
    TreeModel* m_treeModel;
    int m_threshold;
    std::vector<int> m_supportedDefects;
    QPointer<DetectionRun> m_run; // the current search, or the one whose result shows
    QLabel* m_titleLabel = nullptr;
    QPushButton* m_exitButton = nullptr;
    QWidget* m_content = nullptr;
    AutomaticDetectorStarter* m_starter = nullptr;
    TresholdExposureWidget* m_tresholdWidget = nullptr;
    AutomaticDetectorLoader* m_loader = nullptr;
    QSizeGrip* m_sizeGrip = nullptr;
    bool m_cancelled = false;
};
