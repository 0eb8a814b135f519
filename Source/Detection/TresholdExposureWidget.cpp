// Configuration page of the automatic detection: threshold, gain, exposure and the limit of defects.
#include "TresholdExposureWidget.h"

#include "CameraOptionPanelStyle.h"
#include "ValueControl.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

#include <algorithm>
#include <limits>

namespace
{

constexpr int FirstTreshold = 40;
constexpr float FirstLimitShare = 0.005F; // of the sensor's pixels
constexpr int LastExposurePosition = 1'000'000;
constexpr double LongExposure = 1'000'000.0; // microseconds
constexpr double FramesToWaitFor = 4.0;
constexpr double PositionsPerGainUnit = 100.0;
constexpr int GainDecimals = 1;
constexpr int ExposureDecimals = 3;
constexpr int MostBits = 30;
constexpr QSize BesideField(30, 22); // pixels; the same for all controls, so that their fields stand in one column

int GainPosition(double gain)
{
    return static_cast<int>(std::clamp(gain * PositionsPerGainUnit,
                                       static_cast<double>(std::numeric_limits<int>::min()),
                                       static_cast<double>(std::numeric_limits<int>::max())));
}

} // namespace

TresholdExposureWidget::TresholdExposureWidget(int pixelDepth, int pixelCount, QWidget* parent)
    : QWidget(parent),
      m_maxValue((1 << std::clamp(pixelDepth, 1, MostBits)) - 1),
      m_titleLabel(new QLabel(this)),
      m_noteLabel(new QLabel(this)),
      m_treshold(new ValueControl({"sliderTreshold", "currentTresholdLabel", "minTresholdLabel", "maxTresholdLabel"}, 0,
                                  this)),
      m_tresholdLabel(new QLabel(this)),
      m_gainControl(
          new ValueControl({"sliderGain", "currentGainLabel", "minGainLabel", "maxGainLabel"}, GainDecimals, this)),
      m_exposureControl(new ValueControl(
          {"sliderExposure", "currentExposureLabel", "minExposureLabel", "maxExposureLabel"}, ExposureDecimals, this)),
      m_exposureWarningLabel(new QLabel(this)),
      m_defectLimit(new ValueControl(
          {"sliderDefectLimit", "defectLimitLabel", "minDefectLimitLabel", "maxDefectLimitLabel"}, 0, this)),
      m_backButton(new QPushButton(this)),
      m_startDetectionButton(new QPushButton(this))
{
    BuildLayout();

    m_exposureControl->SetSliderRange(0, LastExposurePosition);
    m_exposureControl->SetSliderSteps(LastExposurePosition / 1000, LastExposurePosition / 20);
    m_treshold->SetSliderRange(0, m_maxValue);
    m_treshold->SetSliderSteps(1, 10);
    m_treshold->ShowRange(0, m_maxValue);
    m_treshold->Slider().setEnabled(true);
    m_defectLimit->SetSliderRange(0, pixelCount);
    m_defectLimit->SetSliderSteps(std::max(1, pixelCount / 1000), std::max(1, pixelCount / 20));
    m_defectLimit->ShowRange(0, pixelCount);
    m_defectLimit->Slider().setEnabled(true);

    MakeConnections();
    m_treshold->Slider().setValue(FirstTreshold);
    m_defectLimit->Slider().setValue(static_cast<int>(static_cast<float>(pixelCount) * FirstLimitShare));
    OnDefectLimitSliderReleased();
    SetStrings();
}

// A field that has the focus reports the end of its editing while it is destroyed, which is after this part.
TresholdExposureWidget::~TresholdExposureWidget()
{
    for (QObject* child : findChildren<QObject*>())
    {
        child->disconnect(this);
    }
}

