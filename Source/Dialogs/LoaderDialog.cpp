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
    m_ui->ringLabel->setPixmap(Ring());
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

QPixmap LoaderDialog::Ring() const
{
    QLabel& label = *m_ui->ringLabel;
    label.ensurePolished();
    const int steps = static_cast<int>(m_steps.size());
    const int sweep = steps == 0 ? 0 : (m_currentStep + 1) * (360 / steps) * 16;

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
    if (steps > 0)
    {
        const int percentage = std::min(100, (m_currentStep + 1) * 100 / steps);
        painter.drawText(label.rect(), Qt::AlignCenter, QStringLiteral("%1%").arg(percentage));
    }
    painter.drawArc(ring, RingTop, -sweep);
    return pixmap;
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
    FramelessDialog::showEvent(event);
}

void LoaderDialog::SetStrings()
{
    m_ui->contentLabel->setText(tr("Please wait..."));
}
