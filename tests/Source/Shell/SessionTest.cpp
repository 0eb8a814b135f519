// A camera session in the real window on simulated cameras: choice, live image, tools, settings, loss.
#include "WindowSession.h"

#include "OtherLanguage.h"
#include "OverviewPanel.h"
#include "RightPanel.h"

#include <random>

namespace
{

class SessionTest : public WindowSession
{
protected:
    enum Row
    {
        Mono,   // 320 x 240, correction
        Colour, // Bayer, 352 x 288, correction
        Plain,  // no correction
        Mute    // has no stream
    };

    SessionTest()
        : WindowSession(R"({"cameras": [
            {"id": "MONO", "model": "OSTREL S-1m", "serial": "1", "firmware": "ostrel", "width": 320, "height": 240,
             "frameRate": 100, "reverseX": true},
            {"id": "COLOUR", "model": "OSTREL S-2c", "serial": "2", "firmware": "ostrel", "width": 352, "height": 288,
             "filter": "BayerRG", "scene": "chart", "frameRate": 100},
            {"id": "PLAIN", "model": "Vesk P", "serial": "3", "firmware": "plain", "width": 1600, "height": 1200,
             "frameRate": 50},
            {"id": "MUTE", "model": "Vesk Q", "serial": "4", "firmware": "plain", "width": 320, "height": 240,
             "stream": false}]})")
    {
    }
};

TEST_F(SessionTest, StartsStepByStepUntilTheFirstFrame)
{
    QDir().mkpath("state/MONO"); // as another program leaves the camera behind
    WriteFile("state/MONO/settings.json", R"({"ReverseX": "true"})");
    ExpectMessage("NOTE:\nReverse X and Y have been disabled", [this] { Pick(Mono); });
    EXPECT_EQ(Image().size(), QSize(320, 240));
    EXPECT_TRUE(Find<QWidget>("importButton")->isEnabled());
    EXPECT_EQ(Find<QLabel>("cameraNameLabel")->text().toStdString(), "OSTREL S-1m-1(MONO)"); // also the title bar's

    Click("playPauseButton");
    EXPECT_TRUE(Waits([&] { return !Find<QCheckBox>("playPauseButton")->isChecked(); }));
    Click("playPauseButton");
    EXPECT_TRUE(Waits([&] { return Find<QCheckBox>("playPauseButton")->isChecked(); }));
    Pick(Mono); // the same again is a session of its own
    EXPECT_EQ(answers.Seen().size(), 1U);
}

TEST_F(SessionTest, MouseToolsEditThePixelList)
{
    Pick(Mono);
    Choose("userWidget");
    Click("mouseRectAddButton");
    Drag({10, 12}, {10, 12});                                                // a pixel
    Drag({30, 20}, {31, 28});                                                // part of a column
    Drag({50, 40}, {55, 45});                                                // 25 pixels
    ExpectMessage("Too many pixels!", [this] { Drag({70, 40}, {76, 45}); }); // 30 of them
    const QVector<DefectInfo> list = Model().getDefectList();
    ASSERT_EQ(list.size(), 3);
    EXPECT_EQ(QRect(list[1].x, list[1].y, list[1].width, list[1].height), QRect(30, 20, 1, 8));
    EXPECT_EQ(list[2].type, 3);

    Click("mouseRubber");
    Drag({52, 42}, {52, 42});
    EXPECT_EQ(Model().rowCount(), 2);
    Pick(Plain);
    EXPECT_EQ(Model().rowCount(), 0) << "the list belongs to the camera before";
    EXPECT_FALSE(window->findChild<RightPanel*>()->UploadToCameraButton()->isEnabled());
    Click("mouseRectAddButton");
    ExpectMessage("DPC not supported", [this] { Drag({10, 12}, {10, 12}); });
}

TEST_F(SessionTest, ExportsAndImportsThePixelList)
{
    const QString path = Path("list.xml");
    Pick(Mono);
    Model().clear();
    Model().addDefectItem(10, 12, 1, 1, 0, 0);
    answers.Then(ChooseFile(path)).Then(ChooseFile(path));
    Click("exportToFileButton");
    Model().clear();
    Click("importButton");
    ASSERT_EQ(Model().rowCount(), 1);
    EXPECT_TRUE(Model().hasUnsavedDefects());
    WriteFile(path, "<Camera>");
    answers.Then(ChooseFile(path));
    ExpectMessage("File is corrupted", [this] { Click("importButton"); });
    EXPECT_TRUE(Model().isEmpty()) << "all or nothing";
}