void TresholdExposureWidget::BuildLayout()
{
    m_titleLabel->setObjectName(QStringLiteral("pageTitleLabel"));
    m_titleLabel->setProperty("pageHeader", true);
    m_noteLabel->setObjectName(QStringLiteral("noteLabel"));
    m_noteLabel->setWordWrap(true);
    setFocusProxy(&m_treshold->Slider());
    m_tresholdLabel->setObjectName(QStringLiteral("tresholdLabel"));
    m_exposureWarningLabel->setObjectName(QStringLiteral("exposureWarningLabel"));
    m_exposureWarningLabel->setWordWrap(true);
    m_exposureWarningLabel->setStyleSheet(QStringLiteral("color: rgb(242,201,76);"));
    m_exposureWarningLabel->hide();
    m_backButton->setObjectName(QStringLiteral("backButton"));
    m_startDetectionButton->setObjectName(QStringLiteral("startDetectionButton"));
    m_startDetectionButton->setProperty("primary", true);
    // The enter key ends the editing of a text here, and nothing else.
    m_backButton->setAutoDefault(false);
    m_startDetectionButton->setAutoDefault(false);

    auto* unit = new QLabel(QStringLiteral("µs"), this);
    unit->setObjectName(QStringLiteral("labelUnit"));
    unit->setIndent(4);
    const std::pair<ValueControl*, QLabel*> beside[] = {{m_treshold, m_tresholdLabel},
                                                        {m_gainControl, new QLabel(this)},
                                                        {m_exposureControl, unit},
                                                        {m_defectLimit, new QLabel(this)}};
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(12);
    rows->addWidget(m_titleLabel);
    for (const auto& [control, label] : beside)
    {
        label->setFixedSize(BesideField);
        control->AddBeside(label);
        control->setStyleSheet(QLatin1String(CameraOptionPanelStyle));
        rows->addWidget(control);
        if (control == m_exposureControl)
        {
            rows->addWidget(m_exposureWarningLabel);
        }
    }
    rows->addWidget(m_noteLabel);
    rows->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(m_backButton);
    buttons->addWidget(m_startDetectionButton);
    rows->addLayout(buttons);
}

void TresholdExposureWidget::MakeConnections()
{
    connect(&m_treshold->Slider(), &QSlider::valueChanged, this, &TresholdExposureWidget::OnTresholdMoved);
    connect(&m_gainControl->Slider(), &QSlider::sliderReleased, this, &TresholdExposureWidget::OnGainSliderReleased);
    connect(&m_exposureControl->Slider(), &QSlider::sliderReleased, this,
            &TresholdExposureWidget::OnExposureSliderReleased);
    connect(&m_defectLimit->Slider(), &QSlider::sliderReleased, this,
            &TresholdExposureWidget::OnDefectLimitSliderReleased);

    connect(&m_treshold->Field(), &QLineEdit::editingFinished, this, &TresholdExposureWidget::OnTresholdTextChanged);
    connect(&m_gainControl->Field(), &QLineEdit::editingFinished, this, &TresholdExposureWidget::OnGainTextChanged);
    connect(&m_exposureControl->Field(), &QLineEdit::editingFinished, this,
            &TresholdExposureWidget::OnExposureTextChanged);
    connect(&m_defectLimit->Field(), &QLineEdit::editingFinished, this,
            &TresholdExposureWidget::OnDefectLimitTextChanged);
}

void TresholdExposureWidget::OnTresholdMoved(int value)
{
    m_treshold->ShowValue(value);
    const int grey = static_cast<int>(qint64{value} * 255 / m_maxValue);
    m_tresholdLabel->setStyleSheet(
        QStringLiteral("margin-left: 6px; background-color: %1; border: 1px solid rgb(89,89,89);")
            .arg(QColor(grey, grey, grey).name()));
}

void TresholdExposureWidget::OnTresholdTextChanged()
{
    if (const std::optional<double> value = m_treshold->TakeTypedValue())
    {
        const int treshold = static_cast<int>(*value);
        m_treshold->Slider().setValue(treshold);
        m_treshold->ShowValue(treshold);
    }
}

