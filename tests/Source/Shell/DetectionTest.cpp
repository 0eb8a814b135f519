// Automatic detection in the real window on covered simulated cameras.
#include "WindowSession.h"

#include "AutomaticDetectorDialog.h"

#include <QSignalBlocker>

namespace
{

class DetectionTest : public WindowSession
{
protected:
    enum Row
    {
        Mono,
        Colour
    };

    DetectionTest()
        : WindowSession(R"({"cameras": [
            {"id": "MONO", "model": "OSTREL S-1m", "serial": "1", "firmware": "ostrel", "width": 320, "height": 240,
             "frameRate": 25, "covered": true, "seed": 5},
            {"id": "COLOUR", "model": "OSTREL S-2c", "serial": "2", "firmware": "ostrel", "width": 352, "height": 288,
             "filter": "BayerRG", "frameRate": 25, "covered": true, "seed": 8}]})")
    {
    }

    AutomaticDetectorDialog& Dialog() const { return *Find<AutomaticDetectorDialog>("detectorDialog"); }
    template <class Widget> Widget& InDialog(const char* name) const { return ::FindShown<Widget>(Dialog(), name); }
    void ClickInDialog(const char* name) const { QTest::mouseClick(&InDialog<QPushButton>(name), Qt::LeftButton); }
    QComboBox& Formats() const { return *Find<QComboBox>("pixelFormatComboBox"); }
    QString Header() const { return InDialog<QLabel>("headerLabel").text(); }

    // The camera with its writable set chosen, in this format.
    void Open(int row, const char* format)
    {
        Pick(row);
        Choose("userWidget");
        Click("cameraOptionsButton");
        ASSERT_TRUE(Waits([&] { return Formats().findText(format) >= 0; }));
        Formats().setCurrentText(format);
    }
    // From the first page to the result.
    void Detect(const char* exposure, const char* threshold)
    {
        ClickInDialog("configureButton");
        Type(InDialog<QLineEdit>("currentExposureLabel"), exposure);
        Type(InDialog<QLineEdit>("currentTresholdLabel"), threshold);
        Type(InDialog<QLineEdit>("defectLimitLabel"), "5000");
        ClickInDialog("startDetectionButton");
        ASSERT_TRUE(Waits([&] { return !Header().startsWith("Please"); }));
        EXPECT_TRUE(Header().endsWith(" defects found")) << Header().toStdString();
    }
};

// What is found is held against the sensors by the roads through the real program.
TEST_F(DetectionTest, TakesTheWindowAndGivesItBack)
{
    // The camera, its format (empty: as the one before has left it), the one that is searched, the exposure.
    const std::tuple<int, const char*, const char*, const char*> cases[] = {
        {Mono, "Mono12", "Mono8", "10000"},
        {Mono, "", "Mono8", "300000"}, // more than a second for four frames
        {Colour, "BayerRG12", "BayerRG8", "20000"}};
    for (const auto& [row, format, searched, exposure] : cases)
    {
        *format != 0 ? Open(row, format) : void();
        Click("automaticDetectionButton");
        for (const char* name : {"cameraListButton", "cameraOptionsButton", "importButton"})
        {
            EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
        }
        EXPECT_EQ(Find<QLabel>("activeSetValueLabel")->text(), "None") << "the correction would hide defects";
        const QString warning = InDialog<QLabel>("warningLabel").text();
        EXPECT_TRUE(warning.contains("Switch off Correction Set 'User'...")) << warning.toStdString();
        EXPECT_EQ(warning.contains(QString("<br><br>Change Pixel Format to '%1'...").arg(searched)), *format != 0);
        Find<QComboBox>("languageBox")->setCurrentText("Deutsch");
        EXPECT_TRUE(Waits([&] { return InDialog<QLabel>("warningLabel").text().startsWith("Korrektursatz 'User'"); }));
        Find<QComboBox>("languageBox")->setCurrentText("English");
        ASSERT_TRUE(Waits([&] { return InDialog<QLabel>("contentLabel").text().startsWith("Cover"); }));
        Click("continuousAutoExposure");
        Detect(exposure, "40");
        EXPECT_TRUE(Find<QPushButton>("offAutoExposure")->isChecked());
        EXPECT_EQ(Find<QPushButton>("debayeringOnOff")->isChecked(), row == Colour);
        ClickInDialog("continueButton");
        EXPECT_EQ(Header(), "Detection is done");
        EXPECT_GT(Model().rowCount(), 12);
        ClickInDialog("exitButton");
        EXPECT_FALSE(Dialog().isVisible());
        EXPECT_TRUE(Find<QWidget>("importButton")->isEnabled());
        EXPECT_EQ(Formats().currentText(), searched);
    }
}

