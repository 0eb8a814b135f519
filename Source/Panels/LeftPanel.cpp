// The panel with the list of cameras.
#include "LeftPanel.h"

#include "CustomListView.h"

#include <QEvent>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QToolButton>

namespace
{

// In device-independent pixels.
constexpr int PanelWidth = 300;
constexpr int ButtonSize = 28;
constexpr int ButtonIconSize = 18;

const char* const PanelStyle = R"(
LeftPanel { background-color: rgb(46,47,48); }
QLabel#labelCameras { color: rgb(219,219,219); font-size: 14px; font-weight: 600; }
QToolButton { background: transparent; color: rgb(219,219,219); font-size: 12px; border: 1px solid transparent;
              border-radius: 4px; }
QToolButton:hover { background-color: rgb(128,128,128); }
QToolButton:pressed { background-color: rgb(89,89,89); }
QToolButton:focus { border-color: rgb(147,147,150); }
QToolButton:disabled { color: #7d8185; }
QListView { background: transparent; outline: none; }
QListView::item:focus { border: 1px solid rgb(147,147,150); }
QScrollBar:vertical { background: transparent; width: 8px; margin: 0; }
QScrollBar::handle:vertical { background-color: rgb(89,89,89); border-radius: 4px; min-height: 24px; }
QScrollBar::handle:vertical:hover { background-color: rgb(114,114,114); }
QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }
QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }
)";

QToolButton* MakeButton(QWidget* parent, const char* name, const char* icon)
{
    auto* const button = new QToolButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setIcon(QIcon(QLatin1String(icon)));
    button->setIconSize({ButtonIconSize, ButtonIconSize});
    button->setMinimumSize(ButtonSize, ButtonSize);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

LeftPanel::LeftPanel(QWidget* parent, CustomListView* list)
    : QWidget(parent),
      m_labelCameras(new QLabel(this)),
      m_informationButton(MakeButton(this, "informationButton", ":/icons/resources/information.svg")),
      m_refreshLishButton(MakeButton(this, "refreshLishButton", ":/icons/resources/refresh.svg"))
{
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QLatin1String(PanelStyle));
    setFixedWidth(PanelWidth);
    m_labelCameras->setObjectName(QStringLiteral("labelCameras"));
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(16, 12, 12, 12);
    layout->setHorizontalSpacing(4);
    layout->setVerticalSpacing(10);
    layout->addWidget(m_labelCameras, 0, 0);
    layout->addWidget(m_informationButton, 0, 1);
    layout->addWidget(m_refreshLishButton, 0, 2);
    layout->addWidget(list, 1, 0, 1, 3);
    layout->setColumnStretch(0, 1);
    SetStrings();
}

QAbstractButton* LeftPanel::RefreshListButton() const
{
    return m_refreshLishButton;
}

void LeftPanel::SetStrings()
{
    m_labelCameras->setText(tr("Cameras"));
    m_refreshLishButton->setText(tr("Refresh list"));
    m_refreshLishButton->setToolTip(
        tr("<b>Refresh List</b> <br/> <span style='color:gray;'>Refresh camera list</span>"));
    m_informationButton->setToolTip(
        tr("<b>Information</b> <br/> <span style='color:gray;'>Please select a camera</span>"));
}

void LeftPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
    }
    QWidget::changeEvent(event);
}
