// Leads the user through one automatic detection.
#include "AutomaticDetectorDialog.h"

#include "AutomaticDetectorLoader.h"
#include "AutomaticDetectorStarter.h"
#include "DefectInfo.h"
#include "DetectionRun.h"
#include "TreeModel.h"
#include "TresholdExposureWidget.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSizeGrip>
#include <QVBoxLayout>
#include <QVariant>

#include <algorithm>

namespace
{

constexpr int UsualThreshold = 40;
constexpr int UsualPixelDepth = 8;
constexpr int SizeGripSize = 15;
constexpr QSize FirstSize(520, 560);
// Without a background of the main window's.
constexpr char PageStyle[] =
    "AutomaticDetectorStarter, AutomaticDetectorLoader, TresholdExposureWidget, ValueControl"
    " { background: transparent; }"
    "QLabel[pageHeader=\"true\"] { color: white; font-size: 16px; font-weight: 600; }"
    "QLabel#noteLabel { color: rgb(147,147,150); font-size: 12px; }"
    "QLabel#warningLabel { background: rgb(46,47,48); border: 1px solid rgb(89,89,89); border-radius: 6px;"
    " padding: 8px 10px; font-size: 12px; }"
    "QSizeGrip { background: transparent; image: url(\":/icons/resources/grip.svg\"); }";

int PixelDepthOf(const QString& pixelFormat)
{
    const QRegularExpressionMatch match = QRegularExpression(QStringLiteral("\\d+")).match(pixelFormat);
    return match.hasMatch() ? match.captured().toInt() : UsualPixelDepth;
}

} // namespace

AutomaticDetectorDialog::AutomaticDetectorDialog(QWidget* parent, TreeModel* treeModel, const QString& pixelFormat,
                                                 int width, int height, const std::vector<int>& supportedDefects)
    : FramelessDialog(parent),
      m_width(width),
      m_height(height),
      m_treeModel(treeModel),
      m_threshold(UsualThreshold),
      m_supportedDefects(supportedDefects)
{
    // Before the children come: what they look up in the style is kept.
    setStyleSheet(styleSheet() + QLatin1String(PageStyle));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowIcon(QIcon(QStringLiteral(":/icons/resources/logo-taskbar.png")));
    m_titleLabel = new QLabel(this);
    m_exitButton = new QPushButton(this);
    m_content = new QWidget(this);
    m_content->setObjectName(QStringLiteral("contentWidget"));
    m_starter = new AutomaticDetectorStarter(m_content);
    m_tresholdWidget = new TresholdExposureWidget(PixelDepthOf(pixelFormat), width * height, m_content);
    m_loader = new AutomaticDetectorLoader(m_content);
    m_sizeGrip = new QSizeGrip(this);
    BuildLayout();
    MakeConnections();
    SetStrings();
    ShowPage(m_starter);
    resize(FirstSize.expandedTo(minimumSizeHint()));
}

AutomaticDetectorDialog::~AutomaticDetectorDialog()
{
    DiscardRun();
}

void AutomaticDetectorDialog::BuildLayout()
{
    m_titleLabel->setObjectName(QStringLiteral("titleLabel"));
    m_exitButton->setObjectName(QStringLiteral("exitButton"));
    m_exitButton->setProperty("cross", true);
    m_exitButton->setFocusPolicy(Qt::TabFocus);
    m_exitButton->setAutoDefault(false);

    auto* titleBar = new QWidget(this);
    titleBar->setObjectName(QStringLiteral("titleBar"));
    titleBar->setAttribute(Qt::WA_StyledBackground);
    auto* title = new QHBoxLayout(titleBar);
    title->setContentsMargins(16, 6, 6, 6);
    title->addWidget(m_titleLabel, 1);
    title->addWidget(m_exitButton);

    auto* pages = new QGridLayout(m_content);
    pages->setContentsMargins(28, 24, 28, 24);
    for (QWidget* page :
         {static_cast<QWidget*>(m_starter), static_cast<QWidget*>(m_tresholdWidget), static_cast<QWidget*>(m_loader)})
    {
        QSizePolicy policy = page->sizePolicy();
        policy.setRetainSizeWhenHidden(true); // the dialog fits all pages
        page->setSizePolicy(policy);
        pages->addWidget(page, 0, 0);
    }
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(1, 1, 1, 1);
    rows->setSpacing(0);
    rows->addWidget(titleBar);
    rows->addWidget(m_content, 1);
    m_sizeGrip->raise();
}

void AutomaticDetectorDialog::MakeConnections()
{
    const auto click = [this](QPushButton* button, void (AutomaticDetectorDialog::*slot)())
    { connect(button, &QPushButton::clicked, this, slot); };
    click(m_starter->ConfigureButton(), &AutomaticDetectorDialog::OnConfigureClick);
    click(m_starter->StartButton(), &AutomaticDetectorDialog::OnStartClick);
    click(m_tresholdWidget->StartDetectionButton(), &AutomaticDetectorDialog::OnConfigStartClick);
    click(m_tresholdWidget->BackButton(), &AutomaticDetectorDialog::OnConfigureBackClick);
    click(m_loader->StopDetectionButton(), &AutomaticDetectorDialog::OnStopDetectClick);
    click(m_loader->ContinueButton(), &AutomaticDetectorDialog::OnContinueDetection);
    click(m_loader->CloseButton(), &AutomaticDetectorDialog::OnConfigureClick);
    click(m_exitButton, &AutomaticDetectorDialog::OnCloseDetection);
}