TEST_F(SessionTest, SpeaksAnotherLanguageAndComesBack)
{
    Pick(Mono);
    Click("cameraOptionsButton");
    Click("supportButton");
    Find<QWidget>("detectorDialog")->show();
    Loader().show();
    ExpectFollowsTheLanguage(*window, "OSTREL.*|Preset|User|Loading|.s|>.*|[.\\d]+( %)?");
}

TEST_F(SessionTest, ColoursAndMosaic)
{
    Pick(Colour);
    Click("cameraOptionsButton");
    auto* const formats = Find<QComboBox>("pixelFormatComboBox");
    formats->setCurrentIndex(formats->findText("BayerRG8"));
    const auto isGrey = [this] { return Image().allGray(); };
    EXPECT_TRUE(Waits([&] { return !isGrey(); }));
    Click("debayeringOnOff");
    EXPECT_TRUE(Find<QPushButton>("debayeringOnOff")->isChecked());
    EXPECT_TRUE(Waits(isGrey));
    formats->setCurrentIndex(formats->findText("BayerRG12"));
    EXPECT_FALSE(Find<QPushButton>("debayeringOnOff")->isChecked());
}

TEST_F(SessionTest, OverviewComesWhenTheImageNoLongerFits)
{
    Pick(Plain); // larger than the view
    EXPECT_TRUE(window->findChild<OverviewPanel*>()->isVisible());
    for (int i = 0; i < 8; ++i)
    {
        Click("zoomOutButton");
    }
    EXPECT_FALSE(window->findChild<OverviewPanel*>()->isVisible());
}

TEST_F(SessionTest, LostCameraAndAnother)
{
    Pick(Mono);
    Model().addDefectItem(1, 2, 1, 1, 0, 0);
    ExpectMessage("Connection lost", [this] { Control({"unplug", "MONO"}); });
    EXPECT_EQ(Model().rowCount(), 0);
    EXPECT_TRUE(Waits([&] { return !Find<QWidget>("importButton")->isEnabled(); }));
    Pick(0); // the next one has moved up
    EXPECT_EQ(Image().size(), QSize(352, 288));
}

TEST_F(SessionTest, CameraWithoutAStreamEndsTheStart)
{
    ExpectMessage("Cannot open camera stream", [this] { ClickRow(Mute); });
    ASSERT_TRUE(Waits([this] { return !Loader().isVisible(); }));
    EXPECT_FALSE(Find<QWidget>("importButton")->isEnabled());
    Pick(Plain);
}

// LORVANE_SESSION_CHANGES lengthens it.
TEST_F(SessionTest, SurvivesRandomChanges)
{
    answers.Always([](QDialog& dialog) { dialog.accept(); });
    std::mt19937 random(7);
    const int changes = qMax(30, qEnvironmentVariableIntValue("LORVANE_SESSION_CHANGES"));
    auto* const list = window->findChild<CustomListView*>();
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto clickAnyRow = [&]
    {
        if (!Loader().isVisible() && list->model()->rowCount() > 0)
        {
            ClickRow(below(list->model()->rowCount()));
        }
    };
    auto* const formats = Find<QComboBox>("pixelFormatComboBox");
    const auto control = [&](const char* what) { Control({what, below(2) == 0 ? "MONO" : "COLOUR"}); };
    const std::function<void()> actions[] = {clickAnyRow,
                                             clickAnyRow,
                                             [&] { Click("playPauseButton"); },
                                             [&] { formats->setCurrentIndex(formats->count() - 1 - below(3)); },
                                             [&] { control("unplug"); },
                                             [&] { control("plug"); }};
    for (int change = 0; change < changes; ++change)
    {
        actions[below(static_cast<int>(std::size(actions)))]();
        QTest::qWait(below(120));
    }
    Control({"plug", "MONO"});
    Control({"plug", "COLOUR"});
    // The last plugs and pulls may still be on their way, so that a first choice may meet a camera that is leaving.
    bool isLive = false;
    for (int attempt = 0; attempt < 5 && !isLive; ++attempt)
    {
        ASSERT_TRUE(Waits([&] { return list->model()->rowCount() == 4 && !Loader().isVisible(); }));
        ClickRow(Colour);
        isLive =
            QTest::qWaitFor([&] { return !Loader().isVisible() && Image().size() == QSize(352, 288); }, Patience / 5);
    }
    EXPECT_TRUE(isLive) << answers.Seen().back().toStdString();
}

} // namespace
