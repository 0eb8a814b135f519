// Side panel with the camera's settings.
#pragma once

#include "ExposureScale.h"

#include <QString>
#include <QStringList>
#include <QWidget>

class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class ValueControl;

// Shows values that come in by the slots and sends by signals what the user changes; it has no camera access. What the
// slots show is not sent back. Sliders and combo boxes go by number: sliders 0 gamma, 1 gain, 2 exposure, 3 black
// level, 4 temperature setpoint; boxes 5 setpoint selector, 6 control mode, 7 setpoint mode. GUI thread.
class CameraOptionPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CameraOptionPanel(QWidget* parent = nullptr);
    ~CameraOptionPanel() override;

    // Back to the pixel format that the camera had when the list of formats came in; sends nothing.
    void SetBoxIndexToDefault();
    // Exposures in microseconds, as last given by SetSliders; the maximum is what the end of the slider stands for.
    double GetMaxExposureValue() const;
    double GetMinExposureValue() const;
    // The last position of the exposure slider.
    int GetMaximumAutomaticExposure() const;
    // Switches both auto modes off, then shows and sends the exposure and the gain.
    void SetValuesFromAutomatic(double exposure, double gain);

    QPushButton* RestoreDefaultButton() const { return m_restoreDefaultButton; }
    QComboBox* PixelFormatBox() const { return m_pixelFormatComboBox; }
    // Checked while frames are shown raw.
    QPushButton* DebayeringButton() const { return m_debayeringOnOff; }
    QWidget* AutoExposureWidget() const { return m_autoExposure.widget; }
    QPushButton* OffAutoExposure() const { return m_autoExposure.off; }
    QPushButton* OnceAutoExposure() const { return m_autoExposure.once; }
    QPushButton* ContinuousAutoExposure() const { return m_autoExposure.continuous; }
    QWidget* AutoGainWidget() const { return m_autoGain.widget; }
    QPushButton* OffAutoGain() const { return m_autoGain.off; }
    QPushButton* OnceAutoGain() const { return m_autoGain.once; }
    QPushButton* ContinuousAutoGain() const { return m_autoGain.continuous; }

    // As wide as the widest row needs in the current language, never below the usual width of the panel.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void SetSliders(double min, double max, double value, int slider);
    void SetPixelFormats(QStringList list, QString currentValue);
    void LockChosenSliders(int type, bool locked);
    // The result of an auto mode, for the exposure, the gain and the black level.
    void SetUpdatedSliderValues(double value, int slider);
    // True for the four Bayer formats with 8 bits.
    bool CheckBayerFormat(QString format);
    bool BayerFormatAvailable();
    // Index of the first pixel format that the expression matches as a whole, or -1.
    int findPixelFormat(QString formatRegExp);
    void OnControlStateChanged(QString value);
    void OnActiveSetpointChanged(QString value);
    // An empty list keeps the items, an empty current item the selection.
    void SetUpdatedComboboxValues(QStringList items, QString currentItem, int combobox);
    void SetNucModeValues(QStringList items, QString currentItem);
    void SetNucDescription(QString description);
    void InitTemperatureWidgets(bool active);
    void InitNucWidgets(bool active);
    void ReleaseSetpointButton();

Q_SIGNALS:
    void SendChangedComboboxValue(QString value, int combobox);
    void SendChangedSliderValue(double value, int slider);
    void SendNewPixelFormat(QString format);
    void SetDebayeringtoDefault();
    void SendActivateSetpoint();
    void SendNucModeValue(QString mode);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void OnExposureSliderReleased();
    void OnGammaSliderChange();
    void OnGainSliderReleased();
    void OnBlackLevelSliderReleased();
    void OnPixelFormatChanged(int index);
    void OnBlacklvlTextChanged();
    void OnExposureTextChanged();
    void OnGainTextChanged();
    void OnGammaTextChanged();
    void OnSetpointSliderReleased();
    void OnSetpointValueEdited();
    void OnComboboxItemSelected(int index);
    void CheckFormatToDebayering(QString format);
    void OnPressActivateSetpoint();
    void OnNucModeSelected(int index);

private:
    struct AutoButtons
    {
        QWidget* widget = nullptr;
        QPushButton* off = nullptr;
        QPushButton* once = nullptr;
        QPushButton* continuous = nullptr;
    };

    void BuildLayout();
    QWidget* BuildHeader();
    QWidget* BuildPixelFormatGroup();
    QFrame* BuildTemperatureGroup();
    QFrame* BuildNucGroup();
    AutoButtons BuildAutoButtons(const char* widget, const char* off, const char* once, const char* continuous);
    QComboBox* BuildComboBox(const char* objectName);
    // Touched by the wheel only once they have the focus, so that scrolling the panel changes no setting.
    void GuardFromWheel(QWidget* widget);
    void MakeConnections();
    void SetStrings();

    // Null for a number that is no slider's.
    ValueControl* ControlOf(int slider) const;
    QComboBox* ComboBoxOf(int number) const;
    int PositionOf(double value, int slider) const;
    double ValueAt(int position, int slider) const;
    void SendPosition(int slider);
    void SendTypedValue(int slider);

    ExposureScale m_exposureScale;
    int m_acceptedPixelFormat = -1;

    QScrollArea* m_scrollArea = nullptr;
    QLabel* m_settingsLabel = nullptr;
    QPushButton* m_restoreDefaultButton = nullptr;
    QLabel* m_pixelFormatLabel = nullptr;
    QComboBox* m_pixelFormatComboBox = nullptr;
    QLabel* m_debayeringLabel = nullptr;
    QPushButton* m_debayeringOnOff = nullptr;

    ValueControl* m_exposure = nullptr;
    ValueControl* m_gamma = nullptr;
    ValueControl* m_blackLevel = nullptr;
    ValueControl* m_gain = nullptr;
    AutoButtons m_autoExposure;
    AutoButtons m_autoGain;

    QFrame* m_frameTemperatureControl = nullptr;
    QLabel* m_temperatureLabel = nullptr;
    QLabel* m_controlModeLabel = nullptr;
    QComboBox* m_cmbControlMode = nullptr;
    QLabel* m_controlStateLabel = nullptr;
    QLineEdit* m_editControlState = nullptr;
    QLabel* m_setpointModeLabel = nullptr;
    QComboBox* m_cmbSetpointMode = nullptr;
    QLabel* m_activeSetpointLabel = nullptr;
    QLineEdit* m_editActiveSetpoint = nullptr;
    ValueControl* m_setpoint = nullptr;
    QComboBox* m_cmbSetpointSelector = nullptr;
    QPushButton* m_btnActivateSetpoint = nullptr;

    QFrame* m_frameNucControl = nullptr;
    QLabel* m_nucModeLabel = nullptr;
    QComboBox* m_cmbNucMode = nullptr;
    QLabel* m_datasetActiveLabel = nullptr;
    QLabel* m_lblDatasetActiveDescr = nullptr;
};
