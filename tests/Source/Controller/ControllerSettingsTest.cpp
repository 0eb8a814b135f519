// The controller's camera settings on one thread: what it tells of a camera's features and what it writes to them.
#include "AsynchronousCameraController.h"

#include "CustomListView.h"
#include "ImageDoubleBuffer.h"
#include "ListedSystem.h"

#include <gmock/gmock.h>

#include <QDebug>
#include <QElapsedTimer>
#include <QTest>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

using Controller = AsynchronousCameraController;
using Lines = std::vector<std::string>;

class ControllerSettingsTest : public ListedSystem
{
protected:
    ControllerSettingsTest() : camera(Add("A"))
    {
        Number("Gamma", 1.0, 0.5, 2.0);
        Number("Gain", 3.0, 0.0, 24.0);
        Number("ExposureTime", 5000.0, 10.0, 100'000.0);
        Number("ExposureTimeAbs", 100.0, 20.0, 200.0);
        Number("BlackLevel", 16.0, 0.0, 255.0);
        Number("SensorTemperatureSetpointValue", std::int64_t{15}, std::int64_t{-20}, std::int64_t{45});
        Number("SensorTemperatureSetpointSelector", std::int64_t{2}, std::int64_t{1}, std::int64_t{3});
        camera->Add("SensorTemperatureSetpointActive", ZltFeatureDataInteger, std::int64_t{3});
        Texts("SensorTemperatureControlState", "Stable", {});
        Texts("SensorTemperatureControlMode", "On", {"On", "!Off", "Eco"});
        Texts("SensorTemperatureSetpointMode", "autoNear", {"autoNear", "Manual"});
        Texts("NUCMode", "Auto", {"Off", "Auto", "!Old"});
        Texts("NUCDatasetActiveDescription", "10 ms", {});
        Texts("ExposureAuto", "Off", {"Off", "Once", "Continuous"});
        Texts("GainAuto", "Continuous", {"Off", "Once", "Continuous"});
        (*camera)["PixelFormat"].value = std::string("Mono8");
        Entries("PixelFormat", {"Mono8", "!Mono12", "BayerRG8"});
    }
    ~ControllerSettingsTest() override { controller.reset(); }

    template <class T> void Number(const char* name, T value, T minimum, T maximum)
    {
        ScriptedFeature& feature = camera->Add(name, ZltFeatureDataFloat, value);
        feature.minimum = minimum;
        feature.maximum = maximum;
    }
    // An entry with a '!' cannot be chosen.
    void Entries(const char* name, const Lines& entries)
    {
        for (const std::string& entry : entries)
        {
            (*camera)[name].AddEntry(entry.substr(entry[0] == '!' ? 1 : 0));
            (*camera)[name].entries.back()->available = entry[0] != '!';
        }
    }
    void Texts(const char* name, const char* value, const Lines& entries)
    {
        camera->Add(name, ZltFeatureDataEnumeration, std::string(value));
        Entries(name, entries);
    }
    template <class... Arguments> void Log(void (Controller::*signal)(Arguments...), const char* name)
    {
        QObject::connect(controller.get(), signal, controller.get(),
                         [this, name](const Arguments&... arguments)
                         {
                             QString line;
                             QDebug stream = QDebug(&line).nospace().noquote();
                             stream << name;
                             ((stream << ' ' << arguments), ...);
                             log.push_back(line.toStdString());
                         });
    }
    Controller& Start()
    {
        controller = std::make_unique<Controller>(&view, -1, QString(), false, images);
        Log(&Controller::SendSlidersValues, "Slider");
        Log(&Controller::SendLockSliders, "Lock");
        Log(&Controller::SendCurrentExposureMode, "ExposureMode");
        Log(&Controller::SendCurrentGainMode, "GainMode");
        Log(&Controller::SendPixelFormats, "Formats");
        Log(&Controller::SendUpdatedSLiderValue, "Updated");
        Log(&Controller::SendComboboxValues, "Box");
        Log(&Controller::SendTemperatureControlEnabled, "Temperature");
        Log(&Controller::SendTemperatureControlStateValue, "State");
        Log(&Controller::SendTemperatureSetpointMode, "Mode");
        Log(&Controller::SendActiveSetpointValue, "Active");
        Log(&Controller::SendSetpointActivationDone, "Done");
        Log(&Controller::SendTemperatureStatusUnstable, "Unstable");
        Log(&Controller::SendNucModeValues, "NucMode");
        Log(&Controller::SencNucDatasetDescription, "Nuc");
        Log(&Controller::SendNucControlEnabled, "NucControl");
        Log(&Controller::ErrorSignal, "Error");
        controller->SetNewIndex(0, "A");
        camera->changes.clear();
        return *controller;
    }
    // Calls a slot of the timers and tells what it sent.
    Lines Tick(const char* slot)
    {
        QMetaObject::invokeMethod(controller.get(), slot, Qt::DirectConnection);
        return Told();
    }
    Lines Told() { return std::exchange(log, {}); }
    Lines Written() { return std::exchange(camera->changes, {}); }

    CustomListView view;
    ImageDoubleBuffer images;
    std::shared_ptr<ListedCamera> camera;
    std::unique_ptr<Controller> controller;
    Lines log;
};

constexpr const char* Monitor = "MonitorExposureTimeAndTemperature";

TEST_F(ControllerSettingsTest, WhatTheOptionsPanelIsTold)
{
    const Lines all = {"Slider 0.5 2 1 0",
                       "Slider 0 24 3 1",
                       "Slider 10 100000 5000 2",
                       "ExposureMode 0",
                       "GainMode 2",
                       "Slider 0 255 16 3",
                       "Formats (Mono8, BayerRG8) Mono8",
                       "State Stable",
                       "Mode autoNear",
                       "Active 3",
                       "Slider -20 45 15 4",
                       "Box (1, 2, 3) 2 5",
                       "Box (On, Eco) On 6",
                       "Box (autoNear, Manual) autoNear 7",
                       "NucMode (Off, Auto) Auto",
                       "Nuc 10 ms",
                       "Temperature true",
                       "NucControl true"};
    // What the camera does not have, and what is told instead of which line.
    const std::pair<int, const char*> noTemperature = {16, "Temperature false"};
    const std::pair<int, const char*> noNuc = {17, "NucControl false"};
    const std::vector<std::pair<Lines, std::map<int, std::string>>> cases = {
        {{}, {}},
        {{"Find Gamma"}, {{0, "Lock 0 true"}}},
        {{"Find Gain"}, {{1, "Lock 1 true"}}},
        {{"Find ExposureTime"}, {{2, "Slider 20 200 100 2"}}},
        {{"Find ExposureTime", "Find ExposureTimeAbs"}, {{2, "Lock 2 true"}}},
        {{"Find ExposureAuto"}, {{3, "ExposureMode -1"}}},
        {{"Find GainAuto"}, {{4, "GainMode -1"}}},
        {{"Find BlackLevel"}, {{5, "Lock 3 true"}}},
        {{"Find PixelFormat"}, {{6, ""}}},
        {{"Find SensorTemperatureControlState"}, {{7, ""}, noTemperature}},
        {{"Find SensorTemperatureSetpointMode"}, {{8, ""}, {13, ""}, noTemperature}},
        {{"Find SensorTemperatureSetpointActive"}, {{9, ""}, noTemperature}},
        {{"Find SensorTemperatureSetpointValue"}, {{10, ""}, noTemperature}},
        {{"Find SensorTemperatureSetpointSelector"}, {{11, ""}, noTemperature}},
        {{"Find SensorTemperatureControlMode"}, {{12, ""}, noTemperature}},
        {{"Find NUCMode"}, {{14, ""}, noNuc}},
        {{"Find NUCDatasetActiveDescription"}, {{15, ""}, noNuc}},
        {{"Range Gain", "Get SensorTemperatureSetpointActive", "Get ExposureAuto"}, {{1, ""}, {3, ""}, {9, ""}}}};
    for (const auto& [failing, instead] : cases)
    {
        SCOPED_TRACE(failing.empty() ? "complete" : failing.front());
        static_cast<CallScript&>(*camera) = CallScript();
        for (const std::string& call : failing)
        {
            camera->Fail(call, 0);
        }
        Start().SetCameraSettings();
        Lines expected = all;
        for (const auto& [line, text] : instead)
        {
            expected[static_cast<std::size_t>(line)] = text;
        }
        expected.erase(std::remove(expected.begin(), expected.end(), std::string()), expected.end());
        EXPECT_EQ(Told(), expected);
        EXPECT_EQ(controller->IsTemperatureControlAvailable(), expected[expected.size() - 2] == "Temperature true");
        EXPECT_EQ(controller->GetCurrentTemperatureSetpointValue(),
                  controller->IsTemperatureControlAvailable() ? 15.0 : -999.0);
        EXPECT_THAT(Written(), IsEmpty());
        controller.reset();
    }
}

TEST_F(ControllerSettingsTest, AbsurdSetpointRange)
{
    (*camera)["SensorTemperatureSetpointSelector"].minimum = std::numeric_limits<std::int64_t>::max() - 1;
    (*camera)["SensorTemperatureSetpointSelector"].maximum = std::numeric_limits<std::int64_t>::max();
    Start().SetCameraSettings();
    EXPECT_THAT(Told(), testing::Contains("Box (9223372036854775806, 9223372036854775807) 2 5"));
}

TEST_F(ControllerSettingsTest, WhatChangesOfThePanelWrite)
{
    Start().SetCameraSettings();
    Told();
    const std::vector<std::tuple<double, int, Lines>> sliders = {
        {1.5, 0, {"Set Gamma 1.500000"}},
        {9.0, 0, {"Set Gamma 2.000000"}},
        {-1.0, 1, {"Set Gain 0.000000"}},
        {300.5, 3, {"Set BlackLevel 255.000000"}},
        {7.9, 3, {"Set BlackLevel 7.900000"}},
        {1.0, 5, {}},
        {-3.9, 4, {"Set SensorTemperatureSetpointValue -3"}}, // beyond what the range allows goes, too
        {99.0, 4, {"Set SensorTemperatureSetpointValue 99"}}};
    for (const auto& [value, slider, written] : sliders)
    {
        controller->UpdateSliderFeatures(value, slider);
        EXPECT_EQ(Written(), written) << value;
    }
    EXPECT_THAT(Told(), IsEmpty());
    controller->UpdateComboboxFeatures("Eco", 6);
    controller->UpdateComboboxFeatures("Manual", 7);
    controller->SetNucModeValue("Off");
    EXPECT_THAT(Told(), IsEmpty());
    camera->On("Set SensorTemperatureSetpointSelector", 1,
               [&] { (*camera)["SensorTemperatureSetpointValue"].value = std::int64_t{-5}; });
    controller->UpdateComboboxFeatures("3", 5);
    EXPECT_THAT(Told(), ElementsAre("Slider -20 45 -5 4")) << "each setpoint has its own";
    EXPECT_THAT(Written(),
                ElementsAre("Set SensorTemperatureControlMode Eco", "Set SensorTemperatureSetpointMode Manual",
                            "Set NUCMode Off", "Set SensorTemperatureSetpointSelector 3"));
}

TEST_F(ControllerSettingsTest, ExposureIsWrittenByTheMonitor)
{
    for (const bool onlyOlder : {false, true})
    {
        const std::string name = onlyOlder ? "ExposureTimeAbs" : "ExposureTime";
        onlyOlder ? camera->Fail("Find ExposureTime", 0) : void();
        Start();
        const std::vector<std::pair<double, const char*>> cases = {{1e9, onlyOlder ? " 200.000000" : " 100000.000000"},
                                                                   {1.0, onlyOlder ? " 20.000000" : " 10.000000"},
                                                                   {150.5, " 150.500000"}};
        for (const auto& [value, written] : cases)
        {
            controller->UpdateSliderFeatures(77.0, 2);
            controller->UpdateSliderFeatures(value, 2);
            EXPECT_THAT(Written(), IsEmpty());
            Tick(Monitor);
            Tick(Monitor);
            EXPECT_THAT(Written(), ElementsAre("Set " + name + written)) << "the last value, once";
        }
        EXPECT_EQ(controller->GetCurrentExposure(), 150.5);
        EXPECT_EQ(controller->GetExposureRange(), onlyOlder ? std::pair(20.0, 200.0) : std::pair(10.0, 100'000.0));
        controller->UpdateSliderFeatures(60.0, 2);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !camera->changes.empty(); }, 5000)) << "by its own timer";
        controller->UpdateSliderFeatures(1.0, 2);
        camera->Fail("Get " + name, 0);
        controller->GetExposureRange();
        EXPECT_EQ(controller->GetCurrentExposure(), onlyOlder ? 20.0 : 10.0) << "as asked for, within the range";
        controller->SetNewIndex(0, "A");
        Written();
        Tick(Monitor);
        EXPECT_THAT(Written(), IsEmpty()) << "nothing waits for another camera";
        controller.reset();
    }
}

