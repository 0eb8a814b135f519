// The small dialogs and the bottom panel: answers, places, texts, languages.
#include "AboutDialog.h"
#include "BottomPanel.h"
#include "ConfirmDialog.h"
#include "LoaderDialog.h"
#include "MessageDialog.h"
#include "ModalAnswers.h"
#include "OnboardDialog.h"
#include "WelcomeDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <memory>

namespace
{

// Puts every text in brackets and makes it a third longer.
class Brackets : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override
    {
        const QString source = QString::fromUtf8(text);
        return QLatin1Char('[') + source + QLatin1Char(' ') + QString(source.size() / 3, QLatin1Char('x')) +
               QLatin1Char(']');
    }
};

class SmallDialogs : public testing::Test
{
protected:
    void SetUp() override
    {
        m_window.setGeometry(100, 60, 600, 500);
        m_window.show();
        m_window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    static void Click(const QWidget& dialog, const char* name)
    {
        auto* button = dialog.findChild<QWidget*>(QString::fromLatin1(name));
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    static ModalAnswers::Answer Clicking(const char* name)
    {
        return [name](QDialog& dialog) { Click(dialog, name); };
    }
    static ModalAnswers::Answer Pressing(Qt::Key key)
    {
        return [key](QDialog& dialog) { QTest::keyClick(&dialog, key); };
    }

    QWidget m_window;
    ModalAnswers m_answers;
};

void ExpectNothingClipped(const QWidget& widget)
{
    for (const QLabel* label : widget.findChildren<QLabel*>())
    {
        if (label->isVisible() && !label->text().isEmpty())
        {
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
            EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
        }
    }
    for (const QPushButton* button : widget.findChildren<QPushButton*>())
    {
        EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
    }
}

} // namespace

TEST_F(SmallDialogs, MessageCallsBackOnlyWhenAccepted)
{
    int calls = 0;
    const auto ask = [&calls](ModalAnswers& answers, const ModalAnswers::Answer& answer)
    {
        answers.Then(answer);
        MessageDialog::ExecuteDialog(QStringLiteral("Title"), QStringLiteral("<b>One</b> & %1\ntwo"),
                                     QStringLiteral("Restart"), [&calls] { ++calls; });
        return calls;
    };
    EXPECT_EQ(ask(m_answers, Clicking("okButton")), 1);
    EXPECT_EQ(ask(m_answers, Pressing(Qt::Key_Return)), 2);
    EXPECT_EQ(ask(m_answers, Clicking("exitButton")), 2);
    EXPECT_EQ(ask(m_answers, Pressing(Qt::Key_Escape)), 2);
    for (const QString& seen : m_answers.Seen())
    {
        EXPECT_EQ(seen, QStringLiteral("Title\n<b>One</b> & %1\ntwo"));
    }
    m_answers.ThenClick(QStringLiteral("okButton"));
    MessageDialog::ExecuteDialog({}, {}, QStringLiteral("OK"), nullptr);
}

TEST_F(SmallDialogs, TextsOfAnyLengthAreReadable)
{
    const QString path = QStringLiteral("/a/long/path/") + QString(60, QLatin1Char('w'));
    for (const QString& text : {QStringLiteral("Short"), QStringLiteral("One\nTwo\n Three"), path,
                                QStringLiteral("A sentence that needs more room. ").repeated(6),
                                QStringLiteral("A sentence that fills the screen. ").repeated(200)})
    {
        m_answers.Then(
            [this, &text](QDialog& dialog)
            {
                ExpectNothingClipped(dialog);
                const QWidget* button = dialog.findChild<QWidget*>(QStringLiteral("okButton"));
                EXPECT_TRUE(dialog.rect().contains(QRect(button->mapTo(&dialog, QPoint()), button->size())));
                EXPECT_TRUE(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()))
                    << text.left(40).toStdString();
                EXPECT_NEAR(dialog.geometry().center().x(), m_window.geometry().center().x(), 1);
                EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::FramelessWindowHint));
                Click(dialog, "okButton");
            });
        MessageDialog::ExecuteDialog(QStringLiteral("Camera info"), text, QStringLiteral("OK"), nullptr);
    }
}

