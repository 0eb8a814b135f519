// The window on its own, without any camera: start, buttons, tools, keys, busy state, overview, files, end.
#include "WindowSession.h"

#include "OverviewPanel.h"
#include "PixelListXml.h"
#include "ScreenScale.h"

namespace
{

class MainWindowTest : public testing::Test, protected WorkingFolder, protected OpenWindow
{
protected:
    MainWindowTest()
    {
        qputenv("ZLT_PROVIDER_PATH", "/nowhere"); // stands for no camera API
        Start();
    }
    QCheckBox* Check(const char* name) const { return Find<QCheckBox>(name); }
};

TEST_F(MainWindowTest, StartsAndEndsWithoutAnyCamera)
{
    EXPECT_EQ(qApp->font().family(), "Open Sans");
    for (const char* name : {"cameraOptionsButton", "pixelListButton", "importButton"})
    {
        EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
    }
    EXPECT_TRUE(Find<QWidget>("refreshLishButton")->isVisible());
    Click("cameraListButton");
    EXPECT_FALSE(Find<QWidget>("refreshLishButton")->isVisible());
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowNoState})
    {
        Click("maximizeButton");
        EXPECT_EQ(window->windowState(), state);
    }
    Click("exitButton");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MainWindowTest, AsksForACameraAtMostOnceASecond)
{
    const auto press = [this] { QTest::keyClick(window.get(), Qt::Key_P); };
    ExpectMessage("Please select a camera", press);
    press();
    EXPECT_EQ(answers.Seen().size(), 1U);
    QTest::qWait(1100);
    ExpectMessage("Please select a camera", press);

    // The button that was clicked in vain does not keep showing a running stream.
    answers.ThenClick("okButton");
    Click("playPauseButton");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Check("playPauseButton")->isChecked(); }, 2000));
}

TEST_F(MainWindowTest, ExactlyOneToolIsDownAndCannotBeReleased)
{
    struct Case
    {
        Qt::Key key;
        const char *button, *caption;
        Qt::CursorShape cursor;
    };
    const Case cases[] = {{Qt::Key_1, "mouseRectAddButton", "labelSelect", Qt::CrossCursor},
                          {Qt::Key_2, "mouseGrabButton", "labelGrab", Qt::OpenHandCursor},
                          {Qt::Key_3, "mouseRubber", "labelErase", Qt::CrossCursor}};
    const std::function<void(const Case&)> ways[] = {
        [this](const Case& tool) { QTest::keyClick(Find<QWidget>("graphicsView"), tool.key); },
        [this](const Case& tool) { Click(tool.button); }, [this](const Case& tool) { Click(tool.caption); }};
    for (const auto& choose : ways)
    {
        for (const Case& now : cases)
        {
            SCOPED_TRACE(now.button);
            choose(now);
            for (const Case& other : cases)
            {
                const bool active = &other == &now;
                EXPECT_EQ(Check(other.button)->isChecked(), active) << other.button;
                EXPECT_EQ(Check(other.button)->isEnabled(), !active) << other.button;
                EXPECT_EQ(Find<QLabel>(other.caption)->styleSheet().startsWith("color:white"), active) << other.caption;
            }
            EXPECT_EQ(Find<CustomGraphicsView>("graphicsView")->cursor().shape(), now.cursor);
        }
    }
    QTest::keyClick(window.get(), Qt::Key_2);
    window->EnableSelectEraseButtons(false);
    QTest::keyClick(window.get(), Qt::Key_1);
    QTest::keyClick(window.get(), Qt::Key_3);
    EXPECT_TRUE(Check("mouseGrabButton")->isChecked());
    EXPECT_FALSE(Check("mouseRectAddButton")->isEnabled());
}

TEST_F(MainWindowTest, ZoomKeysNeedAModifier)
{
    auto* const view = Find<CustomGraphicsView>("graphicsView");
    view->scene()->addRect(0, 0, 4000, 3000);
    for (const auto& [key, modifier, text] : {std::tuple{Qt::Key_Plus, Qt::NoModifier, "100 %"},
                                              {Qt::Key_Plus, Qt::ShiftModifier, "125 %"},
                                              {Qt::Key_Plus, Qt::KeypadModifier, "156 %"},
                                              {Qt::Key_Minus, Qt::NoModifier, "156 %"},
                                              {Qt::Key_Minus, Qt::KeypadModifier, "125 %"}})
    {
        QTest::keyClick(view, key, modifier);
        EXPECT_EQ(Find<QPushButton>("scaleButton")->text().trimmed().toStdString(), text);
    }
    for (const auto& [button, scale] : {std::pair("scaleButton", 1.0), {"zoomInButton", 1.25}, {"zoomOutButton", 1.0}})
    {
        Click(button);
        EXPECT_DOUBLE_EQ(view->ReturnCurrentScale(), scale) << button;
    }
}

