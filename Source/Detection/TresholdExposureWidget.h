// Configuration page of the automatic detection: threshold, gain, exposure and the limit of defects.
#pragma once

#include "ExposureScale.h"

#include <QWidget>

class QLabel;
class QPushButton;
class ValueControl;

// The exposure slider is logarithmic. Its scale rests on the range that the slider had before a range was set, not on
// the one set last. GUI thread.
class TresholdExposureWidget : public QWidget
{
    Q_OBJECT

public:
    // pixelDepth: bits of a grey value. pixelCount: of the sensor.
    TresholdExposureWidget(int pixelDepth, int pixelCount, QWidget* parent = nullptr);
    ~TresholdExposureWidget() override;

    // Exposures in microseconds; maximumPosition: the slider's last one.
    void SetExposureSliderValues(double min, double max, double current, int maximumPosition);
    void SetGainSliderValues(double min, double max, double current);
    void SetStrings();

    int GetTresholdValue() const;
    // The largest number of defects that is accepted.
    int GetDefectLimitValue() const;
    double GetExposureValue() const { return m_exposure; }
    double GetGainValue() const { return m_gain; }
    int GetMaxExposurePosition() const;

    QPushButton* BackButton() const { return m_backButton; }
    QPushButton* StartDetectionButton() const { return m_startDetectionButton; }

private:
    void BuildLayout();
    void MakeConnections();
    void OnTresholdMoved(int value);
    void OnTresholdTextChanged();
    void OnGainSliderReleased();
    void OnGainTextChanged();
    void OnExposureSliderReleased();
    void OnExposureTextChanged();
    void OnDefectLimitSliderReleased();
    void OnDefectLimitTextChanged();
    void UpdateWarning();

    ExposureScale m_exposureScale;
    double m_exposure = 0.0; // microseconds
    double m_gain = 0.0;
    int m_maxValue; // the brightest grey value
    QLabel* m_titleLabel;
    QLabel* m_noteLabel;
    ValueControl* m_treshold;
    QLabel* m_tresholdLabel; // shows the threshold as a grey
    ValueControl* m_gainControl;
    ValueControl* m_exposureControl;
    QLabel* m_exposureWarningLabel;
    ValueControl* m_defectLimit;
    QPushButton* m_backButton;
    QPushButton* m_startDetectionButton;
};
