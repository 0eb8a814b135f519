// Side panel with the camera's settings.
#include "CameraOptionPanel.h"

#include "ValueControl.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr char BAYER_FORMAT_REG_EXP[] = "Bayer(GR|RG|BG|GB)8";

constexpr int GammaSlider = 0;
constexpr int GainSlider = 1;
constexpr int ExposureSlider = 2;
constexpr int BlackLevelSlider = 3;
constexpr int SetpointSlider = 4;
constexpr int SetpointSelectorBox = 5;
constexpr int ControlModeBox = 6;
constexpr int SetpointModeBox = 7;

constexpr int ExposureDecimals = 3;
constexpr int GainDecimals = 1;

constexpr double PositionsPerUnit = 100.0;
// Room beside the items of a list that pops up: padding, border and scroll bar.
constexpr int ListMargin = 24;
// A click beside the handle of a slider moves it by this part of its range.
constexpr int PagesPerRange = 20;

constexpr char ControlStateStyle[] =
    "QLineEdit{\nborder-radius:6px;\nborder:1px solid rgb(89,89,89);\nbackground-color:rgb(37,38,39);\n"
    "color: #dbdbdb;\nborder-radius: 6px;\npadding: 1px 0px 1px 3px;\nfont-size: 12px;\n}\n"
    "QLineEdit:disabled{\ncolor: %1\n}";
constexpr char StableColor[] = "#7d8185";
constexpr char WarningColor[] = "#ffff00";

// Positions for one press of an arrow key: one unit of the last shown decimal, or a whole degree; for the exposure a
// thousandth of the scale.
int SingleStepOf(int slider)
{
    switch (slider)
    {
    case GammaSlider:
        return 1;
    case GainSlider:
        return 10;
    case ExposureSlider:
        return 1000;
    default:
        return 100;
    }
}

int LinearPosition(double value)
{
    const double position = value * PositionsPerUnit;
    if (std::isnan(position))
    {
        return 0;
    }
    return static_cast<int>(std::clamp(position, static_cast<double>(std::numeric_limits<int>::min()),
                                       static_cast<double>(std::numeric_limits<int>::max())));
}

// Sends nothing. An item that the box does not have leaves it without a selection instead of a wrong one.
void UpdateItems(QComboBox& box, const QStringList& items, const QString& currentItem)
{
    const QSignalBlocker blocker(box);
    if (!items.isEmpty())
    {
        box.clear();
        box.addItems(items);
        box.view()->setMinimumWidth(box.view()->sizeHintForColumn(0) + ListMargin);
    }
    if (!currentItem.isEmpty())
    {
        box.setCurrentIndex(box.findText(currentItem));
    }
}

} // namespace

CameraOptionPanel::CameraOptionPanel(QWidget* parent) : QWidget(parent)
{
    BuildLayout();
    MakeConnections();
    SetStrings();
    OnControlStateChanged(QString());
    InitTemperatureWidgets(false);
    InitNucWidgets(false);
}

// A field that has the focus reports the end of its editing while it is destroyed, which is after this part of the
// panel.
CameraOptionPanel::~CameraOptionPanel()
{
    for (QObject* child : findChildren<QObject*>())
    {
        child->disconnect(this);
    }
}

void CameraOptionPanel::MakeConnections()
{
    connect(m_pixelFormatComboBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CameraOptionPanel::OnPixelFormatChanged);

    connect(&m_exposure->Slider(), &QSlider::sliderReleased, this, &CameraOptionPanel::OnExposureSliderReleased);
    connect(&m_gamma->Slider(), &QSlider::valueChanged, this, &CameraOptionPanel::OnGammaSliderChange);
    connect(&m_blackLevel->Slider(), &QSlider::sliderReleased, this, &CameraOptionPanel::OnBlackLevelSliderReleased);
    connect(&m_gain->Slider(), &QSlider::sliderReleased, this, &CameraOptionPanel::OnGainSliderReleased);
    connect(&m_setpoint->Slider(), &QSlider::sliderReleased, this, &CameraOptionPanel::OnSetpointSliderReleased);

    connect(&m_exposure->Field(), &QLineEdit::editingFinished, this, &CameraOptionPanel::OnExposureTextChanged);
    connect(&m_gamma->Field(), &QLineEdit::editingFinished, this, &CameraOptionPanel::OnGammaTextChanged);
    connect(&m_blackLevel->Field(), &QLineEdit::editingFinished, this, &CameraOptionPanel::OnBlacklvlTextChanged);
    connect(&m_gain->Field(), &QLineEdit::editingFinished, this, &CameraOptionPanel::OnGainTextChanged);
    connect(&m_setpoint->Field(), &QLineEdit::editingFinished, this, &CameraOptionPanel::OnSetpointValueEdited);

    for (QComboBox* box : {m_cmbControlMode, m_cmbSetpointMode, m_cmbSetpointSelector})
    {
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &CameraOptionPanel::OnComboboxItemSelected);
    }
    connect(m_btnActivateSetpoint, &QPushButton::clicked, this, &CameraOptionPanel::OnPressActivateSetpoint);
    connect(m_cmbNucMode, qOverload<int>(&QComboBox::currentIndexChanged), this, &CameraOptionPanel::OnNucModeSelected);
}

