// First page of the automatic detection: what has to be done before.
#include "AutomaticDetectorStarter.h"

#include "DialogStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

namespace
{

constexpr int ImageSize = 96; // pixels

} // namespace

AutomaticDetectorStarter::AutomaticDetectorStarter(QWidget* parent)
    : QWidget(parent),
      m_imageLabel(new QLabel(this)),
      m_contentLabel(new QLabel(this)),
      m_contentLabel2(new QLabel(this)),
      m_warningLabel(new QLabel(this)),
      m_configureButton(new QPushButton(this)),
      m_startButton(new QPushButton(this))
{
    m_contentLabel->setObjectName(QStringLiteral("contentLabel"));
    m_contentLabel2->setObjectName(QStringLiteral("contentLabel_2"));
    m_warningLabel->setObjectName(QStringLiteral("warningLabel"));
    m_configureButton->setObjectName(QStringLiteral("configureButton"));
    m_startButton->setObjectName(QStringLiteral("startButton"));

    m_imageLabel->setPixmap(Lorvane::IconPixmap(QStringLiteral(":/icons/resources/cover.svg"),
                                                QSize(ImageSize, ImageSize), devicePixelRatioF()));
    m_contentLabel->setProperty("pageHeader", true);
    for (QLabel* label : {m_imageLabel, m_contentLabel, m_contentLabel2})
    {
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
    }
    m_warningLabel->setTextFormat(Qt::RichText);
    m_warningLabel->setWordWrap(true);
    m_warningLabel->hide();
    m_startButton->setProperty("primary", true);
    m_startButton->setDefault(true);
    setFocusProxy(m_startButton);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(m_configureButton);
    buttons->addWidget(m_startButton);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(16);
    rows->addStretch();
    rows->addWidget(m_imageLabel);
    rows->addWidget(m_contentLabel);
    rows->addWidget(m_contentLabel2);
    rows->addStretch();
    rows->addWidget(m_warningLabel);
    rows->addSpacing(8);
    rows->addLayout(buttons);
    SetStrings();
}

void AutomaticDetectorStarter::SetWarningText(const QString& text)
{
    m_warningLabel->setText(text);
    m_warningLabel->setVisible(!text.isEmpty());
}

void AutomaticDetectorStarter::SetStrings()
{
    m_contentLabel->setText(tr("Cover camera or lens"));
    m_contentLabel2->setText(tr("To be sure that automatic detection will work fine, please cover your camera or "
                                "lens.\n\nSwitch off all correction sets to enable detection of all defective "
                                "pixels."));
    m_configureButton->setText(tr("Configure"));
    m_startButton->setText(tr("Start detection"));
}
