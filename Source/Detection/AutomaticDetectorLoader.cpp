// Last page of the automatic detection: the search and its result.
#include "AutomaticDetectorLoader.h"

#include "DialogStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

namespace
{

constexpr QSize PictureSize(48, 48);

} // namespace

AutomaticDetectorLoader::AutomaticDetectorLoader(QWidget* parent)
    : QWidget(parent),
      m_movie(QStringLiteral(":/icons/resources/spinner-grey.gif"), QByteArray(), this),
      m_loadingLabel(new QLabel(this)),
      m_loadingFinishedLabel(new QLabel(this)),
      m_headerLabel(new QLabel(this)),
      m_contentLabel(new QLabel(this)),
      m_stopDetectionButton(new QPushButton(this)),
      m_continueButton(new QPushButton(this)),
      m_closeButton(new QPushButton(this))
{
    m_loadingLabel->setObjectName(QStringLiteral("loadingLabel"));
    m_loadingFinishedLabel->setObjectName(QStringLiteral("loadingFinishedLabel"));
    m_headerLabel->setObjectName(QStringLiteral("headerLabel"));
    m_contentLabel->setObjectName(QStringLiteral("contentLabel"));
    m_stopDetectionButton->setObjectName(QStringLiteral("stopDetectionButton"));
    m_continueButton->setObjectName(QStringLiteral("continueButton"));
    m_closeButton->setObjectName(QStringLiteral("closeButton"));

    m_movie.setCacheMode(QMovie::CacheAll);
    connect(&m_movie, &QMovie::frameChanged, this, &AutomaticDetectorLoader::ShowSpinner);
    m_loadingFinishedLabel->setPixmap(
        Lorvane::IconPixmap(QStringLiteral(":/icons/resources/Done.svg"), PictureSize, devicePixelRatioF()));
    m_headerLabel->setProperty("pageHeader", true);
    for (QLabel* label : {m_headerLabel, m_contentLabel})
    {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    for (QLabel* label : {m_loadingLabel, m_loadingFinishedLabel, m_headerLabel, m_contentLabel})
    {
        label->setAlignment(Qt::AlignCenter);
    }
    m_continueButton->setProperty("primary", true);
    setFocusProxy(m_stopDetectionButton);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(m_stopDetectionButton);
    buttons->addWidget(m_closeButton);
    buttons->addWidget(m_continueButton);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(16);
    rows->addStretch();
    rows->addWidget(m_loadingLabel);
    rows->addWidget(m_loadingFinishedLabel);
    rows->addWidget(m_headerLabel);
    rows->addWidget(m_contentLabel);
    rows->addStretch();
    rows->addLayout(buttons);

    m_loadingFinishedLabel->hide();
    m_continueButton->hide();
    m_closeButton->hide();
    SetStrings();
}

void AutomaticDetectorLoader::SetWaitingTexts()
{
    ShowTexts(Texts::Waiting);
}

void AutomaticDetectorLoader::ShowSearch()
{
    m_loadingFinishedLabel->hide();
    m_continueButton->hide(); // of a result that is about to be replaced
    if (m_texts != Texts::FirstWaiting)
    {
        SetWaitingTexts(); // a search that nobody waited for may have ended with the configuration open
    }
    m_loadingLabel->show();
    m_movie.setScaledSize(PictureSize * devicePixelRatioF());
    m_movie.start();
}

void AutomaticDetectorLoader::ShowChoice(int count)
{
    m_count = count;
    m_movie.stop();
    m_stopDetectionButton->hide();
    // A spinner that stands still would look like a program that hangs.
    m_loadingLabel->setPixmap(Lorvane::IconPixmap(QStringLiteral(":/icons/resources/automatic-detection.svg"),
                                                  PictureSize, devicePixelRatioF()));
    m_closeButton->show();
    m_continueButton->show();
    m_continueButton->setFocus();
    ShowTexts(Texts::Choice);
}

void AutomaticDetectorLoader::ShowAdding()
{
    ShowTexts(Texts::Adding);
}

void AutomaticDetectorLoader::ShowAdded()
{
    ShowEnd(Texts::Added);
}

void AutomaticDetectorLoader::ShowCancelled()
{
    ShowEnd(Texts::Cancelled);
}

void AutomaticDetectorLoader::ShowRejected(int count, int limit)
{
    m_count = count;
    m_limit = limit;
    ShowEnd(Texts::Rejected);
}

void AutomaticDetectorLoader::ShowEnd(Texts texts)
{
    m_movie.stop();
    m_stopDetectionButton->hide();
    m_continueButton->hide();
    m_closeButton->show();
    m_closeButton->setFocus();
    m_loadingLabel->hide();
    m_loadingFinishedLabel->show();
    ShowTexts(texts);
}

void AutomaticDetectorLoader::ShowTexts(Texts texts)
{
    m_texts = texts;
    SetStrings();
}

void AutomaticDetectorLoader::ShowSpinner()
{
    QPixmap picture = m_movie.currentPixmap();
    picture.setDevicePixelRatio(devicePixelRatioF());
    m_loadingLabel->setPixmap(picture);
}

QString AutomaticDetectorLoader::Header() const
{
    switch (m_texts)
    {
    case Texts::FirstWaiting:
        return tr("Please wait..");
    case Texts::Waiting:
        return tr("Please wait...");
    case Texts::Choice:
    case Texts::Adding:
        return tr("%1 defects found").arg(m_count);
    case Texts::Added:
        return tr("Detection is done");
    case Texts::Cancelled:
        return tr("Detection is cancelled");
    case Texts::Rejected:
        return tr("Detection is done.\n%1 defects found.").arg(m_count);
    }
    return {};
}

QString AutomaticDetectorLoader::Content() const
{
    switch (m_texts)
    {
    case Texts::FirstWaiting:
        return tr("Searching defective pixels on your camera");
    case Texts::Waiting:
        return tr("Searching defective pixels on your camera...");
    case Texts::Choice:
        return tr("Do you wish to continue correction?\nThe operation will erase the current pixel list of the user "
                  "set.");
    case Texts::Adding:
        return tr("Adding...");
    case Texts::Added:
        return tr("Defective pixels and the \"Upload to camera\" button are available in the pixel list.");
    case Texts::Cancelled:
        return {};
    case Texts::Rejected:
        return m_count == 0 ? QString()
                            : tr("The maximum number of defects\nsupported by the tool (%1) is exceeded.\n\nPlease "
                                 "check your configuration:\n\nThreshold too low?\nExposure or gain too high?\nCamera "
                                 "not properly covered?")
                                  .arg(m_limit);
    }
    return {};
}

void AutomaticDetectorLoader::SetStrings()
{
    m_headerLabel->setText(Header());
    m_contentLabel->setText(Content());
    m_stopDetectionButton->setText(tr("Stop detection"));
    m_continueButton->setText(tr("Continue"));
    m_closeButton->setText(tr("Configure"));
}
