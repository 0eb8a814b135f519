// Automatic detection in the real window on covered simulated cameras, held against what their sensors are made of.
#include "WindowSession.h"

#include "AutomaticDetectorDialog.h"
#include "CameraOptionPanel.h"
#include "CorrectionListWidget.h"
#include "Sensor/SensorFaults.h"

#include <QSignalBlocker>

#include <map>

namespace
{

using Grey = std::map<std::pair<int, int>, double>; // by x and y, of what shines

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

    // The camera with its writable set chosen and, where one is named, in this format.
    void Open(int row, const char* format = nullptr)
    {
        Pick(row);
        Q_EMIT Find<CorrectionListWidget>("userWidget")->GetComboBox()->activated(0);
        Click("cameraOptionsButton");
        ASSERT_TRUE(Waits([&] { return Formats().count() > 0; }));
        if (format != nullptr)
        {
            Formats().setCurrentText(format);
        }
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
    // None missing that is brighter than the threshold by more than noise, none that is not there.
    void CompareList(const Grey& expected, double threshold, double noise) const
    {
        Grey found;
        for (const DefectInfo& defect : Model().getDefectList())
        {
            for (int i = 0; i < defect.width * defect.height; ++i)
            {
                found[{defect.x + i % defect.width, defect.y + i / defect.width}] = 1;
            }
        }
        int shining = 0;
        for (const auto& [place, grey] : expected)
        {
            shining += grey >= threshold + noise ? 1 : 0;
            EXPECT_TRUE(grey < threshold + noise || found.count(place)) << place.first << ' ' << place.second;
        }
        EXPECT_GT(shining, 12);
        for (const auto& [place, any] : found)
        {
            const auto source = expected.find(place);
            EXPECT_TRUE(source != expected.end() && source->second >= threshold - noise)
                << place.first << ' ' << place.second;
        }
    }
    static Grey Seeded(unsigned width, unsigned height, unsigned seed, double exposureUs)
    {
        Grey greys;
        for (const Simulation::PixelFault& fault : Simulation::SeedFaults(width, height, seed))
        {
            greys[{fault.x, fault.y}] = (32 + fault.signal * exposureUs / 10'000) / 16; // 12 bits as 8
        }
        return greys;
    }
};

TEST_F(DetectionTest, MonoCameraTwice)
{
    Open(Mono, "Mono12");
    EXPECT_EQ(Find<QLabel>("activeSetValueLabel")->text(), "Preset") << "the correction would hide defects";
    for (const char* exposure : {"10000", "300000"}) // the longer one takes more than a second for four frames
    {
        Click("automaticDetectionButton");
        for (const char* name : {"cameraListButton", "cameraOptionsButton", "importButton"})
        {
            EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
        }
        EXPECT_EQ(Find<QLabel>("activeSetValueLabel")->text(), "None");
        auto* const language = Find<QComboBox>("languageBox");
        language->setCurrentText("Deutsch");
        EXPECT_TRUE(Waits([&] { return InDialog<QLabel>("warningLabel").text().startsWith("Korrektursatz 'User'"); }));
        language->setCurrentText("English");
        ASSERT_TRUE(Waits([&] { return InDialog<QLabel>("contentLabel").text().startsWith("Cover"); }));
        const QString warning = InDialog<QLabel>("warningLabel").text();
        EXPECT_TRUE(warning.contains("Switch off Correction Set 'User'...")) << warning.toStdString();
        EXPECT_EQ(warning.contains("<br><br>Change Pixel Format to 'Mono8'..."), QByteArray(exposure) == "10000");
        Click("continuousAutoExposure");
        Detect(exposure, "40");
        EXPECT_TRUE(Find<QPushButton>("offAutoExposure")->isChecked());
        ClickInDialog("continueButton");
        EXPECT_EQ(Header(), "Detection is done");
        CompareList(Seeded(320, 240, 5, QByteArray(exposure).toDouble()), 40, 4);
        ClickInDialog("exitButton");
        EXPECT_FALSE(Dialog().isVisible());
        EXPECT_TRUE(Find<QWidget>("importButton")->isEnabled());
        EXPECT_EQ(Formats().currentText(), "Mono8");
    }
}

TEST_F(DetectionTest, ColourMosaic)
{
    Open(Colour, "BayerRG12");
    Click("automaticDetectionButton");
    EXPECT_EQ(Formats().currentText(), "BayerRG8");
    Detect("20000", "30");
    EXPECT_TRUE(Find<QPushButton>("debayeringOnOff")->isChecked());
    ClickInDialog("continueButton");
    CompareList(Seeded(352, 288, 8, 20'000), 30, 4);
}

TEST_F(DetectionTest, Formats)
{
    struct Case
    {
        int row;
        const char* current;
        QStringList box;
        const char* chosen; // null: refused
    };
    const Case cases[] = {{Mono, "Mono8", {"Mono8", "Mono12"}, "Mono8"},
                          {Mono, "Mono8", {"Mono12", "Mono8"}, "Mono12"}, // the first one, whatever it is
                          {Mono, "Mono12", {"Mono12", "Mono10"}, nullptr},
                          {Colour, "RGB8", {"RGB8", "BayerRG12", "BayerRG8"}, "BayerRG8"},
                          {Colour, "BayerRG8", {"BayerRG8", "BayerRG12"}, nullptr},
                          {Colour, "BayerRG8", {"BayerRG8", "BayerRG12", "Mono8"}, "Mono8"}};
    ModalAnswers answers;
    int row = -1;
    for (const Case& test : cases)
    {
        SCOPED_TRACE(test.box.join(' ').toStdString() + " at " + test.current);
        if (test.row != row)
        {
            Find<QWidget>("cameraListButton")->setEnabled(true);
            Open(row = test.row);
        }
        Formats().setCurrentText(test.current);
        {
            const QSignalBlocker blocker(Formats());
            Formats().clear();
            Formats().addItems(test.box);
            Formats().setCurrentText(test.current);
        }
        const std::size_t seen = answers.Seen().size();
        if (test.chosen == nullptr)
        {
            answers.ThenClick("okButton");
        }
        Click("automaticDetectionButton");
        ASSERT_EQ(answers.Seen().size(), seen + (test.chosen ? 0 : 1));
        EXPECT_EQ(window->findChild<QDialog*>("detectorDialog") != nullptr, test.chosen != nullptr);
        EXPECT_EQ(Formats().currentText().toStdString(), test.chosen ? test.chosen : test.current);
        EXPECT_TRUE(test.chosen || answers.Seen().back().contains("BayerGR8, BayerRG8, BayerBG8, BayerGB8, Mono8"));
        EXPECT_FALSE(Find<QWidget>("importButton")->isEnabled());
    }
}

TEST_F(DetectionTest, EndsWithItsCamera)
{
    ModalAnswers answers;
    for (const bool isFrameThere : {false, true})
    {
        isFrameThere ? Open(0, "BayerRG12") : Open(Mono); // the next one has moved up
        Click("automaticDetectionButton");
        ClickInDialog("startButton");
        if (isFrameThere)
        {
            ASSERT_TRUE(Waits([&] { return !Header().startsWith("Please"); }));
        }
        answers.ThenClick("okButton");
        Control({"unplug", isFrameThere ? "COLOUR" : "MONO"});
        ASSERT_TRUE(Waits([&] { return !Dialog().isVisible() && answers.Seen().size() == (isFrameThere ? 2U : 1U); }));
        EXPECT_TRUE(answers.Seen().back().contains("Connection lost"));
        EXPECT_TRUE(Waits([&] { return !Find<QWidget>("importButton")->isEnabled(); }));
        EXPECT_TRUE(Find<QWidget>("cameraListButton")->isEnabled());
    }
}

TEST_F(DetectionTest, LeftWhileItWaitsItDoesNotReachTheNext)
{
    Open(Mono);
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
    Open(Colour);
    EXPECT_FALSE(Dialog().isVisible()) << "it belonged to the camera before";
}

} // namespace