TEST_F(ControllerSettingsTest, AutoModes)
{
    Start().StopTimers();
    EXPECT_THAT(Tick("ExposureSliderAutoChange"), IsEmpty());
    EXPECT_THAT(Tick("GainSliderAutoChange"), ElementsAre("Updated 3 1"));
    controller->SetExposureMode(1);
    controller->SetGainMode(0);
    EXPECT_THAT(Tick("GainSliderAutoChange"), IsEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !log.empty(); }, 5000));
    EXPECT_EQ(Told().at(0), "Updated 100 2") << "of the older name where the camera has both";
    controller->SetExposureMode(2);
    controller->SetExposureMode(3);
    camera->Fail("Find ExposureTimeAbs", 0);
    EXPECT_THAT(Tick("ExposureSliderAutoChange"), ElementsAre("Updated 5000 2"));
    controller->SetExposureMode(0);
    EXPECT_THAT(Written(), ElementsAre("Set ExposureAuto Once", "Set GainAuto Off", "Set ExposureAuto Continuous",
                                       "Set ExposureAuto Off"));
    (*camera)["ExposureAuto"].value = std::string("Once");
    QTest::qWait(700);
    EXPECT_THAT(Told(), IsEmpty()) << "the timer has stopped";
}

TEST_F(ControllerSettingsTest, TemperatureMonitor)
{
    Start().SetCameraSettings();
    Told();
    const std::vector<std::tuple<const char*, const char*>> states = {
        {"Stable", ""}, {"Regulating", "Regulating"}, {"Settling", ""}, {"STABLE", ""}, {"Stable 2", "Stable 2"}};
    for (const auto& [state, warned] : states)
    {
        (*camera)["SensorTemperatureControlState"].value = std::string(state);
        Lines expected = {std::string("State ") + state, "Active 3"};
        std::string(warned).empty() ? expected.end()
                                    : expected.insert(expected.begin() + 1, std::string("Unstable ") + warned);
        EXPECT_EQ(Tick(Monitor), expected) << state;
    }
    camera->Fail("Get SensorTemperatureControlState");
    EXPECT_THAT(Tick(Monitor), ElementsAre("Active 3")) << "no answer is no warning";
    controller->SetNewIndex(0, "A");
    EXPECT_THAT(Tick(Monitor), ElementsAre("State Stable 2")) << "the mode is not known yet";
}