ValueControl* CameraOptionPanel::ControlOf(int slider) const
{
    switch (slider)
    {
    case GammaSlider:
        return m_gamma;
    case GainSlider:
        return m_gain;
    case ExposureSlider:
        return m_exposure;
    case BlackLevelSlider:
        return m_blackLevel;
    case SetpointSlider:
        return m_setpoint;
    default:
        return nullptr;
    }
}

QComboBox* CameraOptionPanel::ComboBoxOf(int number) const
{
    switch (number)
    {
    case SetpointSelectorBox:
        return m_cmbSetpointSelector;
    case ControlModeBox:
        return m_cmbControlMode;
    case SetpointModeBox:
        return m_cmbSetpointMode;
    default:
        return nullptr;
    }
}

int CameraOptionPanel::PositionOf(double value, int slider) const
{
    return slider == ExposureSlider ? m_exposureScale.PositionOf(value) : LinearPosition(value);
}

double CameraOptionPanel::ValueAt(int position, int slider) const
{
    return slider == ExposureSlider ? m_exposureScale.ValueAt(position) : position / PositionsPerUnit;
}

void CameraOptionPanel::SetSliders(double min, double max, double value, int slider)
{
    ValueControl* control = ControlOf(slider);
    if (control == nullptr)
    {
        return;
    }
    if (slider == ExposureSlider)
    {
        m_exposureScale.SetRange(min, max, control->Slider().minimum(), control->Slider().maximum());
    }
    else
    {
        control->SetSliderRange(LinearPosition(min), LinearPosition(max));
    }
    const double extent = static_cast<double>(control->Slider().maximum()) - control->Slider().minimum();
    const int step = SingleStepOf(slider);
    const int pages = static_cast<int>(extent / PagesPerRange / step);
    control->SetSliderSteps(step, step * std::max(1, pages));
    control->MoveSlider(PositionOf(value, slider));
    control->Slider().setEnabled(true);
    control->ShowRange(min, max);
    control->ShowValue(value);
}

void CameraOptionPanel::LockChosenSliders(int type, bool locked)
{
    ValueControl* control = ControlOf(type);
    if (control != nullptr && type != SetpointSlider)
    {
        control->Slider().setDisabled(locked);
    }
}

void CameraOptionPanel::SetUpdatedSliderValues(double value, int slider)
{
    if (slider != ExposureSlider && slider != BlackLevelSlider && slider != GainSlider)
    {
        return;
    }
    const QSignalBlocker blocker(this);
    ControlOf(slider)->MoveSlider(PositionOf(value, slider));
    SendPosition(slider);
}

void CameraOptionPanel::SendPosition(int slider)
{
    ValueControl* control = ControlOf(slider);
    const double value = ValueAt(control->Slider().value(), slider);
    control->ShowValue(value);
    Q_EMIT SendChangedSliderValue(value, slider);
}

void CameraOptionPanel::SendTypedValue(int slider)
{
    ValueControl* control = ControlOf(slider);
    const std::optional<double> value = control->TakeTypedValue();
    if (!value)
    {
        return;
    }
    Q_EMIT SendChangedSliderValue(*value, slider);
    control->MoveSlider(PositionOf(*value, slider));
}

void CameraOptionPanel::OnExposureSliderReleased()
{
    SendPosition(ExposureSlider);
}

void CameraOptionPanel::OnGammaSliderChange()
{
    SendPosition(GammaSlider);
}

void CameraOptionPanel::OnGainSliderReleased()
{
    SendPosition(GainSlider);
}

void CameraOptionPanel::OnBlackLevelSliderReleased()
{
    SendPosition(BlackLevelSlider);
}

void CameraOptionPanel::OnSetpointSliderReleased()
{
    SendPosition(SetpointSlider);
}

void CameraOptionPanel::OnExposureTextChanged()
{
    SendTypedValue(ExposureSlider);
}

void CameraOptionPanel::OnGammaTextChanged()
{
    SendTypedValue(GammaSlider);
}

void CameraOptionPanel::OnGainTextChanged()
{
    SendTypedValue(GainSlider);
}

void CameraOptionPanel::OnBlacklvlTextChanged()
{
    SendTypedValue(BlackLevelSlider);
}

void CameraOptionPanel::OnSetpointValueEdited()
{
    NumberField& field = m_setpoint->Field();
    if (field.IsPassedOver())
    {
        return;
    }
    const std::optional<double> value = field.ReadNumber();
    if (!value || !m_setpoint->HasRange())
    {
        field.RestoreText();
        return;
    }
    m_setpoint->MoveSlider(LinearPosition(*value));
    OnSetpointSliderReleased();
}

double CameraOptionPanel::GetMaxExposureValue() const
{
    return m_exposureScale.ValueAt(GetMaximumAutomaticExposure());
}

double CameraOptionPanel::GetMinExposureValue() const
{
    return m_exposureScale.GetMinimum();
}

