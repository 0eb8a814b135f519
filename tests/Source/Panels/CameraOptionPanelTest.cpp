// Camera options panel: what it shows, what it sends, and what it keeps to itself.
#include "CameraOptionPanel.h"
#include "OtherLanguage.h"
#include "SentEvents.h"
#include "Widgets.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>

#include <cmath>

namespace
{

constexpr int Gamma = 0, Gain = 1, Exposure = 2, BlackLevel = 3, Setpoint = 4;
constexpr int SetpointSelector = 5, ControlMode = 6, SetpointMode = 7;

// The controls in the order of their numbers, and what they show of the values that the fixture sets.
struct Control
{
    const char *slider, *field;
    int position;
    const char* text;
};
constexpr Control Controls[] = {{"sliderGamma", "currentGammaLabel", 100, "1.00"},
                                {"sliderGain", "currentGainLabel", 556, "5.6"},
                                {"sliderExposure", "currentExposureLabel", 400000, "1000.000"},
                                {"sliderBlacklvl", "currentBlacklvlLabel", 1200, "12"},
                                {"sliderSetpointValue", "editSetpointValue", -1050, "-10.5"}};

class CameraOptionPanelTest : public testing::Test
{
protected:
    CameraOptionPanelTest()
    {
        m_panel.SetSliders(0.25, 4.0, 1.0, Gamma);
        m_panel.SetSliders(0.0, 24.0, 5.56, Gain);
        m_panel.SetSliders(10.0, 1000000.0, 1000.0, Exposure);
        m_panel.SetSliders(0.0, 255.0, 12.0, BlackLevel);
        m_panel.SetSliders(-20.0, 40.0, -10.5, Setpoint);
        m_panel.InitTemperatureWidgets(true);
        m_panel.InitNucWidgets(true);
        m_panel.resize(m_panel.sizeHint());
        m_panel.show();
        QApplication::setActiveWindow(&m_panel);
        Settle();
    }

    // Layouts of nested widgets follow each other event by event.
    static void Settle()
    {
        for (int round = 0; round < 5; ++round)
        {
            QApplication::processEvents();
        }
    }
    template <class Widget> Widget& Find(const char* name) { return ::Find<Widget>(m_panel, name); }
    QSlider& Slider(int number) { return Find<QSlider>(Controls[number].slider); }
    QLineEdit& Field(int number) { return Find<QLineEdit>(Controls[number].field); }
    std::string Text(int number) { return Field(number).text().toStdString(); }

    void Type(int number, const char* text)
    {
        Field(number).selectAll();
        QTest::keyClicks(&Field(number), QLatin1String(text));
    }
    QPoint Handle(int number)
    {
        constexpr int HandleWidth = 14;
        const QSlider& slider = Slider(number);
        const double part = double(slider.value() - slider.minimum()) / (slider.maximum() - slider.minimum());
        return {HandleWidth / 2 + int(part * (slider.width() - HandleWidth)), slider.height() / 2};
    }
    // Value and number of the one signal since the last call; the number is -1 when there was none or more than one.
    std::pair<double, int> TakeSent()
    {
        const QVariantList sent = m_sent.count() == 1 ? m_sent[0] : QVariantList{0.0, -1};
        m_sent.clear();
        return {sent[0].toDouble(), sent[1].toInt()};
    }