TEST_F(ControllerSettingsTest, SetpointActivation)
{
    Start().StopTimers();
    controller->OnActivateSetpoint();
    EXPECT_THAT(Told(), ElementsAre("Done")) << "without the command";
    ScriptedFeature& activate = camera->Add("SensorTemperatureSetpointActivate", ZltFeatureDataCommand, false);
    camera->Fail("Run SensorTemperatureSetpointActivate");
    controller->OnActivateSetpoint();
    EXPECT_THAT(Told(), ElementsAre("Done"));
    activate.commandDone = false;
    camera->Fail("Done SensorTemperatureSetpointActivate");
    controller->OnActivateSetpoint();
    EXPECT_THAT(Told(), ElementsAre("Active 3", "Done")) << "no answer ends the wait";
    camera->On("Done SensorTemperatureSetpointActivate", 2,
               [&]
               {
                   QMetaObject::invokeMethod(
                       controller.get(), [&] { log.emplace_back("slider"); }, Qt::QueuedConnection);
               });
    camera->On("Done SensorTemperatureSetpointActivate", 9, [&] { activate.commandDone = true; });
    controller->OnActivateSetpoint();
    EXPECT_THAT(Told(), ElementsAre("slider", "Active 3", "Done")) << "events go on during the wait";
    activate.commandDone = false;
    QElapsedTimer timer;
    timer.start();
    controller->OnActivateSetpoint();
    EXPECT_NEAR(static_cast<double>(timer.elapsed()), 5000.0, 1000.0);
    EXPECT_THAT(Told(), ElementsAre("Error Activating new sensor temperature setpoint has run into a timeout!",
                                    "Active 3", "Done"));
}

