// Shows the steps of a longer command and how far it has come.
#include "LoaderDialog.h"

#include "ui_LoaderDialog.h"

#include <QCloseEvent>
#include <QPainter>

#include <algorithm>

namespace
{

constexpr double RingWidth = 8.0; // pixels
constexpr int RingInset = 4;
constexpr int RingTop = 1440; // sixteenths of a degree
constexpr int FullCircle = 360 * 16;
constexpr int LightLength = 24 * 16;
constexpr int LightStep = 9 * 16;
constexpr int LightInterval = 40; // milliseconds
constexpr QColor LightColor(47, 128, 237);

QString OpenStep(const QString& text)
{
    return text + QStringLiteral("\t<img src=':/icons/resources/Path Copy 3.svg'/>");
}

QString FinishedStep(const QString& text)
{
    return text.section(QLatin1Char('\t'), 0, 0) + QStringLiteral("\t<img src=':/icons/resources/Path Copy 4.svg'/>");
}

} // namespace

LoaderDialog::LoaderDialog(QWidget* parent, const QString& title)
    : FramelessDialog(parent),
      m_ui(std::make_unique<Ui::LoaderDialog>())
{
    m_ui->setupUi(this);
    m_gridLayout = m_ui->gridLayout;
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(title);
    m_ui->titleLabel->setText(title);
    m_ui->ringLabel->setStyleSheet(QStringLiteral("font-size:20px; font-weight:600;"));
    SetStrings();
}

LoaderDialog::~LoaderDialog() = default;

void LoaderDialog::PushBackToList(const QString& text)
{
    auto* const label = new QLabel(OpenStep(text), m_ui->contentWidget);
    label->setWordWrap(true);
    label->setStyleSheet(QStringLiteral("background:transparent; border:none; font-size:12px; color: #D0D2D5;"));
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_gridLayout->addWidget(label, static_cast<int>(m_steps.size()), 0);
    label->show();
    m_steps.push_back(label);
    m_gridLayout->activate(); // so that the dialog has its size, and its place, when it is shown next
}

void LoaderDialog::DisplayNextStepInformation()
{
    m_shownSteps = m_currentStep + 1;
    m_shownOf = static_cast<int>(m_steps.size());
    DrawRing();
    if (m_currentStep < static_cast<int>(m_steps.size()))
    {
        QLabel& step = *m_steps[static_cast<std::size_t>(m_currentStep)];
        step.setText(FinishedStep(step.text()));
    }
    ++m_currentStep;
}

void LoaderDialog::ClearInfoList()
{
    for (QLabel* const label : m_steps)
    {
        m_gridLayout->removeWidget(label);
        delete label;
    }
    m_steps.clear();
    m_gridLayout->activate();
    m_currentStep = 0;
}

void LoaderDialog::DrawRing()
{
    QLabel& label = *m_ui->ringLabel;
    label.ensurePolished();
    const int sweep = m_shownOf == 0 ? 0 : m_shownSteps * (360 / m_shownOf) * 16;

    QPixmap pixmap(label.size() * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    const QRect ring = label.rect().adjusted(RingInset, RingInset, -RingInset, -RingInset);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(label.font());
    // Flat ends: a gap that the integer sweep leaves stays to be seen.
    QPen pen(QColor(92, 92, 92, 255), RingWidth, Qt::SolidLine, Qt::FlatCap);
    painter.setPen(pen);
    painter.drawEllipse(ring);
    pen.setColor(Qt::white);
    painter.setPen(pen);
    if (m_shownOf > 0)
    {
        const int percentage = std::min(100, m_shownSteps * 100 / m_shownOf);
        painter.drawText(label.rect(), Qt::AlignCenter, QStringLiteral("%1%").arg(percentage));
    }
    painter.drawArc(ring, RingTop, -sweep);
    if (m_movement.isActive())
    {
        pen.setColor(LightColor);
        painter.setPen(pen);
        painter.drawArc(ring, RingTop - m_lightAngle, -LightLength);
    }
    label.setPixmap(pixmap);
}

void LoaderDialog::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!event->spontaneous());
}

void LoaderDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous() && parentWidget() != nullptr)
    {
        move(parentWidget()->window()->geometry().center() - rect().center());
    }
    m_movement.start(LightInterval, this);
    FramelessDialog::showEvent(event);
}

void LoaderDialog::hideEvent(QHideEvent* event)
{
    m_movement.stop();
    FramelessDialog::hideEvent(event);
}

void LoaderDialog::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_movement.timerId())
    {
        m_lightAngle = (m_lightAngle + LightStep) % FullCircle;
        DrawRing();
    }
    FramelessDialog::timerEvent(event);
}

void LoaderDialog::SetStrings()
{
    m_ui->contentLabel->setText(tr("Please wait..."));
}
