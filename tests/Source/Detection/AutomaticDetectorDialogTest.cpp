// The detection dialog: its pages, its configuration, and searches that are stopped or replaced at any moment.
#include "AutomaticDetectorDialog.h"

#include "DefectInfo.h"
#include "DetectionRun.h"
#include "TreeModel.h"
#include "Widgets.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QMovie>
#include <QSignalSpy>
#include <QSlider>

#include <random>

namespace
{

class DetectorDialog : public testing::Test
{
protected:
    DetectorDialog() { Open("Mono8", 200, 100); }

    void Open(const char* format, int width, int height)
    {
        dialog = std::make_unique<AutomaticDetectorDialog>(&window, &model, format, width, height,
                                                           std::vector<int>{0, 1, 2});
        dialog->SetExposureRange(10, 1e7, 10'000, 1'000'000);
        dialog->SetGainRange(0, 24, 0);
        AutomaticDetectorDialog::executeDialog(dialog.get());
    }
    template <class Widget = QLabel> Widget* Find(const char* name) const { return FindIfShown<Widget>(*dialog, name); }
    void Click(const char* name) const { QTest::mouseClick(&FindShown<QPushButton>(*dialog, name), Qt::LeftButton); }
    void Type(const char* field, const char* text) const { ::Type(::Find<QLineEdit>(*dialog, field), text); }
    int Position(const char* slider) const { return dialog->findChild<QSlider*>(slider)->value(); }
    QString FieldText(const char* field) const { return dialog->findChild<QLineEdit*>(field)->text(); }
    // What shows: buttons and pictures by the first letters of their names, then the first label's text.
    QString Shown() const
    {
        QString shown;
        for (const char* name : {"configureButton", "startButton", "backButton", "startDetectionButton",
                                 "stopDetectionButton", "closeButton", "continueButton"})
        {
            shown += Find<QPushButton>(name) ? QString(name).remove("Button") + ' ' : QString();
        }
        shown += Find("loadingLabel") ? "spinner " : "";
        shown += Find("loadingFinishedLabel") ? "done " : "";
        const QLabel* const header = Find("headerLabel");
        return shown + (header ? "| " + header->text() + " | " + Find("contentLabel")->text() : QString());
    }
    static QImage Frame(int defects, int grey = 41, QSize size = QSize(200, 100))
    {
        QImage frame(size, QImage::Format_RGB32);
        frame.fill(Qt::black);
        for (int i = 0; i < defects; ++i)
        {
            frame.setPixel(3 + 5 * (i % 30), 3 + 5 * (i / 30), qRgb(grey, grey, grey));
        }
        return frame;
    }
    void Search(const QImage& frame)
    {
        dialog->SetImage(frame);
        ASSERT_TRUE(QTest::qWaitFor([&] { return dialog->cursor().shape() == Qt::ArrowCursor; }, 20'000));
    }

    QWidget window;
    TreeModel model;
    std::unique_ptr<AutomaticDetectorDialog> dialog;
};

const QString Waiting = "Please wait... | Searching defective pixels on your camera...";
const QString TooMany =
    "The maximum number of defects\nsupported by the tool (%1) is exceeded.\n\nPlease check your "
    "configuration:\n\nThreshold too low?\nExposure or gain too high?\nCamera not properly covered?";

TEST_F(DetectorDialog, WalksThroughItsPages)
{
    const QSignalSpy asked(dialog.get(), &AutomaticDetectorDialog::SendExposureGain);
    model.addDefectItem(1, 1, 1, 1, 0, DefectInfo::CameraColor);
    EXPECT_EQ(Shown(), "configure start ");
    Click("startButton");
    EXPECT_EQ(Shown(), "stopDetection spinner | Please wait.. | Searching defective pixels on your camera");
    EXPECT_EQ(asked[0], QVariantList({10'000.0, 0.0})) << "as they stand, the page never opened";
    Search(Frame(100)); // 0.5 % of the pixels
    EXPECT_EQ(Shown(),
              "close continue spinner | 100 defects found | Do you wish to continue correction?\nThe operation "
              "will erase the current pixel list of the user set.");
    EXPECT_EQ(model.rowCount(), 1);
    Click("continueButton");
    EXPECT_EQ(Shown(), "close done | Detection is done | Defective pixels and the \"Upload to camera\" button are "
                       "available in the pixel list.");
    EXPECT_EQ(model.rowCount(), 100);
    EXPECT_EQ(model.getDefectList()[31].x, 8);

    Click("closeButton");
    EXPECT_EQ(Shown(), "back startDetection ");
    Type("currentTresholdLabel", "42");
    Click("startDetectionButton");
    EXPECT_EQ(Shown(), "stopDetection spinner | " + Waiting);
    Search(Frame(7));
    EXPECT_EQ(Shown(), "close done | Detection is done.\n0 defects found. | ") << "41 is below the threshold";
    Click("closeButton");
    Click("backButton");
    EXPECT_EQ(Position("sliderTreshold"), 42);
    Click("startButton"); // with threshold 40 again, and nothing to stop it by
    EXPECT_EQ(Shown(), "close spinner | " + Waiting);
    Search(Frame(101));
    EXPECT_EQ(Shown(), "close done | Detection is done.\n101 defects found. | " + TooMany.arg(100));
    Click("closeButton");
    Type("defectLimitLabel", "0");
    Type("currentTresholdLabel", "41");
    Click("startDetectionButton");
    Search(Frame(5));
    EXPECT_EQ(Shown(), "close done | Detection is done.\n5 defects found. | " + TooMany.arg(0));
    EXPECT_EQ(model.rowCount(), 100);

    // A search that ends while the configuration shows leaves nothing of its result to the next one.
    Click("closeButton");
    Click("backButton");
    Click("startButton");
    Click("closeButton");
    Search(Frame(7));
    EXPECT_EQ(Shown(), "back startDetection ");
    Click("startDetectionButton");
    EXPECT_EQ(Shown(), "stopDetection spinner | " + Waiting);
}

TEST_F(DetectorDialog, ConfigurationFields)
{
    EXPECT_EQ(Position("sliderDefectLimit"), 100);
    Click("configureButton");
    // The name is that of field and slider.
    const std::tuple<const char*, const char*, const char*, int> cases[] = {
        {"Treshold", "300", "255", 255},
        {"Treshold", "12.7", "12", 12},
        {"Gain", "30", "30", 2400},
        {"Exposure", "1000", "1000", 333333},
        {"Exposure", "2e7", "10000000.000", 1000000},
        {"Exposure", "2500000", "2500000", 899656}};
    for (const auto& [name, typed, text, position] : cases)
    {
        const QByteArray field = QByteArray("current") + name + "Label";
        Type(field, typed);
        EXPECT_EQ(FieldText(field), text) << typed;
        EXPECT_NEAR(Position(QByteArray("slider") + name), position, 1) << typed;
        const bool isLong = *name == 'E' && QString(text).toDouble() > 1e6;
        EXPECT_EQ(Find("exposureWarningLabel") != nullptr, isLong) << typed;
    }
    EXPECT_EQ(Find("exposureWarningLabel")->text(), "Warning, too high exposure! Detection will take ca. 10 seconds");
    Type("currentTresholdLabel", "128");
    EXPECT_EQ(Find("tresholdLabel")->grab().toImage().pixel(9, 9), qRgb(128, 128, 128));

    QTest::mouseClick(Find<QSlider>("sliderExposure"), Qt::LeftButton, {}, QPoint(1, 9)); // a page down
    EXPECT_EQ(FieldText("currentExposureLabel"), "1252956.519");                          // 10 us * 10^(6 * 0.849656)
    Click("backButton");
    const QSignalSpy asked(dialog.get(), &AutomaticDetectorDialog::SendExposureGain);
    Click("startButton");
    EXPECT_NEAR(asked[0][0].toDouble(), 1252956.519, 0.001);
    EXPECT_EQ(asked[0][1], 30.0) << "the camera's settings bring it into the range";

    // The scale of a second range rests on the slider's range of before it.
    dialog->SetExposureRange(10, 1e7, 10'000, 500'000);
    EXPECT_EQ(Position("sliderExposure"), 500'000);
    dialog->SetExposureRange(10, 1e7, 10'000, 1'000'000);
    EXPECT_NEAR(Position("sliderExposure"), 250'000, 1);
    EXPECT_EQ(FieldText("currentExposureLabel"), "10000");
    for (const auto& [format, depth] : {std::pair("Mono12Packed", 4095), {"BayerRG8", 255}, {"Raw", 255}, {"", 255}})
    {
        Open(format, 1936, 1216);
        EXPECT_EQ(dialog->findChild<QSlider*>("sliderTreshold")->maximum(), depth) << format;
        EXPECT_EQ(Position("sliderDefectLimit"), 11770);
    }
}

TEST_F(DetectorDialog, StopsAtAnyMoment)
{
    const QString cancelled = "close done | Detection is cancelled | ";
    Click("startButton");
    Click("stopDetectionButton"); // before a frame came
    EXPECT_EQ(Shown(), cancelled);
    dialog->SetImage(Frame(3));
    EXPECT_EQ(window.findChild<DetectionRun*>(), nullptr);

    // The spinner turns on while a bright frame is searched, for seconds but for the stop.
    QImage frame(6000, 4000, QImage::Format_RGB32);
    frame.fill(Qt::white);
    Click("closeButton");
    Click("startDetectionButton");
    dialog->SetImage(frame);
    for (int turns = 0; turns < 3; ++turns)
    {
        const int turned = dialog->findChild<QMovie*>()->currentFrameNumber();
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->findChild<QMovie*>()->currentFrameNumber() != turned; }));
        EXPECT_NE(window.findChild<DetectionRun*>(), nullptr) << "still at it";
    }
    Click("stopDetectionButton");
    dialog->OnStopDetectClick(); // as the closing window does
    EXPECT_EQ(Shown(), cancelled);
    // What the stopped ones still signal does not end the next one.
    Click("closeButton");
    Click("startDetectionButton");
    QTest::qWait(300);
    EXPECT_EQ(Shown(), "stopDetection spinner | " + Waiting);
    Search(Frame(3));
    Click("continueButton");
    EXPECT_EQ(model.rowCount(), 3);

    // Its receiver closes it; the window manager does, too.
    QSignalSpy closing(dialog.get(), &AutomaticDetectorDialog::CloseDialog);
    Click("exitButton");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible());
    dialog->windowHandle()->close();
    EXPECT_EQ(closing.size(), 3);
    EXPECT_FALSE(dialog->isVisible());
}

// LORVANE_DETECTION_STOPS lengthens it.
TEST_F(DetectorDialog, SurvivesRandomStartsAndStops)
{
    std::mt19937 random(3);
    const int rounds = std::max(60, qEnvironmentVariableIntValue("LORVANE_DETECTION_STOPS"));
    for (int round = 0; round < rounds; ++round)
    {
        Click("configureButton");
        Click("startDetectionButton");
        dialog->SetImage(Frame(40, 200, QSize(200 << random() % 4, 100)));
        QTest::qWait(static_cast<int>(random() % 4));
        switch (random() % 4)
        {
        case 0:
            Open("Mono8", 200, 100); // in its place, in the middle of the search
            continue;
        case 1:
            dialog->SetImage(Frame(3));
            break;
        case 2:
            dialog->OnStopDetectClick();
            break;
        default:
            Search(Frame(3));
            EXPECT_TRUE(Shown().contains("3 defects found"));
            break;
        }
        dialog->OnStopDetectClick();
        Click("closeButton");
        Click("backButton");
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.findChild<DetectionRun*>() == nullptr; }, 20'000));
}

} // namespace
