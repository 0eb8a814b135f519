// Uploads to cameras that keep more or less than others: sets with the conditions of their making, and a camera that
// puts a new set in force at once.
#include "WindowSession.h"

#include "CorrectionListWidget.h"

namespace
{

class OtherFamiliesTest : public WindowSession
{
protected:
    enum Row
    {
        Rivo,
        Cooled
    };

    OtherFamiliesTest()
        : WindowSession(R"({"cameras": [
            {"id": "RIVO", "model": "Rivo U-1m", "serial": "2", "firmware": "rivo-u", "width": 320, "height": 240},
            {"id": "COOLED", "model": "Tamorin Pro T-1m", "family": "Tamorin Pro", "serial": "1", "firmware": "tamorin-pro",
             "width": 320, "height": 240, "frameRate": 50, "temperatureControl": true}]})")
    {
    }

    CorrectionListWidget& UserSets() const { return *Find<CorrectionListWidget>("userWidget"); }
    QString Line(int index) const { return UserSets().GetComboBox()->itemText(index); }
    void ChooseUserSet(int index) const
    {
        UserSets().GetComboBox()->setCurrentIndex(index);
        Q_EMIT UserSets().GetComboBox()->activated(index);
    }
    void AddPixel(int x, int y) const { Model().addDefectItem(x, y, 1, 1, 0, DefectInfo::NewColor); }
    // Types the conditions, notes the warning, and presses the button.
    ModalAnswers::Answer Store(const char* gain, const char* exposure, const char* temperature, const char* button)
    {
        return [=](QDialog& dialog)
        {
            Type(::Find<QLineEdit>(dialog, "editGain"), gain);
            Type(::Find<QLineEdit>(dialog, "editExposure"), exposure);
            Type(::Find<QLineEdit>(dialog, "editTemperature"), temperature);
            auto& label = ::Find<QLabel>(dialog, "labelWarning");
            warning = label.isVisible() ? label.text() : QString();
            ::Click(dialog, button);
        };
    }
    QString warning;
};

TEST_F(OtherFamiliesTest, SetsAreStoredWithTheirConditionsAndNoTwoWithTheSame)
{
    const auto emptySet = [](int index) { return QStringLiteral("%1. [Empty Set]").arg(index); };
    Pick(Cooled);
    ASSERT_EQ(UserSets().GetComboBox()->count(), 8);
    EXPECT_EQ(Line(1), emptySet(1));
    EXPECT_EQ(Find<QLabel>("defaultSetValueLabel")->text(), "DPC_000");
    ExpectMessage("SetDefaultCorrectionSet not available on Tamorin Pro",
                  [this] { UserSets().GetDefaultSetButton()->click(); });
    EXPECT_EQ(Find<QLabel>("defaultSetValueLabel")->text(), "DPC_000");

    // An empty list is asked for like everywhere; with a pixel the conditions are asked for.
    ChooseUserSet(1);
    const auto upload = [this] { Click("uploadToCameraButton"); };
    ExpectMessage("Overwrite current correction set 'DPC_User_2'", upload, "cancelButton");
    AddPixel(20, 21);
    answers.Then(Store("1", "2000", "20", "exitButton"));
    Click("uploadToCameraButton");
    EXPECT_TRUE(answers.Seen().back().contains("Upload To Camera : DPC_User_2"));
    EXPECT_TRUE(Model().hasUnsavedDefects());
    EXPECT_FALSE(Loader().isVisible());
    EXPECT_EQ(Line(1), emptySet(1)) << "nothing was written";

    answers.Then(Store("1", "2000", "20", "buttonOK")).ThenClick("exitButton");
    Click("uploadToCameraButton");
    EXPECT_EQ(warning, "");
    EXPECT_TRUE(answers.Seen().back().contains("Upload successful"));
    EXPECT_FALSE(Model().hasUnsavedDefects());
    EXPECT_EQ(Line(1), "1. Gain 1.0, 20.0\u00B0C, 2000\u00B5S");

    // The second set of the same conditions takes the first one's place.
    ChooseUserSet(4);
    EXPECT_TRUE(Model().isEmpty());
    AddPixel(30, 31);
    AddPixel(33, 31);
    answers.Then(Store("1.04", "2000", "20", "buttonOK")).ThenClick("exitButton");
    Click("uploadToCameraButton");
    EXPECT_EQ(warning, "WARNING: \nThe current metadata is equal to already existing Set 'DPC_User_2'.\n\"Overwrite\" "
                       "would remove it and save the Set 'DPC_User_5'.");
    EXPECT_TRUE(Model().isEmpty()) << "shows the set that was emptied";
    EXPECT_EQ(Line(1), emptySet(1));
    EXPECT_EQ(Line(4), "4. Gain 1.0, 20.0\u00B0C, 2000\u00B5S");

    // As the camera tells it when it is opened anew.
    Pick(Rivo);
    Pick(Cooled);
    EXPECT_EQ(Line(1), emptySet(1));
    EXPECT_EQ(Line(4), "4. Gain 1.0, 20.0\u00B0C, 2000\u00B5S");
    ChooseUserSet(4);
    EXPECT_EQ(Model().getDefectList().size(), 2);
}

TEST_F(OtherFamiliesTest, WhereASetIsInForceAtOnceNoRestartIsOffered)
{
    Pick(Rivo);
    for (const bool factory : {true, false})
    {
        ChooseUserSet(UserSets().findSet(factory ? "Factory" : "User"));
        Model().clear();
        AddPixel(20, 21);
        answers.ThenClick("confirmButton");
        factory ? answers.ThenClick("okButton") : answers;
        Click("uploadToCameraButton");
        EXPECT_EQ(answers.Seen().size(), factory ? 2U : 3U) << "nothing after the upload";
        EXPECT_EQ(answers.Seen().back().contains("Factory set can't be overwritten!"), factory);
        EXPECT_EQ(Model().getDefectList().size(), factory ? 0 : 1);
    }
}

} // namespace