    CameraOptionPanel m_panel;
    QSignalSpy m_sent{&m_panel, &CameraOptionPanel::SendChangedSliderValue};
};

TEST_F(CameraOptionPanelTest, ValuesOfTheCameraAreShownAndNotSentBack)
{
    for (int number = Gamma; number <= Setpoint; ++number)
    {
        const Control& control = Controls[number];
        SCOPED_TRACE(control.slider);
        EXPECT_NEAR(Slider(number).value(), control.position, number == Exposure ? 1 : 0);
        EXPECT_EQ(Text(number), control.text);
    }
    m_panel.SetSliders(-1e300, 1e300, std::nan(""), BlackLevel);
    const std::tuple<double, double, double, int> exposures[] = {
        {1.0, 1000000.0, 1000.0, 500000},
        {20.0, 5000000.0, 5000000.0, 1000000},                     // the end, whatever the rounding of the logarithms
        {10.0, 1000.0, 10.0 * std::pow(100.0, 0.2500009), 250000}, // truncated, not rounded
        {10.0, 10.0, 10.0, 0},                                     // a fixed exposure
        {10.0, 1000.0, std::nan(""), 0},
        {0.0, 1000.0, 1.0, 500000}, // no logarithm of 0
    };
    for (const auto& [minimum, maximum, value, position] : exposures)
    {
        m_panel.SetSliders(minimum, maximum, value, Exposure);
        EXPECT_NEAR(Slider(Exposure).value(), position, position == 500000 ? 1 : 0) << value;
    }
    // Results of the auto modes; the other controls have none.
    for (const auto& [value, number, text] :
         {std::tuple(100.0, Exposure, "100.000"), {7.24, Gain, "7.2"}, {2.0, Gamma, "1.00"}, {2.0, Setpoint, "-10.5"}})
    {
        m_panel.SetUpdatedSliderValues(value, number);
        EXPECT_EQ(Text(number), text);
    }
    EXPECT_EQ(m_sent.count(), 0);
}

TEST_F(CameraOptionPanelTest, TypedNumbersAreLimitedByTheLabelsAndOtherTextsTakenBack)
{
    // An own range whose ends the labels round.
    m_panel.SetSliders(0.04, 23.96, 5.0, Gain);
    const std::tuple<int, int, const char*, const char*, double> cases[] = {
        {Gain, 2396, "30", "24.0", 24.0}, // the slider ends at the real maximum
        {Gain, 4, "0", "0.0", 0.0},
        {Gain, 234, "2.345", "2.345", 2.345},
        {Gamma, 123, "1.239", "1.239", 1.239},
        {Exposure, 400000, "1e3", "1e3", 1000.0},
        {Exposure, 0, "1", "10.000", 10.0},
        {BlackLevel, 25500, "300", "255", 255.0},
        {Setpoint, 1250, "12.5", "12.5", 12.5},
        {Setpoint, -2000, "-1e300", "-20.0", -20.0},
    };
    for (const auto& [control, position, typed, text, sent] : cases)
    {
        SCOPED_TRACE(testing::Message() << control << ' ' << typed);
        Type(control, typed);
        EXPECT_EQ(m_sent.count(), 0);
        QTest::keyClick(&Field(control), Qt::Key_Return);
        EXPECT_EQ(TakeSent(), std::make_pair(sent, control));
        EXPECT_EQ(Text(control), text);
        EXPECT_NEAR(Slider(control).value(), position, control == Exposure ? 1 : 0);
    }
    for (int number = Gamma; number <= Setpoint; ++number)
    {
        for (const char* typed : {"1,5", "nan", "1e999", "", "3"})
        {
            const std::string former = Text(number);
            Field(number).clear();
            Type(number, typed);
            QTest::keyClick(&Field(number), QLatin1String(typed) == "3" ? Qt::Key_Escape : Qt::Key_Return);
            EXPECT_EQ(Text(number), former) << number << " \"" << typed << '"';
        }
    }
    EXPECT_EQ(m_sent.count(), 0);
}

TEST_F(CameraOptionPanelTest, LeavingAFieldSendsOnlyWhatWasChanged)
{
    for (const int number : {Gain, Exposure, Setpoint, Gain})
    {
        Field(number).setFocus();
    }
    EXPECT_EQ(m_sent.count(), 0) << "the shown number is rounded: passing by must not write it";
    Type(Gain, "7.1");
    Field(Exposure).setFocus();
    EXPECT_EQ(TakeSent(), std::make_pair(7.1, Gain));
    Field(Gain).setFocus();
    QTest::keyClick(&Field(Gain), Qt::Key_Return);
    EXPECT_EQ(TakeSent(), std::make_pair(7.1, Gain)) << "Return confirms an unchanged number, too";
}

TEST_F(CameraOptionPanelTest, GammaFollowsADragAndTheOthersItsEnd)
{
    for (int number = Gamma; number <= Setpoint; ++number)
    {
        SCOPED_TRACE(number);
        QSlider& slider = Slider(number);
        const QPoint from = Handle(number);
        const std::string former = Text(number);
        QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, from);
        for (const int distance : {20, 40})
        {
            SendMouse(slider, QEvent::MouseMove, from + QPoint(distance, 0), Qt::NoButton, Qt::LeftButton);
        }
        EXPECT_EQ(m_sent.count(), number == Gamma ? 2 : 0);
        EXPECT_EQ(Text(number) == former, number != Gamma);
        QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier, from + QPoint(40, 0));
        ASSERT_EQ(m_sent.count(), number == Gamma ? 2 : 1);
        const double sent = m_sent.last()[0].toDouble();
        const double expected =
            number == Exposure ? 10.0 * std::pow(1e5, slider.value() / 1e6) : slider.value() / 100.0;
        EXPECT_NEAR(sent, expected, std::abs(expected) * 1e-9);
        EXPECT_EQ(m_sent.last()[1].toInt(), number);
        EXPECT_NE(Text(number), former);
        m_sent.clear();
    }
}

