// One list of correction sets: a combo box with the switch for the correction and the button for the default set.
#include "CorrectionListWidget.h"

#include "CommandIcon.h"
#include "CorrectionSetData.h"
#include "CorrectionSetMetadata.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyledItemDelegate>

namespace
{

constexpr int BoxHeight = 30;
constexpr QSize SwitchSize(42, 26);
constexpr QSize ButtonSize(26, 26);
constexpr QSize IconSize(16, 16);

// Without all three values there is nothing to show.
QString MetadataDescription(int index, const CorrectionSetData& set)
{
    namespace Keys = KTR::DPC::TamorinPro;
    const auto gain = set.getMetadata(Keys::CORRECTION_SET_METADATA_GAIN);
    const auto exposure = set.getMetadata(Keys::CORRECTION_SET_METADATA_EXPOSURE);
    const auto temperature = set.getMetadata(Keys::CORRECTION_SET_METADATA_TEMPERATURE);
    if (!gain || !exposure || !temperature)
    {
        return {};
    }
    return QString::asprintf("%d. Gain %.1f, %.1f%sC, %.0f%sS", index, *gain, *temperature, Keys::DEGREESIGN, *exposure,
                             Keys::MICROSIGN);
}

} // namespace

CorrectionListWidget::CorrectionListWidget(QWidget* parent)
    : QWidget(parent),
      m_titleLabel(new QLabel(this)),
      m_comboBox(new QComboBox(this)),
      m_dpcEnableButton(new QPushButton(this)),
      m_defaultSetButton(new QPushButton(this))
{
    m_titleLabel->setObjectName(QStringLiteral("titleLabel"));
    m_titleLabel->setBuddy(m_comboBox);
    m_comboBox->setObjectName(QStringLiteral("comboBox"));
    m_dpcEnableButton->setObjectName(QStringLiteral("dpcEnableButton"));
    m_defaultSetButton->setObjectName(QStringLiteral("defaultSetButton"));

    m_comboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_comboBox->setMinimumContentsLength(8);
    m_comboBox->setMinimumHeight(BoxHeight);
    // The default delegate of combo boxes knows nothing of style sheets.
    m_comboBox->setItemDelegate(new QStyledItemDelegate(m_comboBox));
    m_dpcEnableButton->setFixedSize(SwitchSize);
    m_defaultSetButton->setFixedSize(ButtonSize);
    SetCommandIcon(m_defaultSetButton, QStringLiteral("default-set"), IconSize);

    // The lines of the box are long: it has the whole width.
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->setColumnStretch(0, 1);
    layout->addWidget(m_titleLabel, 0, 0);
    layout->addWidget(m_dpcEnableButton, 0, 1);
    layout->addWidget(m_defaultSetButton, 0, 2);
    layout->addWidget(m_comboBox, 1, 0, 1, 3);

    connect(m_comboBox, qOverload<int>(&QComboBox::activated), this, &CorrectionListWidget::OnComboBoxActivated);
    m_comboBox->installEventFilter(this);
    // The line may be longer than the box.
    connect(m_comboBox, &QComboBox::currentTextChanged, m_comboBox, &QWidget::setToolTip);
    connect(m_defaultSetButton, &QPushButton::clicked, this,
            [this] { Q_EMIT defaultButtonClicked(m_comboBox->currentIndex()); });
    connect(m_dpcEnableButton, &QPushButton::clicked, this,
            [this] { Q_EMIT dpcEnableClicked(m_comboBox->currentIndex()); });
    SetDpcEnableButton(false);
    SetStrings();
}

void CorrectionListWidget::SetTitle(const QString& title)
{
    m_titleLabel->setText(title);
}

void CorrectionListWidget::Add(CorrectionSetData* set)
{
    const QString name = QString::fromStdString(set->getName());
    m_sets.append(set);
    m_comboBox->addItem(CreateSetDescription(m_comboBox->count(), set), name);
    FitPopup();
    EnableButtons(m_sets.first()->IsAvailable());
}

void CorrectionListWidget::Clear()
{
    m_sets.clear();
    m_comboBox->clear();
}

CorrectionSetData* CorrectionListWidget::GetCurrentSet() const
{
    return GetSet(m_comboBox->currentIndex());
}

CorrectionSetData* CorrectionListWidget::GetSet(int index) const
{
    return m_sets.value(index, nullptr);
}

int CorrectionListWidget::findSet(const QString& name) const
{
    return m_comboBox->findData(name, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

void CorrectionListWidget::UpdateSet(const QString& name)
{
    const int index = findSet(name);
    if (const CorrectionSetData* set = GetSet(index))
    {
        m_comboBox->setItemText(index, CreateSetDescription(index, set));
        FitPopup();
    }
}

void CorrectionListWidget::EnableButtons(bool enable)
{
    m_defaultSetButton->setEnabled(enable);
    m_dpcEnableButton->setEnabled(enable);
    SetToolTips();
}

void CorrectionListWidget::EnableDefaultSetButton(bool enable)
{
    m_defaultSetButton->setEnabled(enable);
    SetToolTips();
}

void CorrectionListWidget::SetDpcEnableButton(bool on)
{
    m_dpcEnabled = on;
    const QString image = on ? QStringLiteral("group-13-copy") : QStringLiteral("group-13");
    m_dpcEnableButton->setStyleSheet(
        QStringLiteral("QPushButton#dpcEnableButton { image: url(:/icons/resources/%1.png); }").arg(image));
}

QString CorrectionListWidget::CreateSetDescription(int index, const CorrectionSetData* set)
{
    if (set->IsEmpty())
    {
        return QStringLiteral("%1. %2").arg(QString::number(index), tr("[Empty Set]"));
    }
    if (set->getMetadataSize() != 0)
    {
        return MetadataDescription(index, *set);
    }
    return QString::fromStdString(set->getName());
}

void CorrectionListWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
    }
    QWidget::changeEvent(event);
}

// A wheel that rolls over the box by chance would have one set after the other read from the camera.
bool CorrectionListWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel)
    {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CorrectionListWidget::OnComboBoxActivated(int index)
{
    if (const CorrectionSetData* set = GetSet(index))
    {
        EnableButtons(set->IsAvailable());
        Q_EMIT comboBoxClicked(index);
    }
}

void CorrectionListWidget::SetStrings()
{
    for (int index = 0; index < m_sets.size(); ++index)
    {
        m_comboBox->setItemText(index, CreateSetDescription(index, m_sets.at(index)));
    }
    FitPopup();
    m_dpcEnableButton->setAccessibleName(tr("DPC On/Off"));
    m_defaultSetButton->setAccessibleName(tr("Default correction set"));
    SetToolTips();
}

void CorrectionListWidget::SetToolTips()
{
    m_defaultSetButton->setToolTip(m_defaultSetButton->isEnabledTo(this)
                                       ? tr("<b>Default correction set</b> <br/> <span style='color:gray;'>Set the "
                                            "default correction set</span>")
                                       : tr("This Correction Set cannot be set to default"));
    m_dpcEnableButton->setToolTip(
        m_dpcEnableButton->isEnabledTo(this)
            ? tr("<b>DPC On/Off</b> <br/> <span style='color:gray;'>Switch DPC on or off</span>")
            : tr("This Correction Set cannot be enabled"));
}

// The list that drops down shows whole lines, also where the box itself is narrower.
void CorrectionListWidget::FitPopup()
{
    constexpr int Margins = 24;
    m_comboBox->view()->setMinimumWidth(m_comboBox->view()->sizeHintForColumn(0) + Margins);
}