TEST_F(ControllerSettingsTest, RestoresWhatItReadFirst)
{
    Start().RestoreSettingsToDefault();
    EXPECT_THAT(Written(), IsEmpty()) << "nothing has been read from this camera";
    controller->SetCameraSettings();
    (*camera)["ExposureTime"].value = 50.0;
    controller->SetCameraSettings(); // the first exposure counts
    (*camera)["Gamma"].value = 0.7;
    (*camera)["PixelFormat"].value = std::int64_t{17};
    controller->StartStopAcquisition();
    camera->calls.clear();
    camera->changes.clear();
    Told();
    camera->On("Set Gamma", 1, [&] { EXPECT_THAT(camera->calls, ElementsAre("Stop", "Release")); });
    controller->RestoreSettingsToDefault();
    EXPECT_THAT(camera->calls, ElementsAre("Stop", "Release", "Start3"));
    EXPECT_TRUE(controller->GetIfStreaming());
    const Lines sliders = Told();
    for (const char* line : {"Slider 0.5 2 1 0", "Slider 0 24 3 1", "Slider 0 255 16 3", "Slider 10 100000 5000 2"})
    {
        EXPECT_THAT(sliders, testing::Contains(line));
    }
    (*camera)["Gain"].writable = false;
    controller->StartStopAcquisition();
    EXPECT_THAT(Told(), ElementsAre("Lock 2 false", "Lock 1 true", "Lock 0 false", "Lock 3 false"));
}