TEST_F(CameraOptionPanelTest, KeysAndClicksBesideTheHandleCountAsARelease)
{
    const std::pair<int, double> steps[] = {{Gamma, 1.01}, {Gain, 5.66}, {BlackLevel, 13.0}, {Setpoint, -9.5}};
    for (const auto& [control, value] : steps)
    {
        QTest::keyClick(&Slider(control), Qt::Key_Right);
        EXPECT_EQ(TakeSent(), std::make_pair(value, control));
    }
    QTest::keyClick(&Slider(Exposure), Qt::Key_Home);
    EXPECT_EQ(TakeSent(), std::make_pair(10.0, Exposure));
    QSlider& slider = Slider(BlackLevel);
    QTest::mouseClick(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(slider.width() - 3, slider.height() / 2));
    EXPECT_EQ(TakeSent(), std::make_pair(25.0, BlackLevel));
}

TEST_F(CameraOptionPanelTest, TheWheelScrollsThePanelAndChangesOnlyWhatHasTheFocus)
{
    m_panel.SetPixelFormats({"Mono8", "Mono12"}, "Mono8");
    m_panel.resize(m_panel.width(), 300);
    Settle();
    QScrollBar& bar = *Find<QScrollArea>("optionScrollArea").verticalScrollBar();
    const auto turn = [](QWidget& widget) { SendWheel(widget, widget.rect().center(), -120); };
    turn(Slider(Gain));
    const int scrolled = bar.value();
    EXPECT_GT(scrolled, 0);
    turn(*m_panel.PixelFormatBox());
    EXPECT_GT(bar.value(), scrolled);
    EXPECT_EQ(m_sent.count(), 0);
    EXPECT_EQ(m_panel.PixelFormatBox()->currentIndex(), 0);
    Slider(Gain).setFocus();
    turn(Slider(Gain));
    EXPECT_EQ(TakeSent().second, Gain);
}

TEST_F(CameraOptionPanelTest, PixelFormatDecidesOverDebayering)
{
    QSignalSpy formats(&m_panel, &CameraOptionPanel::SendNewPixelFormat);
    QSignalSpy defaults(&m_panel, &CameraOptionPanel::SetDebayeringtoDefault);
    QComboBox& box = *m_panel.PixelFormatBox();
    m_panel.SetPixelFormats({"Mono8", "BayerRG12", "BayerRG8", "BayerGB8"}, "BayerRG8");
    EXPECT_TRUE(m_panel.DebayeringButton()->isEnabled());
    QTest::keyClick(&box, Qt::Key_Home);
    EXPECT_EQ(formats.takeFirst()[0], "Mono8");
    EXPECT_EQ(defaults.count(), 1);
    EXPECT_FALSE(m_panel.DebayeringButton()->isEnabled());
    m_panel.SetBoxIndexToDefault();
    EXPECT_EQ(box.currentText(), "BayerRG8");
    m_panel.SetPixelFormats({"Mono10", "BayerRG12", "BayerRG8p", "xBayerRG8", "BayerRG8\n"}, "Unlisted");
    EXPECT_EQ(box.currentIndex(), -1);
    EXPECT_FALSE(m_panel.BayerFormatAvailable());
    EXPECT_EQ(formats.count(), 0);
}