TEST_F(SmallDialogs, ConfirmIsTrueOnlyWhenConfirmed)
{
    const std::pair<ModalAnswers::Answer, bool> cases[] = {
        {Clicking("confirmButton"), true}, {Clicking("cancelButton"), false}, {Clicking("exitButton"), false},
        {Pressing(Qt::Key_Return), true},  {Pressing(Qt::Key_Escape), false},
    };
    for (const auto& [answer, confirmed] : cases)
    {
        m_answers.Then(answer);
        EXPECT_EQ(ConfirmDialog::executeDialog(QStringLiteral("Confirm"), QStringLiteral("Are you sure? \nReset")),
                  confirmed);
    }
}

TEST_F(SmallDialogs, WelcomeTellsWhetherToShowAround)
{
    const std::pair<ModalAnswers::Answer, bool> cases[] = {
        {Clicking("showAroundButton"), true}, {Clicking("noThanksButton"), false}, {Clicking("exitButton"), false},
        {Pressing(Qt::Key_Return), true},     {Pressing(Qt::Key_Escape), false},
    };
    for (const auto& [answer, shown] : cases)
    {
        m_answers.Then(
            [reply = answer](QDialog& dialog)
            {
                EXPECT_EQ(dialog.pos(), QPoint(7 + dialog.width() / 2, 11));
                reply(dialog);
                EXPECT_FALSE(dialog.isVisible());
            });
        EXPECT_EQ(WelcomeDialog::ExecuteDialog(7, 11), shown);
    }
    EXPECT_EQ(m_answers.Seen().front(), QStringLiteral("Welcome to\nLorvane\n"
                                                       "Let us show you how to get started with\nLorvane."));
}

TEST_F(SmallDialogs, AboutShowsTheVersionsAndIsDraggedByItsBackground)
{
    m_answers.Then(
        [](QDialog& dialog)
        {
            const QPoint start = dialog.pos();
            QTest::mousePress(&dialog, Qt::LeftButton, {}, QPoint(5, 5));
            QMouseEvent move(QEvent::MouseMove, QPointF(25, 15), dialog.mapToGlobal(QPoint(25, 15)), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&dialog, &move);
            EXPECT_EQ(dialog.pos(), start + QPoint(20, 10));
            Click(dialog, "exitButton");
            EXPECT_FALSE(dialog.isVisible());
        });
    AboutDialog::executeDialog(QStringLiteral("2.2.0.%3"), QStringLiteral("<1.4>"));
    EXPECT_TRUE(m_answers.Seen().front().endsWith(
        QStringLiteral("<span>Version: 2.2.0.%3<br/>Zlt API version: &lt;1.4&gt;</span>")));
}

TEST_F(SmallDialogs, OnboardingCoversTheWindowAndTellsOfItsEnd)
{
    OnboardDialog::executeDialog(nullptr, 0, 0, 10, 10);
    OnboardDialog dialog(&m_window);
    QSignalSpy closed(&dialog, &OnboardDialog::CloseDialog);
    const std::function<void()> ways[] = {[&] { Click(dialog, "closeButton"); },
                                          [&] { QTest::keyClick(&dialog, Qt::Key_Escape); }, [&] { dialog.close(); }};
    for (const auto& close : ways)
    {
        OnboardDialog::executeDialog(&dialog, 100, 60, 600, 500);
        ASSERT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.geometry(), QRect(100, 60, 600, 500));
        EXPECT_FALSE(dialog.isModal());
        close();
        EXPECT_FALSE(dialog.isVisible());
        ASSERT_EQ(closed.size(), 1);
        EXPECT_FALSE(closed.takeFirst().front().toBool());
    }
    for (const int width : {1254, 600, 300})
    {
        OnboardDialog::executeDialog(&dialog, 100, 60, 600, 500);
        m_window.resize(width, 500);
        QCoreApplication::processEvents();
        EXPECT_EQ(dialog.geometry(), m_window.geometry());
        const auto* camera = dialog.findChild<QWidget*>(QStringLiteral("cameraHint"));
        const auto* pixels = dialog.findChild<QWidget*>(QStringLiteral("pixelHint"));
        EXPECT_EQ(camera->y() == pixels->y(), width > 1000);
        EXPECT_LE(pixels->mapTo(&dialog, QPoint(pixels->width(), 0)).x(), width);
        ExpectNothingClipped(dialog);
    }
}