TEST_F(ControllerSettingsTest, GainAndReversal)
{
    Start();
    EXPECT_EQ(controller->GetGainRange(), std::pair(0.0, 24.0));
    EXPECT_EQ(controller->GetCurrentGain(), 3.0);
    camera->Fail("Get Gain", 0);
    EXPECT_EQ(controller->GetCurrentGain(), 0.0);
    EXPECT_THAT(Told(), ElementsAre("Error Cannot retrieve the current value of 'Gain'. Error: -13"));
    EXPECT_FALSE(controller->SetOffReverseXY());
    const std::vector<std::tuple<bool, bool, bool, Lines>> cases = {
        {false, false, false, {}},
        {false, true, true, {"Set ReverseY false"}},
        {true, true, true, {"Set ReverseX false", "Set ReverseY false"}}};
    camera->Add("ReverseX", ZltFeatureDataBoolean, false);
    camera->Add("ReverseY", ZltFeatureDataBoolean, false);
    for (const auto& [x, y, note, written] : cases)
    {
        (*camera)["ReverseX"].value = x;
        (*camera)["ReverseY"].value = y;
        EXPECT_EQ(controller->SetOffReverseXY(), note);
        EXPECT_EQ(Written(), written);
    }
    (*camera)["ReverseX"].value = true;
    camera->Fail("Set ReverseX", 0);
    EXPECT_FALSE(controller->SetOffReverseXY()) << "refused";
}

} // namespace
