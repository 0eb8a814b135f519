// One camera value as slider, text field and range labels.
#include "ValueControl.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace
{

constexpr int FieldWidth = 112;
constexpr int RowSpacing = 2;
constexpr int SpacingBelow = 6;

} // namespace

ValueControl::ValueControl(const ObjectNames& names, int decimals, QWidget* parent)
    : QWidget(parent),
      m_decimals(decimals),
      m_caption(new QLabel(this)),
      m_field(new NumberField(this)),
      m_slider(new QSlider(Qt::Horizontal, this)),
      m_minimum(new QLabel(this)),
      m_maximum(new QLabel(this))
{
    m_slider->setObjectName(QLatin1String(names.slider));
    m_field->setObjectName(QLatin1String(names.field));
    m_minimum->setObjectName(QLatin1String(names.minimum));
    m_maximum->setObjectName(QLatin1String(names.maximum));

    m_field->setFixedWidth(FieldWidth);
    m_caption->setBuddy(m_field);
    m_slider->setFocusPolicy(Qt::StrongFocus);
    // Unusable until the camera has told its range.
    m_slider->setEnabled(false);
    for (QLabel* label : {m_minimum, m_maximum})
    {
        label->setProperty("rangeLabel", true);
        label->setTextFormat(Qt::PlainText);
    }

    auto* header = new QHBoxLayout;
    header->addWidget(m_caption, 1);
    header->addWidget(m_field);
    auto* range = new QHBoxLayout;
    range->addWidget(m_minimum);
    range->addStretch();
    range->addWidget(m_maximum);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(RowSpacing);
    rows->addLayout(header);
    rows->addWidget(m_slider);
    rows->addLayout(range);

    connect(m_slider, &QSlider::actionTriggered, this, &ValueControl::OnSliderAction);
}

void ValueControl::SetCaption(const QString& caption)
{
    m_caption->setText(caption);
    m_slider->setAccessibleName(caption);
    m_field->setAccessibleName(caption);
}

void ValueControl::AddBelow(QWidget* widget)
{
    auto* rows = static_cast<QVBoxLayout*>(layout());
    rows->addSpacing(SpacingBelow);
    rows->addWidget(widget);
}

void ValueControl::AddBeside(QWidget* widget)
{
    layout()->itemAt(0)->layout()->addWidget(widget);
}

void ValueControl::ShowRange(double minimum, double maximum)
{
    m_minimum->setText(QString::number(minimum, 'f', m_decimals));
    m_maximum->setText(QString::number(maximum, 'f', m_decimals));
}

void ValueControl::ShowValue(double value)
{
    m_field->ShowNumber(value, m_decimals);
}

void ValueControl::MoveSlider(int position)
{
    const QSignalBlocker blocker(m_slider);
    m_slider->setValue(position);
}

void ValueControl::SetSliderRange(int minimum, int maximum)
{
    const QSignalBlocker blocker(m_slider);
    m_slider->setMinimum(minimum);
    m_slider->setMaximum(maximum);
}

void ValueControl::SetSliderSteps(int single, int page)
{
    m_slider->setSingleStep(single);
    m_slider->setPageStep(page);
}

bool ValueControl::HasRange() const
{
    return !m_minimum->text().isEmpty() && !m_maximum->text().isEmpty();
}

std::optional<double> ValueControl::TakeTypedValue()
{
    if (m_field->IsPassedOver())
    {
        return std::nullopt;
    }
    std::optional<double> value = m_field->ReadNumber();
    if (!value || !HasRange())
    {
        m_field->RestoreText();
        return std::nullopt;
    }
    const double minimum = m_minimum->text().toDouble();
    const double maximum = m_maximum->text().toDouble();
    if (*value <= minimum)
    {
        value = minimum;
        m_field->ShowText(m_minimum->text());
    }
    else if (*value >= maximum)
    {
        value = maximum;
        m_field->ShowText(m_maximum->text());
    }
    m_field->AcceptText();
    return value;
}

void ValueControl::OnSliderAction()
{
    if (m_slider->isSliderDown())
    {
        return;
    }
    m_slider->setValue(m_slider->sliderPosition());
    Q_EMIT m_slider->sliderReleased();
}