TEST_F(SmallDialogs, BottomPanelButtonsAnswerClicksWithoutTakingTheKeys)
{
    BottomPanel panel(&m_window);
    panel.show();
    EXPECT_EQ(panel.ScaleButton()->text(), QStringLiteral("100 %"));
    const int width = panel.width();
    panel.ScaleButton()->setText(QStringLiteral(" 30000 %"));
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.width(), width);
    ExpectNothingClipped(panel);
    const std::pair<const char*, QAbstractButton*> buttons[] = {
        {"playPauseButton", panel.PlayPauseButton()}, {"overlayButton", panel.OverlayButton()},
        {"overviewButton", panel.OverviewButton()},   {"scaleButton", panel.ScaleButton()},
        {"zoomInButton", panel.ZoomInButton()},       {"zoomOutButton", panel.ZoomOutButton()},
    };
    for (const auto& [name, button] : buttons)
    {
        EXPECT_EQ(button->objectName(), QLatin1String(name));
        QSignalSpy clicked(button, &QAbstractButton::clicked);
        const QImage before = button->grab().toImage();
        Click(panel, name);
        EXPECT_EQ(clicked.size(), 1) << name;
        EXPECT_EQ(button->isChecked(), button->isCheckable()) << name;
        EXPECT_FALSE(button->hasFocus());
        EXPECT_EQ(button->grab().toImage() != before, button->isCheckable()) << name; // another sign
    }
}

TEST_F(SmallDialogs, EveryTextFollowsTheLanguageWithoutBeingClipped)
{
    BottomPanel panel(&m_window);
    OnboardDialog onboard(&m_window);
    LoaderDialog loader(&m_window, QStringLiteral("Loading"));
    const auto texts = [](const QWidget& widget)
    {
        QStringList all;
        for (const QWidget* child : widget.findChildren<QWidget*>())
        {
            const auto* button = qobject_cast<const QAbstractButton*>(child);
            const auto* label = qobject_cast<const QLabel*>(child);
            all << child->toolTip() << child->accessibleName() << (button ? button->text() : QString())
                << (label ? label->text() : QString());
        }
        all.removeAll({});
        return all;
    };
    const QStringList fixed = {QStringLiteral("100 %"), QStringLiteral("Loading"), QStringLiteral("Title"),
                               QStringLiteral("Text"),  QStringLiteral("OK"),      QStringLiteral("Lorvane")};
    Brackets brackets;
    // Installed while the widget shows, and taken away again.
    const auto check = [&](QWidget& widget)
    {
        const QStringList english = texts(widget);
        QCoreApplication::installTranslator(&brackets);
        QTest::qWait(30);
        for (const QString& text : texts(widget))
        {
            EXPECT_TRUE(fixed.contains(text) || text.startsWith(QLatin1Char('['))) << text.toStdString();
        }
        ExpectNothingClipped(widget);
        QCoreApplication::removeTranslator(&brackets);
        QTest::qWait(30);
        EXPECT_EQ(texts(widget), english);
    };
    for (QWidget* widget :
         {static_cast<QWidget*>(&panel), static_cast<QWidget*>(&onboard), static_cast<QWidget*>(&loader)})
    {
        widget->show();
        check(*widget);
        widget->close();
    }
    m_answers.Then(check).Then(check).Then(check).Then(check);
    MessageDialog::ExecuteDialog(QStringLiteral("Title"), QStringLiteral("Text"), QStringLiteral("OK"), nullptr);
    ConfirmDialog::executeDialog(QStringLiteral("Title"), QStringLiteral("Text"));
    WelcomeDialog::ExecuteDialog(0, 0);
    AboutDialog::executeDialog(QStringLiteral("2.2.0.259137b"), QStringLiteral("1.4"));
}