TEST_F(MainWindowTest, BusyStateTakesEverythingOutOfUseAndGivesItBack)
{
    const QStringList off = {"graphicsView", "importButton", "cameraListButton", "mouseRectAddButton", "mouseRubber"};
    for (const bool editing : {true, false})
    {
        window->EnableSelectEraseButtons(editing);
        QTest::keyClick(window.get(), Qt::Key_2);
        for (const bool isBusy : {true, false})
        {
            isBusy ? window->ApplicationLoaderShow() : window->ApplicationLoaderClose();
            for (const QString& name : off)
            {
                const bool wanted = !isBusy && (editing || (name != "mouseRectAddButton" && name != "mouseRubber"));
                EXPECT_EQ(Find<QWidget>(name.toLatin1())->isEnabled(), wanted) << name.toStdString();
            }
            EXPECT_EQ(QApplication::overrideCursor() != nullptr, isBusy);
        }
        EXPECT_FALSE(Check("mouseGrabButton")->isChecked());
    }
}

TEST_F(MainWindowTest, WelcomesOnceAndRemembersIt)
{
    const QImage below = window->grab().toImage();
    const auto shinesThrough = [&](QDialog& dialog)
    {
        const QImage cover = Find<QWidget>("windowOverlay")->grab().toImage();
        for (const QPoint& place : {QPoint(2, 2), QPoint(20, 400), below.rect().center()})
        {
            EXPECT_NEAR(qBlue(cover.pixel(place)), (qBlue(below.pixel(place)) + 255) / 2, 1) << place.y();
        }
        ::Click(dialog, "showAroundButton");
    };
    answers.Then(shinesThrough).ThenClick("exitButton");
    window->WelcomingDialog();
    EXPECT_TRUE(Check("supportButton")->isChecked()) << "the tour is open";
    Click("aboutButton");
    EXPECT_FALSE(Check("supportButton")->isChecked());
    ASSERT_EQ(answers.Seen().size(), 2U);
    EXPECT_TRUE(answers.Seen()[1].contains("Version: 2.2.0.259137b")) << answers.Seen()[1].toStdString();
    QTest::mouseClick(Check("supportButton"), Qt::LeftButton, {}, {3, 3});
    EXPECT_TRUE(Check("supportButton")->isChecked()) << "also at its edge";
    window->WelcomingDialog();
    EXPECT_FALSE(QFile::exists("Lorvane.ini")) << "written at the end only";
    Start();
    window->WelcomingDialog();
    EXPECT_EQ(answers.Seen().size(), 2U);
}

TEST_F(MainWindowTest, OverviewIsTheLargestFractionBelowItsLimit)
{
    auto* panel = window->findChild<OverviewPanel*>();
    for (const auto& [image, overview] : {std::pair(QPoint(1000, 800), QSize(500, 400)),
                                          {{500, 300}, {500, 300}},
                                          {{501, 300}, {250, 150}},
                                          {{0, 0}, {0, 0}}})
    {
        window->SetMaximumOverviewSizes(image);
        EXPECT_EQ(panel->GetMaximumSizes(), overview) << image.x();
    }
    Click("overviewButton");
    EXPECT_TRUE(panel->isVisible());
}

TEST(ScreenScale, TakesQuartersAndNeverShrinks)
{
    for (const auto& [dotsPerInch, scale] : {std::pair{72.0, 1.0}, {100.0, 1.0}, {144.3, 1.5}, {192.0, 2.0}})
    {
        EXPECT_DOUBLE_EQ(Lorvane::ScaleForDotsPerInch(dotsPerInch), scale) << dotsPerInch;
    }
}

TEST_F(MainWindowTest, SavesWhatTheListHoldsAndLoadsNothing)
{
    const QString path = Path("list"); // the name as given, without an extension of ours
    ExpectMessage("List is empty!", [this] { window->SaveXmlFile(); });
    Model().addDefectItem(10, 20, 1, 1, 0, 0);
    answers.Then([](QDialog& dialog) { dialog.reject(); });
    window->SaveXmlFile();
    EXPECT_FALSE(QFile::exists(path));
    answers.Then(ChooseFile(path));
    window->SaveXmlFile();
    EXPECT_EQ(ReadFile(path).toStdString(), ToXml(Model().getDefectList()).toStdString());
    WriteFile("list.xml", {});
    answers.Then(ChooseFile(Path("list.xml")));
    ExpectMessage("To load .xml file\nchoose a camera first", [this] { window->LoadXmlFile(); });
    EXPECT_EQ(Model().rowCount(), 1);
    EXPECT_TRUE(Find<QWidget>("graphicsView")->isEnabled());
}

} // namespace
