// Correction sets in the real window on a simulated camera: the road of an upload, and every question and refusal.
#include "WindowSession.h"

#include "CorrectionListWidget.h"

#include <QTreeView>

namespace
{

constexpr const char* Confirmation = "Are you sure? \n Overwrite current correction set 'User'";
constexpr const char* Restart = "Changes will only take effect after restarting the camera";

class CorrectionSetsTest : public WindowSession
{
protected:
    CorrectionSetsTest()
        : WindowSession(R"({"cameras": [{"id": "MONO", "model": "OSTREL S-1m", "serial": "1", "firmware": "ostrel",
            "width": 320, "height": 240, "frameRate": 100, "restartTime": 300}]})")
    {
    }

    CorrectionListWidget& Sets(const char* list) const { return *Find<CorrectionListWidget>(list); }
    void ClickIcon(int row, int column) const
    {
        auto* const view = window->findChild<QTreeView*>();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(view->model()->index(row, column)).center());
    }
    QVector<DefectInfo> List() const { return Model().getDefectList(); }
    static ModalAnswers::Answer Enter(std::vector<std::pair<const char*, const char*>> fields)
    {
        return [fields = std::move(fields)](QDialog& dialog)
        {
            for (const auto& [name, text] : fields)
            {
                ::Find<QLineEdit>(dialog, name).setText(text);
            }
            ::Click(dialog, "confirmButton");
        };
    }
    // What the user sees of an upload that is confirmed and not followed by a restart.
    void Upload(const char* message = nullptr)
    {
        const auto before = answers.Seen().size();
        answers.ThenClick("confirmButton");
        message != nullptr ? answers.ThenClick("okButton") : answers;
        answers.ThenClick("exitButton");
        Click("uploadToCameraButton");
        ASSERT_EQ(answers.Seen().size(), before + (message != nullptr ? 3 : 2));
        EXPECT_TRUE(answers.Seen()[before].contains(Confirmation)) << answers.Seen()[before].toStdString();
        const QString& second = answers.Seen()[before + 1];
        EXPECT_TRUE(second.contains(message != nullptr ? message : Restart)) << second.toStdString();
        EXPECT_TRUE(answers.Seen().back().contains(Restart));
        EXPECT_FALSE(Loader().isVisible());
    }
    void Fault(const char* json) const { Control({"fault", "MONO", json}); }
};

TEST_F(CorrectionSetsTest, TheRoadOfAnUpload)
{
    Pick(0);
    EXPECT_EQ(Find<QLabel>("labelPixelListCorrectionSet")->text(), "Preset") << "is active";
    EXPECT_EQ(Find<QLabel>("defaultSetValueLabel")->text(), "Preset");
    EXPECT_FALSE(List().isEmpty());
    EXPECT_FALSE(Find<QWidget>("mouseRectAddButton")->isEnabled()) << "the factory's set";
    Choose("userWidget");
    EXPECT_TRUE(List().isEmpty());
    Click("mouseRectAddButton");
    Drag({10, 12}, {10, 12});
    answers.Then(Enter({{"lineEditX", "20"}, {"lineEditY", "21"}}));
    Click("addPixelButton");
    answers.Then(Enter({{"lineEditX", "22"}}));
    ClickIcon(1, TreeModel::EditColumn);
    ASSERT_EQ(List().size(), 2);

    answers.ThenClick("cancelButton");
    Click("uploadToCameraButton");
    EXPECT_EQ(answers.Seen().size(), 3U) << "and nothing else";
    EXPECT_TRUE(Model().hasUnsavedDefects());
    EXPECT_FALSE(Loader().isVisible());

    answers.ThenClick("confirmButton").ThenClick("okButton").ThenClick("okButton");
    Click("uploadToCameraButton");
    EXPECT_TRUE(answers.Seen()[4].contains(Restart)) << answers.Seen()[4].toStdString();
    ASSERT_TRUE(Waits([&] { return answers.Seen().size() == 6; }));
    EXPECT_TRUE(answers.Seen()[5].contains("Camera has been disconnected"));
    EXPECT_TRUE(List().isEmpty());

    Pick(0);
    Choose("userWidget");
    ASSERT_EQ(List().size(), 2);
    EXPECT_FALSE(Model().hasUnsavedDefects()) << "green";
    EXPECT_EQ(QPoint(List()[0].x, List()[0].y), QPoint(10, 12));
    EXPECT_EQ(QPoint(List()[1].x, List()[1].y), QPoint(22, 21));
    Sets("userWidget").GetDpcEnableButton()->click();
    EXPECT_EQ(Find<QLabel>("activeSetValueLabel")->text(), "User");
    Sets("userWidget").GetDefaultSetButton()->click();
    EXPECT_EQ(Find<QLabel>("defaultSetValueLabel")->text(), "User");
    Pick(0);
    EXPECT_EQ(Find<QLabel>("activeSetValueLabel")->text(), "User") << "the camera keeps it";
    EXPECT_EQ(Find<QLabel>("defaultSetValueLabel")->text(), "User");
}