TEST_F(DetectionTest, Formats)
{
    // The camera, its format, what the box offers and what is chosen of that; null: refused.
    const std::tuple<int, const char*, QStringList, const char*> cases[] = {
        {Mono, "Mono8", {"Mono8", "Mono12"}, "Mono8"},
        {Mono, "Mono8", {"Mono12", "Mono8"}, "Mono12"}, // the first one, whatever it is
        {Mono, "Mono12", {"Mono12", "Mono10"}, nullptr},
        {Colour, "RGB8", {"RGB8", "BayerRG12", "BayerRG8"}, "BayerRG8"},
        {Colour, "BayerRG8", {"BayerRG8", "BayerRG12"}, nullptr},
        {Colour, "BayerRG8", {"BayerRG8", "BayerRG12", "Mono8"}, "Mono8"}};
    int opened = -1;
    for (const auto& [row, current, box, chosen] : cases)
    {
        SCOPED_TRACE(box.join(' ').toStdString() + " at " + current);
        if (row != opened)
        {
            Find<QWidget>("cameraListButton")->setEnabled(true);
            Open(opened = row, row == Mono ? "Mono8" : "BayerRG8");
        }
        Formats().setCurrentText(current);
        {
            const QSignalBlocker blocker(Formats());
            Formats().clear();
            Formats().addItems(box);
            Formats().setCurrentText(current);
        }
        const std::size_t seen = answers.Seen().size();
        chosen == nullptr ? answers.ThenClick("okButton") : answers;
        Click("automaticDetectionButton");
        ASSERT_EQ(answers.Seen().size(), seen + (chosen ? 0 : 1));
        EXPECT_EQ(window->findChild<QDialog*>("detectorDialog") != nullptr, chosen != nullptr);
        EXPECT_EQ(Formats().currentText().toStdString(), chosen ? chosen : current);
        EXPECT_TRUE(chosen || answers.Seen().back().contains("BayerGR8, BayerRG8, BayerBG8, BayerGB8, Mono8"));
        EXPECT_FALSE(Find<QWidget>("importButton")->isEnabled());
    }
}

TEST_F(DetectionTest, EndsWithItsCamera)
{
    for (const bool isFrameThere : {false, true})
    {
        Open(0, isFrameThere ? "BayerRG12" : "Mono8"); // the next one has moved up
        Click("automaticDetectionButton");
        ClickInDialog("startButton");
        if (isFrameThere)
        {
            ASSERT_TRUE(Waits([&] { return !Header().startsWith("Please"); }));
        }
        ExpectMessage("Connection lost", [&] { Control({"unplug", isFrameThere ? "COLOUR" : "MONO"}); });
        EXPECT_TRUE(Waits([this] { return !Dialog().isVisible(); }));
        EXPECT_TRUE(Waits([&] { return !Find<QWidget>("importButton")->isEnabled(); }));
        EXPECT_TRUE(Find<QWidget>("cameraListButton")->isEnabled());
    }
}

TEST_F(DetectionTest, LeftWhileItWaitsItDoesNotReachTheNext)
{
    Open(Mono, "Mono8");
    Click("automaticDetectionButton");
    ClickInDialog("startButton");
    Click("automaticDetectionButton"); // the window is not locked
    QTest::qWait(1500);
    EXPECT_TRUE(InDialog<QPushButton>("startButton").isVisible());
    ClickInDialog("startButton");
    ClickInDialog("stopDetectionButton");
    QTest::qWait(1500);
    EXPECT_EQ(Header(), "Detection is cancelled");
    ClickInDialog("closeButton");
    ClickInDialog("startDetectionButton");
    Dialog().windowHandle()->close(); // by the window manager
    EXPECT_FALSE(Dialog().isVisible());
    EXPECT_TRUE(Find<QWidget>("importButton")->isEnabled());
    Click("automaticDetectionButton");
    Open(Colour, "BayerRG8");
    EXPECT_FALSE(Dialog().isVisible()) << "it belonged to the camera before";
}

} // namespace