int CameraOptionPanel::GetMaximumAutomaticExposure() const
{
    return m_exposure->Slider().maximum();
}

void CameraOptionPanel::SetValuesFromAutomatic(double exposure, double gain)
{
    m_autoExposure.off->click();
    m_exposure->Field().setText(QString::number(exposure, 'f', ExposureDecimals));
    OnExposureTextChanged();
    m_autoGain.off->click();
    m_gain->Field().setText(QString::number(gain, 'f', GainDecimals));
    OnGainTextChanged();
}

void CameraOptionPanel::SetPixelFormats(QStringList list, QString currentValue)
{
    const QSignalBlocker blocker(m_pixelFormatComboBox);
    CheckFormatToDebayering(currentValue);
    m_pixelFormatComboBox->clear();
    m_pixelFormatComboBox->addItems(list);
    m_acceptedPixelFormat = m_pixelFormatComboBox->findText(currentValue);
    m_pixelFormatComboBox->setCurrentIndex(m_acceptedPixelFormat);
}

void CameraOptionPanel::SetBoxIndexToDefault()
{
    const QSignalBlocker blocker(this);
    m_pixelFormatComboBox->setCurrentIndex(m_acceptedPixelFormat);
}

void CameraOptionPanel::OnPixelFormatChanged(int index)
{
    if (index == -1)
    {
        return;
    }
    const QString format = m_pixelFormatComboBox->itemText(index);
    CheckFormatToDebayering(format);
    Q_EMIT SendNewPixelFormat(format);
}

bool CameraOptionPanel::CheckBayerFormat(QString format)
{
    static const QRegularExpression bayerFormat(
        QRegularExpression::anchoredPattern(QLatin1String(BAYER_FORMAT_REG_EXP)));
    return bayerFormat.match(format).hasMatch();
}

void CameraOptionPanel::CheckFormatToDebayering(QString format)
{
    const bool isBayerFormat = CheckBayerFormat(format);
    m_debayeringOnOff->setEnabled(isBayerFormat);
    if (!isBayerFormat)
    {
        Q_EMIT SetDebayeringtoDefault();
    }
}

int CameraOptionPanel::findPixelFormat(QString formatRegExp)
{
    return m_pixelFormatComboBox->findText(QRegularExpression::anchoredPattern(formatRegExp),
                                           Qt::MatchRegularExpression);
}

bool CameraOptionPanel::BayerFormatAvailable()
{
    return findPixelFormat(QLatin1String(BAYER_FORMAT_REG_EXP)) != -1;
}

void CameraOptionPanel::OnControlStateChanged(QString value)
{
    m_editControlState->setText(value);
    m_editControlState->setCursorPosition(0);
    m_editControlState->setToolTip(value.toHtmlEscaped());
    const bool isStable = value == QLatin1String("Stable");
    const QString style =
        QString::fromLatin1(ControlStateStyle).arg(QLatin1String(isStable ? StableColor : WarningColor));
    // The state comes twice a second; a style is costly to set.
    if (m_editControlState->styleSheet() != style)
    {
        m_editControlState->setStyleSheet(style);
    }
}

void CameraOptionPanel::OnActiveSetpointChanged(QString value)
{
    m_editActiveSetpoint->setText(value);
}

void CameraOptionPanel::SetUpdatedComboboxValues(QStringList items, QString currentItem, int combobox)
{
    QComboBox* box = ComboBoxOf(combobox);
    if (box != nullptr)
    {
        UpdateItems(*box, items, currentItem);
    }
}

void CameraOptionPanel::OnComboboxItemSelected(int index)
{
    if (index == -1)
    {
        return;
    }
    for (const int number : {SetpointSelectorBox, ControlModeBox, SetpointModeBox})
    {
        const QComboBox* box = ComboBoxOf(number);
        if (box == sender())
        {
            Q_EMIT SendChangedComboboxValue(box->currentText(), number);
        }
    }
}

void CameraOptionPanel::OnPressActivateSetpoint()
{
    if (m_btnActivateSetpoint->isChecked())
    {
        Q_EMIT SendActivateSetpoint();
    }
}

void CameraOptionPanel::ReleaseSetpointButton()
{
    m_btnActivateSetpoint->setChecked(false);
}

void CameraOptionPanel::SetNucModeValues(QStringList items, QString currentItem)
{
    UpdateItems(*m_cmbNucMode, items, currentItem);
}

void CameraOptionPanel::OnNucModeSelected(int index)
{
    if (index != -1)
    {
        Q_EMIT SendNucModeValue(m_cmbNucMode->currentText());
    }
}

void CameraOptionPanel::SetNucDescription(QString description)
{
    m_lblDatasetActiveDescr->setText(description);
    m_lblDatasetActiveDescr->setToolTip(description.toHtmlEscaped());
}

void CameraOptionPanel::InitTemperatureWidgets(bool active)
{
    m_frameTemperatureControl->setEnabled(active);
    m_frameTemperatureControl->setVisible(active);
}

void CameraOptionPanel::InitNucWidgets(bool active)
{
    m_frameNucControl->setEnabled(active);
    m_frameNucControl->setVisible(active);
}