void TresholdExposureWidget::SetGainSliderValues(double min, double max, double current)
{
    m_gain = current;
    m_gainControl->SetSliderRange(GainPosition(min), GainPosition(max));
    m_gainControl->SetSliderSteps(10, std::max(10, (GainPosition(max) - GainPosition(min)) / 20));
    m_gainControl->MoveSlider(GainPosition(current));
    m_gainControl->Slider().setEnabled(true);
    m_gainControl->ShowRange(min, max);
    m_gainControl->ShowValue(current);
}

void TresholdExposureWidget::OnGainSliderReleased()
{
    m_gain = m_gainControl->Slider().value() / PositionsPerGainUnit;
    m_gainControl->ShowValue(m_gain);
}

// Not brought into the range: the camera's settings do that.
void TresholdExposureWidget::OnGainTextChanged()
{
    NumberField& field = m_gainControl->Field();
    if (field.IsPassedOver())
    {
        return;
    }
    const std::optional<double> gain = field.ReadNumber();
    if (!gain)
    {
        field.RestoreText();
        return;
    }
    field.AcceptText();
    m_gainControl->MoveSlider(GainPosition(*gain));
    m_gain = *gain;
}

void TresholdExposureWidget::SetExposureSliderValues(double min, double max, double current, int maximumPosition)
{
    QSlider& slider = m_exposureControl->Slider();
    m_exposureScale.SetRange(min, max, slider.minimum(), slider.maximum());
    m_exposureControl->SetSliderRange(0, maximumPosition);
    slider.setEnabled(true);
    m_exposureControl->ShowRange(min, max);
    m_exposureControl->Field().setText(QString::number(current));
    OnExposureTextChanged();
}

void TresholdExposureWidget::OnExposureSliderReleased()
{
    m_exposure = m_exposureScale.ValueAt(m_exposureControl->Slider().value());
    m_exposureControl->ShowValue(m_exposure);
    UpdateWarning();
}

void TresholdExposureWidget::OnExposureTextChanged()
{
    if (const std::optional<double> exposure = m_exposureControl->TakeTypedValue())
    {
        m_exposure = *exposure;
        m_exposureControl->MoveSlider(m_exposureScale.PositionOf(m_exposure));
        UpdateWarning();
    }
}

void TresholdExposureWidget::OnDefectLimitSliderReleased()
{
    m_defectLimit->ShowValue(m_defectLimit->Slider().value());
}

void TresholdExposureWidget::OnDefectLimitTextChanged()
{
    if (const std::optional<double> limit = m_defectLimit->TakeTypedValue())
    {
        m_defectLimit->MoveSlider(static_cast<int>(*limit));
        OnDefectLimitSliderReleased();
    }
}

void TresholdExposureWidget::UpdateWarning()
{
    const bool isLong = m_exposure > LongExposure;
    m_exposureWarningLabel->setText(isLong ? tr("Warning, too high exposure! Detection will take ca. %1 seconds")
                                                 .arg(static_cast<qint64>(m_exposure / LongExposure * FramesToWaitFor))
                                           : QString());
    m_exposureWarningLabel->setVisible(isLong);
}

int TresholdExposureWidget::GetTresholdValue() const
{
    return m_treshold->Slider().value();
}

int TresholdExposureWidget::GetDefectLimitValue() const
{
    return m_defectLimit->Slider().value();
}

int TresholdExposureWidget::GetMaxExposurePosition() const
{
    return m_exposureControl->Slider().maximum();
}

void TresholdExposureWidget::SetStrings()
{
    m_titleLabel->setText(tr("Set Threshold"));
    m_treshold->SetCaption(tr("Threshold"));
    m_gainControl->SetCaption(tr("Gain"));
    m_exposureControl->SetCaption(tr("Exposure"));
    m_defectLimit->SetCaption(tr("Defect limit"));
    m_noteLabel->setText(tr("Changes will only take effect when the detection is started.\nNote that \"Start "
                            "detection\" switches off auto gain and auto exposure."));
    m_backButton->setText(tr("Back"));
    m_startDetectionButton->setText(tr("Start detection"));
    UpdateWarning();
}