TEST_F(CameraOptionPanelTest, BoxesShowTheCamerasTextsAndSendTheUsersChoice)
{
    QSignalSpy chosen(&m_panel, &CameraOptionPanel::SendChangedComboboxValue);
    QSignalSpy nuc(&m_panel, &CameraOptionPanel::SendNucModeValue);
    const std::pair<int, const char*> boxes[] = {
        {SetpointSelector, "cmbSetpointSelector"}, {ControlMode, "cmbControlMode"}, {SetpointMode, "cmbSetpointMode"}};
    for (const auto& [number, name] : boxes)
    {
        SCOPED_TRACE(name);
        auto& box = Find<QComboBox>(name);
        m_panel.SetUpdatedComboboxValues({"1", "2", "3"}, "3", number);
        EXPECT_EQ(box.currentText(), "3");
        m_panel.SetUpdatedComboboxValues({}, "2", number);
        m_panel.SetUpdatedComboboxValues({}, "", number);
        EXPECT_EQ(box.count(), 3);
        EXPECT_EQ(box.currentText(), "2");
        EXPECT_EQ(chosen.count(), 0);
        QTest::keyClick(&box, Qt::Key_Up);
        ASSERT_EQ(chosen.count(), 1);
        EXPECT_EQ(chosen.takeFirst(), QVariantList({"1", number}));
    }
    m_panel.SetNucModeValues({"Off", "Dataset"}, "Off");
    QTest::keyClick(&Find<QComboBox>("cmbNucMode"), Qt::Key_Down);
    ASSERT_EQ(nuc.count(), 1);
    EXPECT_EQ(nuc[0][0], "Dataset");
}

TEST_F(CameraOptionPanelTest, ActivationStaysDownUntilTheCameraIsDone)
{
    QSignalSpy activations(&m_panel, &CameraOptionPanel::SendActivateSetpoint);
    auto& button = Find<QPushButton>("btnActivateSetpoint");
    Find<QScrollArea>("optionScrollArea").ensureWidgetVisible(&button);
    // A press on the busy button releases it and sends nothing.
    for (const auto& [isDown, count] : {std::make_pair(true, 1), std::make_pair(false, 1), std::make_pair(true, 2)})
    {
        QTest::mouseClick(&button, Qt::LeftButton);
        EXPECT_EQ(button.isChecked(), isDown);
        EXPECT_EQ(activations.count(), count);
    }
    m_panel.ReleaseSetpointButton();
    EXPECT_FALSE(button.isChecked());
}

TEST_F(CameraOptionPanelTest, WhatTheCameraLacksOrWarnsOf)
{
    for (const bool active : {false, true})
    {
        m_panel.LockChosenSliders(Gain, !active);
        m_panel.InitTemperatureWidgets(active);
        m_panel.InitNucWidgets(!active);
        EXPECT_EQ(Slider(Gain).isEnabled(), active);
        EXPECT_TRUE(Field(Gain).isEnabled() && Slider(Gamma).isEnabled());
        EXPECT_EQ(Find<QFrame>("frameTemperatureControl").isVisible(), active);
        EXPECT_EQ(Find<QFrame>("frameNucControl").isVisible(), !active);
    }
    for (const char* text : {"Unstable", "Stable", "Stable "})
    {
        m_panel.OnControlStateChanged(text);
        EXPECT_EQ(Find<QLineEdit>("editControlState").styleSheet().contains("#ffff00"), qstrcmp(text, "Stable") != 0);
    }
}

TEST_F(CameraOptionPanelTest, LongTextsAreNotCut)
{
    QWidget window;
    auto* row = new QHBoxLayout(&window);
    row->addWidget(&m_panel);
    row->addStretch();
    window.resize(800, 400);
    window.show();
    m_panel.SetUpdatedComboboxValues({"Off", "TemperatureRegulationFast"}, "TemperatureRegulationFast", ControlMode);
    ExpectFollowsTheLanguage(m_panel, "[-.\\d]+");
    const QWidget& contents = *Find<QScrollArea>("optionScrollArea").widget();
    EXPECT_LT(contents.childrenRect().right(), contents.parentWidget()->width());
    m_panel.setParent(nullptr);
}

} // namespace
