// The small dialogs: answers, places, texts, languages.
#include "AboutDialog.h"
#include "ConfirmDialog.h"
#include "MessageDialog.h"
#include "ModalAnswers.h"
#include "OnboardDialog.h"
#include "OtherLanguage.h"
#include "WelcomeDialog.h"

#include <QScreen>
#include <QSignalSpy>

#include <functional>
#include <tuple>

namespace
{

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

} // namespace

TEST_F(SmallDialogs, EachWayOutGivesItsAnswer)
{
    int calls = 0;
    const auto message = [&calls]
    {
        const int before = calls;
        MessageDialog::ExecuteDialog(QStringLiteral("Title"), QStringLiteral("<b>One</b> & %1\ntwo"),
                                     QStringLiteral("Restart"), [&calls] { ++calls; });
        return calls > before;
    };
    const auto confirm = [] { return ConfirmDialog::executeDialog(QStringLiteral("Title"), QStringLiteral("Text")); };
    const auto welcome = [] { return WelcomeDialog::ExecuteDialog(7, 11); };
    const std::tuple<std::function<bool()>, ModalAnswers::Answer, bool> cases[] = {
        {message, Clicking("okButton"), true},         {message, Clicking("exitButton"), false},
        {message, Pressing(Qt::Key_Return), true},     {message, Pressing(Qt::Key_Escape), false},
        {confirm, Clicking("confirmButton"), true},    {confirm, Clicking("cancelButton"), false},
        {confirm, Pressing(Qt::Key_Return), true},     {confirm, Pressing(Qt::Key_Escape), false},
        {welcome, Clicking("showAroundButton"), true}, {welcome, Clicking("noThanksButton"), false},
    };
    for (const auto& [dialog, answer, accepted] : cases)
    {
        m_answers.Then(answer);
        EXPECT_EQ(dialog(), accepted) << m_answers.Seen().size();
    }
    EXPECT_EQ(m_answers.Seen().front(), QStringLiteral("Title\n<b>One</b> & %1\ntwo"));
    m_answers.Then([](QDialog& dialog) { EXPECT_EQ(dialog.pos(), QPoint(7 + dialog.width() / 2, 11)); });
    welcome();
}

TEST_F(SmallDialogs, TextsOfAnyLengthAreReadable)
{
    for (const QString& text : {QStringLiteral("/a/long/path/") + QString(60, QLatin1Char('w')),
                                QStringLiteral("A sentence that needs more room. ").repeated(6),
                                QStringLiteral("A sentence that fills the screen. ").repeated(200)})
    {
        m_answers.Then(
            [this, &text](QDialog& dialog)
            {
                ExpectNothingClipped(dialog);
                EXPECT_TRUE(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()))
                    << text.left(40).toStdString();
                EXPECT_NEAR(dialog.geometry().center().x(), m_window.geometry().center().x(), 1);
                Click(dialog, "okButton");
            });
        MessageDialog::ExecuteDialog(QStringLiteral("Camera info"), text, QStringLiteral("OK"), nullptr);
    }
}

TEST_F(SmallDialogs, OnboardingCoversTheWindowAndTellsOfItsEnd)
{
    m_window.setStyleSheet(QStringLiteral("background: white"));
    OnboardDialog dialog(&m_window);
    const QSignalSpy closed(&dialog, &OnboardDialog::CloseDialog);
    for (const int width : {600, 1254, 300})
    {
        OnboardDialog::executeDialog(&dialog, 100, 60, 600, 500);
        m_window.resize(width, 500);
        QCoreApplication::processEvents();
        EXPECT_EQ(dialog.geometry(), m_window.geometry());
        EXPECT_NEAR(qBlue(dialog.grab().toImage().pixel(3, 3)), 81, 2) << "the window shines through";
        ExpectNothingClipped(dialog);
        width == 600 ? Click(dialog, "closeButton") : QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    }
    EXPECT_EQ(closed.size(), 3);
}

TEST_F(SmallDialogs, EveryTextFollowsTheLanguageWithoutBeingClipped)
{
    const auto check = [](QDialog& dialog) { ExpectFollowsTheLanguage(dialog, "Title|Text|OK|Lorvane"); };
    m_answers.Always(check);
    MessageDialog::ExecuteDialog(QStringLiteral("Title"), QStringLiteral("Text"), QStringLiteral("OK"), nullptr);
    ConfirmDialog::executeDialog(QStringLiteral("Title"), QStringLiteral("Text"));
    WelcomeDialog::ExecuteDialog(0, 0);
    AboutDialog::executeDialog(QStringLiteral("2.2.0.259137b"), QStringLiteral("1.4"));
    EXPECT_EQ(m_answers.Seen().size(), 4U);
}
