// Widgets, layout and texts of the camera options panel.
#include "CameraOptionPanel.h"
#include "CameraOptionPanelStyle.h"
#include "DebayeringIcon.h"
#include "ValueControl.h"

#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int PanelWidth = 300;
constexpr int PanelHeight = 640;
constexpr int LowestHeight = 160;
constexpr int Margin = 16;
constexpr int GroupSpacing = 16;
constexpr int RowSpacing = 8;
constexpr int IconSize = 16;
constexpr int FullExposureScale = 1000000;
constexpr int RowHeight = 28;
// Texts of the camera beside a caption widen the panel up to here; what is longer shows in the tool tip or the list.
constexpr int WidestField = 240;
constexpr int ShownCharacters = 10;

QLabel* AddCaptionedRow(QGridLayout& grid, QWidget* field)
{
    auto* caption = new QLabel;
    caption->setBuddy(field);
    caption->setMinimumHeight(RowHeight);
    field->setMaximumWidth(WidestField);
    if (auto* box = qobject_cast<QComboBox*>(field))
    {
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        box->setMinimumContentsLength(0);
        box->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    }
    const int row = grid.rowCount();
    grid.addWidget(caption, row, 0);
    grid.addWidget(field, row, 1);
    return caption;
}

QLineEdit* MakeStateField(const char* objectName)
{
    auto* field = new QLineEdit;
    field->setObjectName(QLatin1String(objectName));
    field->setEnabled(false);
    field->setMinimumHeight(RowHeight);
    return field;
}

QFrame* MakeGroup(const char* objectName, QGridLayout*& grid)
{
    auto* group = new QFrame;
    group->setObjectName(QLatin1String(objectName));
    grid = new QGridLayout(group);
    grid->setContentsMargins(0, GroupSpacing, 0, 0);
    grid->setHorizontalSpacing(RowSpacing);
    grid->setVerticalSpacing(RowSpacing);
    grid->setColumnStretch(1, 1);
    return group;
}

} // namespace

void CameraOptionPanel::BuildLayout()
{
    setObjectName(QStringLiteral("CameraOptionPanel"));
    setAttribute(Qt::WA_StyledBackground);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    setStyleSheet(QLatin1String(CameraOptionPanelStyle));

    m_exposure =
        new ValueControl({"sliderExposure", "currentExposureLabel", "minExposureLabel", "maxExposureLabel"}, 3);
    m_exposure->SetSliderRange(0, FullExposureScale);
    m_autoExposure =
        BuildAutoButtons("autoExposureWidget", "offAutoExposure", "onceAutoExposure", "continuousAutoExposure");
    m_exposure->AddBelow(m_autoExposure.widget);
    m_gamma = new ValueControl({"sliderGamma", "currentGammaLabel", "minGammaLabel", "maxGammaLabel"}, 2);
    m_blackLevel =
        new ValueControl({"sliderBlacklvl", "currentBlacklvlLabel", "minBlacklvlLabel", "maxBlacklvlLabel"}, 0);
    m_gain = new ValueControl({"sliderGain", "currentGainLabel", "minGainLabel", "maxGainLabel"}, 1);
    m_autoGain = BuildAutoButtons("autoGainWidget", "offAutoGain", "onceAutoGain", "continuousAutoGain");
    m_gain->AddBelow(m_autoGain.widget);
    m_setpoint =
        new ValueControl({"sliderSetpointValue", "editSetpointValue", "minSetpointValue", "maxSetpointValue"}, 1);
    for (ValueControl* control : {m_exposure, m_gamma, m_blackLevel, m_gain, m_setpoint})
    {
        GuardFromWheel(&control->Slider());
    }

    auto* contents = new QWidget;
    contents->setObjectName(QStringLiteral("optionContents"));
    contents->installEventFilter(this);
    auto* groups = new QVBoxLayout(contents);
    groups->setContentsMargins(Margin, Margin, Margin, Margin);
    groups->setSpacing(GroupSpacing);
    groups->addWidget(BuildHeader());
    groups->addWidget(BuildPixelFormatGroup());
    for (QWidget* group : {static_cast<QWidget*>(m_exposure), static_cast<QWidget*>(m_gamma),
                           static_cast<QWidget*>(m_blackLevel), static_cast<QWidget*>(m_gain)})
    {
        groups->addWidget(group);
    }
    m_frameTemperatureControl = BuildTemperatureGroup();
    groups->addWidget(m_frameTemperatureControl);
    m_frameNucControl = BuildNucGroup();
    groups->addWidget(m_frameNucControl);
    groups->addStretch();

    m_scrollArea = new QScrollArea;
    m_scrollArea->setObjectName(QStringLiteral("optionScrollArea"));
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setWidget(contents);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(m_scrollArea);
}