void AutomaticDetectorDialog::executeDialog(AutomaticDetectorDialog* dialog)
{
    if (dialog == nullptr)
    {
        return;
    }
    if (const QWidget* const parent = dialog->parentWidget())
    {
        const QRect available = parent->screen()->availableGeometry();
        const QPoint wanted = parent->window()->geometry().center() - dialog->rect().center();
        dialog->move(std::max(available.left(), std::min(wanted.x(), available.right() + 1 - dialog->width())),
                     std::max(available.top(), std::min(wanted.y(), available.bottom() + 1 - dialog->height())));
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void AutomaticDetectorDialog::SetWarningText(const QString& text)
{
    m_starter->SetWarningText(text);
    resize(size().expandedTo(minimumSizeHint()));
}

void AutomaticDetectorDialog::SetExposureRange(double min, double max, double current, int maximumPosition)
{
    m_tresholdWidget->SetExposureSliderValues(min, max, current, maximumPosition);
}

void AutomaticDetectorDialog::SetGainRange(double min, double max, double current)
{
    m_tresholdWidget->SetGainSliderValues(min, max, current);
}

void AutomaticDetectorDialog::ShowPage(QWidget* page)
{
    for (QWidget* other :
         {static_cast<QWidget*>(m_starter), static_cast<QWidget*>(m_tresholdWidget), static_cast<QWidget*>(m_loader)})
    {
        other->setVisible(other == page);
    }
    page->setFocus();
}

void AutomaticDetectorDialog::OnConfigureClick()
{
    m_loader->SetWaitingTexts();
    ShowPage(m_tresholdWidget);
}

void AutomaticDetectorDialog::OnConfigureBackClick()
{
    m_threshold = UsualThreshold;
    ShowPage(m_starter);
}

void AutomaticDetectorDialog::OnStartClick()
{
    m_threshold = UsualThreshold;
    StartDetection();
}

void AutomaticDetectorDialog::OnConfigStartClick()
{
    m_threshold = m_tresholdWidget->GetTresholdValue();
    m_loader->StopDetectionButton()->show();
    m_loader->CloseButton()->hide();
    StartDetection();
}

void AutomaticDetectorDialog::StartDetection()
{
    m_cancelled = false;
    DiscardRun();
    ShowPage(m_loader);
    m_loader->ShowSearch();
    Q_EMIT SendExposureGain(m_tresholdWidget->GetExposureValue(), m_tresholdWidget->GetGainValue());
}

// The run belongs to the parent, so that the dialog can go without waiting for it.
void AutomaticDetectorDialog::SetImage(QImage frame)
{
    if (m_cancelled)
    {
        return;
    }
    DiscardRun();
    m_run = new DetectionRun(frame, m_threshold, m_width, m_height, m_supportedDefects,
                             parent() != nullptr ? parent() : this);
    connect(m_run, &DetectionRun::Finished, this, &AutomaticDetectorDialog::OnDetectionFinished);
    setCursor(Qt::WaitCursor);
    m_run->Start();
}

void AutomaticDetectorDialog::OnDetectionFinished()
{
    const int limit = m_tresholdWidget->GetDefectLimitValue();
    const int count = m_run && m_run->HasFinished() ? m_run->Defects().size() : 0;
    unsetCursor();
    if (!m_cancelled && count > 0 && count <= limit)
    {
        m_loader->ShowChoice(count);
        return;
    }
    if (m_cancelled)
    {
        m_loader->ShowCancelled();
    }
    else
    {
        m_loader->ShowRejected(count, limit);
    }
    DiscardRun();
}

void AutomaticDetectorDialog::OnStopDetectClick()
{
    m_cancelled = true;
    DiscardRun();
    OnDetectionFinished();
}

void AutomaticDetectorDialog::DiscardRun()
{
    if (m_run)
    {
        m_run->Discard();
        m_run.clear();
    }
}

void AutomaticDetectorDialog::OnContinueDetection()
{
    m_loader->ShowAdding();
    const QPointer<AutomaticDetectorDialog> self(this);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (!self || m_cancelled)
    {
        return; // the camera has gone
    }
    UpdateList();
    m_loader->ShowAdded();
}

void AutomaticDetectorDialog::UpdateList()
{
    m_treeModel->clear();
    for (const TemporaryDefectInfo& defect : m_run->Defects())
    {
        m_treeModel->addDefectItem(defect.x, defect.y, defect.width, defect.height, defect.type, DefectInfo::NewColor);
    }
}

void AutomaticDetectorDialog::OnCloseDetection()
{
    Q_EMIT CloseDialog();
}

void AutomaticDetectorDialog::reject()
{
    OnCloseDetection();
}

// The window manager asks, or the program ends. The receiver cannot close what is closing.
void AutomaticDetectorDialog::closeEvent(QCloseEvent* event)
{
    if (event->spontaneous())
    {
        OnCloseDetection();
    }
    event->accept();
}

void AutomaticDetectorDialog::resizeEvent(QResizeEvent* event)
{
    m_sizeGrip->setGeometry(width() - SizeGripSize, height() - SizeGripSize, SizeGripSize, SizeGripSize);
    FramelessDialog::resizeEvent(event);
}

// Dragged by the title bar alone: a slip beside a slider moves nothing.
void AutomaticDetectorDialog::mousePressEvent(QMouseEvent* event)
{
    if (event->y() < m_content->y())
    {
        FramelessDialog::mousePressEvent(event);
    }
}

void AutomaticDetectorDialog::SetStrings()
{
    setWindowTitle(tr("Automatic Detection"));
    m_titleLabel->setText(windowTitle());
    m_exitButton->setAccessibleName(tr("Close"));
    m_starter->SetStrings();
    m_tresholdWidget->SetStrings();
    m_loader->SetStrings();
}
