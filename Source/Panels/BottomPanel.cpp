// Tool strip under the image: play, overlay, overview and zoom.
#include "BottomPanel.h"

#include "ui_BottomPanel.h"

#include <QEvent>

namespace
{

QString PanelStyleSheet()
{
    return QStringLiteral(R"(
QWidget#BottomPanel { background: rgb(46,47,48); border: 1px solid rgb(89,89,89); border-radius: 6px; }
QFrame#separator { background: rgb(89,89,89); border: none; }
QPushButton, QCheckBox {
    background: transparent; border: 2px solid transparent; border-radius: 6px; color: rgb(219,219,219);
    font-size: 12px; padding: 4px; spacing: 0px; min-height: 24px; max-height: 24px;
}
QPushButton#zoomInButton, QPushButton#zoomOutButton { min-width: 24px; max-width: 24px; }
QPushButton#scaleButton { min-width: 64px; }
QPushButton:hover, QCheckBox:hover { background: rgb(128,128,128); color: white; }
QPushButton:pressed, QCheckBox:pressed { background: rgb(82,82,82); }
QPushButton:focus, QCheckBox:focus { border-color: rgb(47,128,237); }
QPushButton:disabled { color: #7d8185; }
QCheckBox { padding: 0px; min-width: 32px; max-width: 32px; min-height: 32px; max-height: 32px; }
QCheckBox::indicator { width: 24px; height: 24px; margin: 4px; } /* a click anywhere in the box counts */
QPushButton#zoomInButton { image: url(":/icons/resources/zoom-in.svg"); }
QPushButton#zoomOutButton { image: url(":/icons/resources/zoom-out.svg"); }
QCheckBox#playPauseButton::indicator:unchecked { image: url(":/icons/resources/play.svg"); }
QCheckBox#playPauseButton::indicator:checked { image: url(":/icons/resources/pause.svg"); }
QCheckBox#overlayButton::indicator:unchecked { image: url(":/icons/resources/overlay-on.svg"); }
QCheckBox#overlayButton::indicator:checked { image: url(":/icons/resources/overlay-off.svg"); }
QCheckBox#overviewButton::indicator:unchecked { image: url(":/icons/resources/overview.svg"); }
QCheckBox#overviewButton::indicator:checked { image: url(":/icons/resources/overview-on.svg"); }
)");
}

} // namespace

BottomPanel::BottomPanel(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::BottomPanel>())
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(PanelStyleSheet());
    SetStrings();
    adjustSize();
}

BottomPanel::~BottomPanel() = default;

QCheckBox* BottomPanel::PlayPauseButton() const
{
    return m_ui->playPauseButton;
}

QCheckBox* BottomPanel::OverlayButton() const
{
    return m_ui->overlayButton;
}

QCheckBox* BottomPanel::OverviewButton() const
{
    return m_ui->overviewButton;
}

QPushButton* BottomPanel::ScaleButton() const
{
    return m_ui->scaleButton;
}

QPushButton* BottomPanel::ZoomInButton() const
{
    return m_ui->zoomInButton;
}

QPushButton* BottomPanel::ZoomOutButton() const
{
    return m_ui->zoomOutButton;
}

void BottomPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
    }
    QWidget::changeEvent(event);
}

void BottomPanel::SetStrings()
{
    m_ui->playPauseButton->setToolTip(tr(
        "<b>Start and Stop (press P)</b> <br/> <span style='color:gray;'>Start or stop image acquisition (P)</span>"));
    m_ui->overlayButton->setToolTip(
        tr("<b>Overlay</b> <br/> <span style='color:gray;'>Switch pixel overlay on or off</span>"));
    m_ui->overviewButton->setToolTip(
        tr("<b>Overview</b> <br/> <span style='color:gray;'>Show or hide the overview window</span>"));
    m_ui->scaleButton->setToolTip(tr("<b>Scale</b> <br/> <span style='color:gray;'>Reset zoom</span>"));
    m_ui->zoomInButton->setToolTip(
        tr("<b>Zoom In (press +[numpad])</b> <br/> <span style='color:gray;'>Zoom In (+[numpad])</span>"));
    m_ui->zoomOutButton->setToolTip(
        tr("<b>Zoom Out (press -[numpad])</b> <br/> <span style='color:gray;'>Zoom Out (-[numpad])</span>"));
}