QWidget* CameraOptionPanel::BuildHeader()
{
    auto* header = new QWidget;
    header->setObjectName(QStringLiteral("optionHeader"));
    m_settingsLabel = new QLabel;
    m_settingsLabel->setObjectName(QStringLiteral("settingsLabel"));
    m_restoreDefaultButton = new QPushButton;
    m_restoreDefaultButton->setObjectName(QStringLiteral("restoreDefaultButton"));
    m_restoreDefaultButton->setIcon(QIcon(QStringLiteral(":/icons/resources/restore.svg")));
    m_restoreDefaultButton->setIconSize(QSize(IconSize, IconSize));
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_settingsLabel, 1);
    row->addWidget(m_restoreDefaultButton);
    return header;
}

QWidget* CameraOptionPanel::BuildPixelFormatGroup()
{
    auto* group = new QWidget;
    group->setObjectName(QStringLiteral("pixelFormatGroup"));
    m_pixelFormatLabel = new QLabel;
    m_pixelFormatComboBox = BuildComboBox("pixelFormatComboBox");
    m_pixelFormatLabel->setBuddy(m_pixelFormatComboBox);
    m_debayeringLabel = new QLabel;
    m_debayeringOnOff = new QPushButton;
    m_debayeringOnOff->setObjectName(QStringLiteral("debayeringOnOff"));
    m_debayeringOnOff->setCheckable(true);
    m_debayeringOnOff->setEnabled(false);
    m_debayeringOnOff->setIcon(Lorvane::MakeDebayeringIcon());
    m_debayeringOnOff->setIconSize(QSize(IconSize, IconSize));
    auto* grid = new QGridLayout(group);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(RowSpacing);
    grid->setColumnStretch(0, 1);
    grid->addWidget(m_pixelFormatLabel, 0, 0, 1, 2);
    grid->addWidget(m_pixelFormatComboBox, 1, 0, 1, 2);
    grid->addWidget(m_debayeringLabel, 2, 0);
    grid->addWidget(m_debayeringOnOff, 2, 1);
    return group;
}

QFrame* CameraOptionPanel::BuildTemperatureGroup()
{
    QGridLayout* grid = nullptr;
    QFrame* group = MakeGroup("frameTemperatureControl", grid);
    m_temperatureLabel = new QLabel;
    m_temperatureLabel->setProperty("groupTitle", true);
    grid->addWidget(m_temperatureLabel, 0, 0, 1, 2);
    m_cmbControlMode = BuildComboBox("cmbControlMode");
    m_controlModeLabel = AddCaptionedRow(*grid, m_cmbControlMode);
    m_editControlState = MakeStateField("editControlState");
    m_controlStateLabel = AddCaptionedRow(*grid, m_editControlState);
    m_cmbSetpointMode = BuildComboBox("cmbSetpointMode");
    m_setpointModeLabel = AddCaptionedRow(*grid, m_cmbSetpointMode);
    m_editActiveSetpoint = MakeStateField("editActiveSetpoint");
    m_activeSetpointLabel = AddCaptionedRow(*grid, m_editActiveSetpoint);

    m_cmbSetpointSelector = BuildComboBox("cmbSetpointSelector");
    m_btnActivateSetpoint = new QPushButton;
    m_btnActivateSetpoint->setObjectName(QStringLiteral("btnActivateSetpoint"));
    m_btnActivateSetpoint->setCheckable(true);
    auto* activation = new QWidget;
    auto* row = new QHBoxLayout(activation);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(RowSpacing);
    row->addWidget(m_cmbSetpointSelector, 1);
    row->addWidget(m_btnActivateSetpoint, 1);
    m_setpoint->AddBelow(activation);
    grid->addWidget(m_setpoint, grid->rowCount(), 0, 1, 2);
    return group;
}

QFrame* CameraOptionPanel::BuildNucGroup()
{
    QGridLayout* grid = nullptr;
    QFrame* group = MakeGroup("frameNucControl", grid);
    m_cmbNucMode = BuildComboBox("cmbNucMode");
    m_nucModeLabel = AddCaptionedRow(*grid, m_cmbNucMode);
    m_lblDatasetActiveDescr = new QLabel;
    m_lblDatasetActiveDescr->setObjectName(QStringLiteral("lblDatasetActiveDescr"));
    m_lblDatasetActiveDescr->setTextFormat(Qt::PlainText);
    m_lblDatasetActiveDescr->setWordWrap(true);
    m_lblDatasetActiveDescr->setMinimumHeight(RowHeight);
    m_datasetActiveLabel = AddCaptionedRow(*grid, m_lblDatasetActiveDescr);
    return group;
}