TEST_F(CorrectionSetsTest, AsksBeforeUnsavedDefectsAreLostAndCopiesThem)
{
    Pick(0);
    const int factory = List().size();
    const QString copied = "The pixel list 'Preset' was copied (%1 defects). You can paste it into the selected Set.";
    ExpectMessage(copied.arg(factory), [this] { Click("copyPixelListButton"); });
    Choose("userWidget");
    Click("pastePixelListButton");
    EXPECT_EQ(List().size(), factory);
    ExpectMessage(
        "Are you sure? \nOverwrite current pixel list", [this] { Choose("presetWidget"); }, "cancelButton");
    EXPECT_TRUE(Model().hasUnsavedDefects());
    answers.ThenClick("confirmButton");
    Choose("presetWidget");
    EXPECT_FALSE(Model().hasUnsavedDefects());
}

TEST_F(CorrectionSetsTest, FailuresAreToldAndTheListShowsWhatTheCameraHolds)
{
    Pick(0);
    Choose("userWidget");
    Model().addDefectItem(10, 12, 1, 1, 0, DefectInfo::NewColor);
    Upload();
    Model().addDefectItem(30, 32, 1, 1, 0, DefectInfo::NewColor);
    Fault(R"({"operation": "FileWrite", "code": -13})");
    Upload("Error with saving pixels\n");
    EXPECT_FALSE(Model().hasUnsavedDefects());
    Model().addDefectItem(30, 32, 1, 1, 0, DefectInfo::NewColor);
    Upload();
    EXPECT_EQ(List().size(), 2);

    Fault(R"({"operation": "SetValue", "feature": "CorrectionSetDefault", "code": -13})");
    ExpectMessage("Could not set value of CorrectionSetDefault",
                  [this] { Sets("userWidget").GetDefaultSetButton()->click(); });
    EXPECT_EQ(Find<QLabel>("defaultSetValueLabel")->text(), "Preset") << "snaps back";

    answers.ThenClick("cancelButton");
    window->PassRestoringCorrectionSet();
    answers.ThenClick("confirmButton");
    ExpectMessage("RestoreFactorySettings", [this] { window->PassRestoringCorrectionSet(); });

    answers.ThenClick("cancelButton").ThenClick("confirmButton");
    Click("clearListButton");
    EXPECT_TRUE(answers.Seen().back().contains("WARNING: All list entries will be deleted!"));
    EXPECT_EQ(List().size(), 2);
    Click("clearListButton");
    EXPECT_TRUE(List().isEmpty());
    EXPECT_FALSE(Find<QWidget>("clearListButton")->isEnabled());
}

TEST_F(CorrectionSetsTest, WithoutASetThereIsNothingToUpload)
{
    Pick(0);
    Sets("presetWidget").GetDpcEnableButton()->click();
    Pick(0);
    EXPECT_EQ(Find<QLabel>("activeSetValueLabel")->text(), "None");
    answers.ThenClick("okButton").ThenClick("exitButton");
    Click("uploadToCameraButton");
    ASSERT_EQ(answers.Seen().size(), 2U);
    EXPECT_TRUE(answers.Seen()[0].contains("Select a correction set"));
    EXPECT_TRUE(answers.Seen()[1].contains(Restart)) << "also then";
    answers.ThenClick("confirmButton");
    ExpectMessage("Select a correction set", [this] { window->PassRestoringCorrectionSet(); });
}

TEST_F(CorrectionSetsTest, ACameraThatLeavesInTheMiddleOfAnUploadLeavesAUsableWindow)
{
    Pick(0);
    Choose("userWidget");
    Model().addDefectItem(10, 12, 1, 1, 0, DefectInfo::NewColor);
    Fault(R"({"operation": "RunCommand", "feature": "FileOperationExecute", "call": 2, "unplug": true})");
    answers.Always([](QDialog& dialog) { dialog.reject(); });
    answers.ThenClick("confirmButton");
    Click("uploadToCameraButton");
    const auto wasSeen = [&](const char* text)
    { return QStringList(answers.Seen().begin(), answers.Seen().end()).join('\n').contains(text); };
    EXPECT_TRUE(wasSeen("Camera info"));
    ASSERT_TRUE(Waits([&] { return wasSeen("Camera has been disconnected"); }));
    EXPECT_FALSE(Loader().isVisible());
    Control({"fault", "MONO", "clear"});
    Control({"plug", "MONO"});
    Pick(0);
    EXPECT_FALSE(Sets("userWidget").GetComboBox()->count() == 0);
}

// Slow enough to watch: each block of the file takes a while.
TEST_F(CorrectionSetsTest, TheLoaderMovesWhileTheCameraWrites)
{
    Pick(0);
    Choose("userWidget");
    for (int i = 0; i < 400; ++i)
    {
        Model().addDefectItem(i % 300 + 1, i / 300 * 2 + 5, 1, 1, 0, DefectInfo::NewColor);
    }
    Fault(R"({"operation": "RunCommand", "feature": "FileOperationExecute", "count": 6, "delay": 150})");
    struct Paints final : QObject
    {
        bool eventFilter(QObject*, QEvent* event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int count = 0;
    } paints;
    Loader().findChild<QLabel*>("ringLabel")->installEventFilter(&paints);
    Upload();
    EXPECT_GE(paints.count, 8);
    EXPECT_EQ(List().size(), 400);
}

} // namespace
