// The first hints, laid over the main window.
#include "OnboardDialog.h"

#include "DialogStyle.h"
#include "WindowBelow.h"
#include "ui_OnboardDialog.h"

#include <QEvent>
#include <QPainter>
#include <QResizeEvent>

#include <utility>

namespace
{

constexpr QSize ImageSize(28, 28);
constexpr int SideBySideWidth = 860; // pixels that three hints need
constexpr int BarsHeight = 110;      // pixels of the title bar and the tool bar, which stay in sight
constexpr int StripHeight = 80;      // pixels below, with the tool strip
constexpr QColor Veil(19, 20, 21, 190);

} // namespace

OnboardDialog::OnboardDialog(QWidget* parent)
    : FramelessDialog(parent),
      m_ui(std::make_unique<Ui::OnboardDialog>()),
      m_below(*new WindowBelow(*this))
{
    setAttribute(Qt::WA_TranslucentBackground);
    // Before the children come: what they look up in the style is kept.
    setStyleSheet(styleSheet() + QStringLiteral(R"(
QFrame#cameraHint, QFrame#toolHint, QFrame#pixelHint {
    background: rgb(46,47,48); border: 1px solid rgb(89,89,89); border-radius: 6px;
}
QLabel#cameraCaption, QLabel#selectCaption, QLabel#grabCaption, QLabel#eraseCaption, QLabel#pixelCaption {
    color: white; font-weight: 600;
}
)"));
    m_ui->setupUi(this);
    for (QGridLayout* layout : {m_ui->cameraLayout, m_ui->toolLayout, m_ui->pixelLayout})
    {
        layout->setContentsMargins(18, 16, 18, 16);
        layout->setHorizontalSpacing(12);
        layout->setVerticalSpacing(10);
        layout->setColumnStretch(1, 1);
    }
    for (QLabel* text : {m_ui->cameraText, m_ui->grabText, m_ui->pixelText, m_ui->cameraCaption, m_ui->selectCaption,
                         m_ui->grabCaption, m_ui->eraseCaption, m_ui->pixelCaption})
    {
        text->setWordWrap(true);
    }
    ArrangeHints(true);
    connect(m_ui->closeButton, &QPushButton::clicked, this, &OnboardDialog::OnCloseButtonClick);
    connect(this, &QDialog::finished, this, [this] { Q_EMIT CloseDialog(false); });
    if (parent != nullptr)
    {
        parent->window()->installEventFilter(this);
    }
    SetStrings();
}

OnboardDialog::~OnboardDialog() = default;

void OnboardDialog::executeDialog(OnboardDialog* dialog, int x, int y, int width, int height)
{
    if (dialog == nullptr)
    {
        return;
    }
    dialog->setGeometry(x, y, width, height);
    dialog->SetImages();
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    dialog->m_ui->closeButton->setFocus();
}

void OnboardDialog::OnCloseButtonClick()
{
    close();
}

void OnboardDialog::resizeEvent(QResizeEvent* event)
{
    ArrangeHints(event->size().width() >= SideBySideWidth);
    FramelessDialog::resizeEvent(event);
}

void OnboardDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_below.Draw(painter);
    painter.fillRect(rect(), Veil);
}

bool OnboardDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (isVisible() && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
    {
        setGeometry(parentWidget()->window()->geometry());
    }
    return FramelessDialog::eventFilter(watched, event);
}

void OnboardDialog::ArrangeHints(bool sideBySide)
{
    QGridLayout& layout = *m_ui->hintLayout;
    int place = 0;
    for (QWidget* hint : {m_ui->cameraHint, m_ui->toolHint, m_ui->pixelHint})
    {
        layout.removeWidget(hint);
        layout.addWidget(hint, sideBySide ? 0 : place, sideBySide ? place : 0, Qt::AlignTop);
        layout.setColumnStretch(place, sideBySide || place == 0 ? 1 : 0);
        layout.setRowStretch(place, !sideBySide && place == 2 ? 1 : 0);
        ++place;
    }
    m_ui->mainLayout->setContentsMargins(24, sideBySide ? BarsHeight : 24, 24, sideBySide ? StripHeight : 24);
}

void OnboardDialog::SetImages()
{
    const std::pair<QLabel*, QString> images[] = {
        {m_ui->cameraImage, QStringLiteral("cameras")},   {m_ui->selectImage, QStringLiteral("tool-add")},
        {m_ui->grabImage, QStringLiteral("tool-grab")},   {m_ui->eraseImage, QStringLiteral("tool-erase")},
        {m_ui->pixelImage, QStringLiteral("pixel-list")},
    };
    for (const auto& [label, name] : images)
    {
        label->setPixmap(
            Lorvane::IconPixmap(QStringLiteral(":/icons/resources/%1.svg").arg(name), ImageSize, devicePixelRatioF()));
    }
}

void OnboardDialog::SetStrings()
{
    m_ui->cameraCaption->setText(tr("Cameras"));
    m_ui->cameraText->setText(tr("In the camera list panel on the left, click the camera you want to open."));
    m_ui->selectCaption->setText(tr("Select Tool (press 1)"));
    m_ui->grabCaption->setText(tr("Grab Tool (press 2)"));
    m_ui->grabText->setText(tr("The Grab tool moves the visible image section."));
    m_ui->eraseCaption->setText(tr("Erase Tool (press 3)"));
    m_ui->pixelCaption->setText(tr("Pixel list"));
    m_ui->pixelText->setText(tr("The Pixel list on the right automatically reads defective pixels from the user "
                                "correction set in your camera. They are listed in green."));
    m_ui->closeButton->setText(tr("Get started"));
}