CameraOptionPanel::AutoButtons CameraOptionPanel::BuildAutoButtons(const char* widget, const char* off,
                                                                   const char* once, const char* continuous)
{
    AutoButtons buttons;
    buttons.widget = new QWidget;
    buttons.widget->setObjectName(QLatin1String(widget));
    auto* row = new QHBoxLayout(buttons.widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    const auto addButton = [row](const char* objectName, const char* segment)
    {
        auto* button = new QPushButton;
        button->setObjectName(QLatin1String(objectName));
        button->setProperty("segment", QLatin1String(segment));
        button->setCheckable(true);
        row->addWidget(button, 1);
        return button;
    };
    buttons.off = addButton(off, "first");
    buttons.once = addButton(once, "middle");
    buttons.continuous = addButton(continuous, "last");
    return buttons;
}

QComboBox* CameraOptionPanel::BuildComboBox(const char* objectName)
{
    auto* box = new QComboBox;
    box->setObjectName(QLatin1String(objectName));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(ShownCharacters);
    box->setMinimumHeight(RowHeight);
    GuardFromWheel(box);
    return box;
}

void CameraOptionPanel::GuardFromWheel(QWidget* widget)
{
    widget->setFocusPolicy(Qt::StrongFocus);
    widget->installEventFilter(this);
}

bool CameraOptionPanel::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(watched);
    if (m_scrollArea != nullptr && watched == m_scrollArea->widget())
    {
        if (event->type() == QEvent::LayoutRequest)
        {
            updateGeometry();
        }
    }
    else if (event->type() == QEvent::Wheel && widget != nullptr && !widget->hasFocus())
    {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

QSize CameraOptionPanel::sizeHint() const
{
    const QWidget* contents = m_scrollArea->widget();
    return {minimumSizeHint().width(), std::max(PanelHeight, contents->sizeHint().height())};
}

QSize CameraOptionPanel::minimumSizeHint() const
{
    const QWidget* contents = m_scrollArea->widget();
    const int scrollBarWidth = m_scrollArea->verticalScrollBar()->sizeHint().width();
    return {std::max(PanelWidth, contents->minimumSizeHint().width() + scrollBarWidth), LowestHeight};
}

void CameraOptionPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
        return;
    }
    QWidget::changeEvent(event);
}

void CameraOptionPanel::SetStrings()
{
    m_settingsLabel->setText(tr("Settings"));
    m_restoreDefaultButton->setToolTip(tr("<b>Reset</b> <br/> <span style='color:gray;'>Reset to default</span>"));
    m_restoreDefaultButton->setAccessibleName(tr("Reset"));
    m_pixelFormatLabel->setText(tr("Pixel format"));
    m_debayeringLabel->setText(tr("Debayering"));
    m_debayeringOnOff->setAccessibleName(tr("Debayering"));
    m_exposure->SetCaption(tr("Exposure"));
    m_gamma->SetCaption(tr("Gamma"));
    m_blackLevel->SetCaption(tr("BlackLevel"));
    m_gain->SetCaption(tr("Gain"));
    for (const AutoButtons& buttons : {m_autoExposure, m_autoGain})
    {
        buttons.continuous->setText(tr("Continuous"));
        buttons.once->setText(tr("Once"));
        buttons.off->setText(tr("Off"));
    }
    m_temperatureLabel->setText(tr("Sensor Temperature Control:"));
    m_controlModeLabel->setText(tr("Control mode"));
    m_controlStateLabel->setText(tr("Control state"));
    m_setpointModeLabel->setText(tr("Setpoint mode"));
    m_activeSetpointLabel->setText(tr("Active setpoint"));
    m_setpoint->SetCaption(tr("Temperature setpoint"));
    m_btnActivateSetpoint->setText(tr("Activate"));
    m_btnActivateSetpoint->setToolTip(tr("Activate selected setpoint"));
    m_datasetActiveLabel->setText(tr("Dataset active"));
    m_nucModeLabel->setText(tr("NUC Mode"));
    m_cmbNucMode->setToolTip(tr("Select NUC mode"));
}
