// The controller's camera settings on one thread: what it tells of a camera's features and what it writes to them.
#include "AsynchronousCameraController.h"

#include "CustomListView.h"
#include "ImageDoubleBuffer.h"
#include "ListedSystem.h"

#include <gmock/gmock.h>

#include <QDebug>
#include <QElapsedTimer>
#include <QMetaMethod>
#include <QTest>
#include <QTimer>

#include <limits>
#include <sstream>

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
        using Number = ScriptedFeature::Value;
        const auto whole = [](std::int64_t number) { return Number(number); };
        for (const auto& [name, value, minimum, maximum] :
             std::initializer_list<std::tuple<std::string, Number, Number, Number>>{
                 {"Gamma", 1.0, 0.5, 2.0},
                 {"Gain", 3.0, 0.0, 24.0},
                 {"ExposureTime", 5e3, 10.0, 1e5},
                 {"ExposureTimeAbs", 100.0, 20.0, 200.0},
                 {"BlackLevel", 16.0, 0.0, 255.0},
                 {Sensor + "SetpointValue", whole(15), whole(-20), whole(45)},
                 {Sensor + "SetpointSelector", whole(2), whole(1), whole(3)},
                 {Sensor + "SetpointActive", whole(3), whole(1), whole(3)}})
        {
            const bool isFloat = std::holds_alternative<double>(value);
            ScriptedFeature& feature = camera->Add(name, isFloat ? ZltFeatureDataFloat : ZltFeatureDataInteger, value);
            std::tie(feature.minimum, feature.maximum) = std::tie(minimum, maximum);
        }
        // An entry with a '!' cannot be chosen.
        for (const auto& [name, value, entries] : std::initializer_list<std::tuple<std::string, const char*, Lines>>{
                 {Sensor + "ControlState", "Stable", {}},
                 {Sensor + "ControlMode", "On", {"On", "!Off", "Eco"}},
                 {Sensor + "SetpointMode", "autoNear", {"autoNear", "Manual"}},
                 {"NUCMode", "Auto", {"Off", "Auto", "!Old"}},
                 {"NUCDatasetActiveDescription", "10 ms", {}},
                 {"ExposureAuto", "Off", {}},
                 {"GainAuto", "Continuous", {}},
                 {"PixelFormat", "Mono8", {"Mono8", "!Mono12", "BayerRG8"}}})
        {
            ScriptedFeature& feature =
                name == "PixelFormat" ? (*camera)[name] : camera->Add(name, ZltFeatureDataEnumeration, false);
            feature.value = std::string(value);
            for (const std::string& entry : entries)
            {
                feature.AddEntry(entry.substr(entry[0] == '!' ? 1 : 0));
                feature.entries.back()->available = entry[0] != '!';
            }
        }
    }
    ~ControllerSettingsTest() override { controller.reset(); }

    // Notes each emission: the signal's name without the "Send" and its arguments.
    template <class... Arguments> void Log(void (Controller::*signal)(Arguments...))
    {
        QObject::connect(controller.get(), signal, controller.get(),
                         [this, name = QMetaMethod::fromSignal(signal).name().mid(4)](const Arguments&... arguments)
                         {
                             QString line;
                             QDebug stream = QDebug(&line).nospace().noquote();
                             stream << name.data();
                             ((stream << ' ' << arguments), ...);
                             log.push_back(line.toStdString());
                         });
    }
    template <class... Signals> void LogAll(Signals... all) { (Log(all), ...); }
    Controller& Start()
    {
        using C = Controller;
        controller = std::make_unique<Controller>(&view, -1, QString(), false, images);
        LogAll(&C::SendSlidersValues, &C::SendLockSliders, &C::SendCurrentExposureMode, &C::SendCurrentGainMode,
               &C::SendPixelFormats, &C::SendUpdatedSLiderValue, &C::SendComboboxValues,
               &C::SendTemperatureControlEnabled, &C::SendTemperatureControlStateValue, &C::SendTemperatureSetpointMode,
               &C::SendActiveSetpointValue, &C::SendSetpointActivationDone, &C::SendTemperatureStatusUnstable,
               &C::SendNucModeValues, &C::SencNucDatasetDescription, &C::SendNucControlEnabled, &C::ErrorSignal);
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

    const std::string Sensor = "SensorTemperature";
    CustomListView view;
    ImageDoubleBuffer images;
    std::shared_ptr<ListedCamera> camera;
    std::unique_ptr<Controller> controller;
    Lines log;
};

constexpr const char* Monitor = "MonitorExposureTimeAndTemperature";

TEST_F(ControllerSettingsTest, WhatTheOptionsPanelIsTold)
{
    // clang-format off
    const Lines all = {
        "SlidersValues 0.5 2 1 0", "SlidersValues 0 24 3 1", "SlidersValues 10 100000 5000 2", "CurrentExposureMode 0",
        "CurrentGainMode 2", "SlidersValues 0 255 16 3", "PixelFormats (Mono8, BayerRG8) Mono8",
        "TemperatureControlStateValue Stable", "TemperatureSetpointMode autoNear", "ActiveSetpointValue 3",
        "SlidersValues -20 45 15 4", "ComboboxValues (1, 2, 3) 2 5", "ComboboxValues (On, Eco) On 6",
        "ComboboxValues (autoNear, Manual) autoNear 7", "NucModeValues (Off, Auto) Auto", "NucDatasetDescription 10 ms",
        "TemperatureControlEnabled true", "NucControlEnabled true"};
    // clang-format on
    // What the camera does not have, and what is told instead of which line.
    const std::pair<int, const char*> noTemperature = {16, "TemperatureControlEnabled false"};
    const std::pair<int, const char*> noNuc = {17, "NucControlEnabled false"};
    const std::vector<std::pair<std::string, std::map<int, std::string>>> cases = {
        {"", {}},
        {"Find Gamma,Find BlackLevel", {{0, "LockSliders 0 true"}, {5, "LockSliders 3 true"}}},
        {"Find Gain,Find GainAuto", {{1, "LockSliders 1 true"}, {4, "CurrentGainMode -1"}}},
        {"Find ExposureTime", {{2, "SlidersValues 20 200 100 2"}}},
        {"Find ExposureTime,Find ExposureTimeAbs", {{2, "LockSliders 2 true"}}},
        {"Find ExposureAuto,Find PixelFormat", {{3, "CurrentExposureMode -1"}, {6, ""}}},
        {"Find SensorTemperatureControlState", {{7, ""}, noTemperature}},
        {"Find SensorTemperatureSetpointMode", {{8, ""}, {13, ""}, noTemperature}},
        {"Find SensorTemperatureSetpointActive", {{9, ""}, noTemperature}},
        {"Find SensorTemperatureSetpointValue", {{10, ""}, noTemperature}},
        {"Find SensorTemperatureSetpointSelector", {{11, ""}, noTemperature}},
        {"Find SensorTemperatureControlMode", {{12, ""}, noTemperature}},
        {"Find NUCMode", {{14, ""}, noNuc}},
        {"Find NUCDatasetActiveDescription", {{15, ""}, noNuc}},
        {"Range Gain,Get SensorTemperatureSetpointActive,Get ExposureAuto", {{1, ""}, {3, ""}, {9, ""}}}};
    for (const auto& [failing, instead] : cases)
    {
        SCOPED_TRACE(failing);
        static_cast<CallScript&>(*camera) = CallScript();
        std::istringstream calls(failing);
        for (std::string call; std::getline(calls, call, ',');)
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
        EXPECT_EQ(controller->IsTemperatureControlAvailable(),
                  expected[expected.size() - 2] == "TemperatureControlEnabled true");
        EXPECT_EQ(controller->GetCurrentTemperatureSetpointValue(),
                  controller->IsTemperatureControlAvailable() ? 15.0 : -999.0);
        EXPECT_THAT(Written(), IsEmpty());
        controller.reset();
    }
}

TEST_F(ControllerSettingsTest, WhatChangesOfThePanelWrite)
{
    Start().SetCameraSettings();
    Told();
    for (const auto& [value, slider] :
         {std::pair(1.5, 0), std::pair(9.0, 0), std::pair(-1.0, 1), std::pair(300.5, 3), std::pair(1.0, 5)})
    {
        controller->UpdateSliderFeatures(value, slider);
    }
    controller->UpdateSliderFeatures(-3.9, 4);
    controller->UpdateSliderFeatures(99.0, 4);
    EXPECT_THAT(Written(), ElementsAre("Set Gamma 1.500000", "Set Gamma 2.000000", "Set Gain 0.000000",
                                       "Set BlackLevel 255.000000", "Set SensorTemperatureSetpointValue -3",
                                       "Set SensorTemperatureSetpointValue 99"))
        << "the setpoint's value is not limited";
    controller->UpdateComboboxFeatures("Eco", 6);
    controller->UpdateComboboxFeatures("Manual", 7);
    controller->SetNucModeValue("Off");
    EXPECT_THAT(Told(), IsEmpty());
    camera->On("Set SensorTemperatureSetpointSelector", 1,
               [&] { (*camera)["SensorTemperatureSetpointValue"].value = std::int64_t{-5}; });
    controller->UpdateComboboxFeatures("3", 5);
    EXPECT_THAT(Told(), ElementsAre("SlidersValues -20 45 -5 4")) << "each setpoint has its own";
    (*camera)["SensorTemperatureSetpointSelector"].minimum = std::numeric_limits<std::int64_t>::min();
    (*camera)["SensorTemperatureSetpointSelector"].maximum = std::numeric_limits<std::int64_t>::max();
    controller->SetCameraSettings(); // comes to its end
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
        for (const auto& [value, written] :
             {std::pair(1e9, onlyOlder ? " 200.000000" : " 100000.000000"),
              std::pair(1.0, onlyOlder ? " 20.000000" : " 10.000000"), std::pair(150.5, " 150.500000")})
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
    EXPECT_THAT(Tick("GainSliderAutoChange"), ElementsAre("UpdatedSLiderValue 3 1"));
    controller->SetExposureMode(1);
    controller->SetGainMode(0);
    EXPECT_THAT(Tick("GainSliderAutoChange"), IsEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !log.empty(); }, 5000));
    EXPECT_EQ(Told().at(0), "UpdatedSLiderValue 100 2") << "of the older name where the camera has both";
    controller->SetExposureMode(2);
    controller->SetExposureMode(3);
    camera->Fail("Find ExposureTimeAbs", 0);
    EXPECT_THAT(Tick("ExposureSliderAutoChange"), ElementsAre("UpdatedSLiderValue 5000 2"));
    controller->SetExposureMode(0);
    EXPECT_THAT(Written(), ElementsAre("Set ExposureAuto Once", "Set GainAuto Off", "Set ExposureAuto Continuous",
                                       "Set ExposureAuto Off"));
}

TEST_F(ControllerSettingsTest, TemperatureMonitor)
{
    Start().SetCameraSettings();
    Told();
    for (const auto& [state, warned] :
         {std::pair("Stable", ""), std::pair("Regulating", "Regulating"), std::pair("Settling", ""),
          std::pair("STABLE", ""), std::pair("Stable 2", "Stable 2")})
    {
        (*camera)["SensorTemperatureControlState"].value = std::string(state);
        Lines expected = {std::string("TemperatureControlStateValue ") + state, "ActiveSetpointValue 3"};
        expected.insert(expected.begin() + 1, *warned != 0, std::string("TemperatureStatusUnstable ") + warned);
        EXPECT_EQ(Tick(Monitor), expected) << state;
    }
    camera->Fail("Get SensorTemperatureControlState");
    EXPECT_THAT(Tick(Monitor), ElementsAre("ActiveSetpointValue 3")) << "no answer is no warning";
    controller->SetNewIndex(0, "A");
    EXPECT_THAT(Tick(Monitor), ElementsAre("TemperatureControlStateValue Stable 2")) << "the mode is not known yet";
}

TEST_F(ControllerSettingsTest, SetpointActivation)
{
    Start().StopTimers();
    controller->OnActivateSetpoint();
    EXPECT_THAT(Told(), ElementsAre("SetpointActivationDone")) << "without the command";
    ScriptedFeature& activate = camera->Add("SensorTemperatureSetpointActivate", ZltFeatureDataCommand, false);
    camera->Fail("Run SensorTemperatureSetpointActivate");
    controller->OnActivateSetpoint();
    EXPECT_THAT(Told(), ElementsAre("SetpointActivationDone"));
    activate.commandDone = false;
    camera->Fail("Done SensorTemperatureSetpointActivate");
    controller->OnActivateSetpoint();
    EXPECT_THAT(Told(), ElementsAre("ActiveSetpointValue 3", "SetpointActivationDone")) << "no answer ends the wait";
    QTimer::singleShot(20, controller.get(), [&] { log.emplace_back("slider"); });
    camera->On("Done SensorTemperatureSetpointActivate", 9, [&] { activate.commandDone = true; });
    controller->OnActivateSetpoint();
    EXPECT_THAT(Told(), ElementsAre("slider", "ActiveSetpointValue 3", "SetpointActivationDone"))
        << "events go on during the wait";
    activate.commandDone = false;
    QElapsedTimer timer;
    timer.start();
    controller->OnActivateSetpoint();
    EXPECT_GE(timer.elapsed(), 4500) << "of 5000; a coarse timer may be 5 % early";
    EXPECT_THAT(Told(), ElementsAre("rSignal Activating new sensor temperature setpoint has run into a timeout!",
                                    "ActiveSetpointValue 3", "SetpointActivationDone"));
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
    EXPECT_THAT(Told(), testing::IsSupersetOf({"SlidersValues 0.5 2 1 0", "SlidersValues 0 24 3 1",
                                               "SlidersValues 0 255 16 3", "SlidersValues 10 100000 5000 2"}));
    (*camera)["Gain"].writable = false;
    controller->StartStopAcquisition();
    EXPECT_THAT(Told(),
                ElementsAre("LockSliders 2 false", "LockSliders 1 true", "LockSliders 0 false", "LockSliders 3 false"));
}

TEST_F(ControllerSettingsTest, GainAndReversal)
{
    Start();
    EXPECT_EQ(controller->GetGainRange(), std::pair(0.0, 24.0));
    EXPECT_EQ(controller->GetCurrentGain(), 3.0);
    camera->Fail("Get Gain", 0);
    EXPECT_EQ(controller->GetCurrentGain(), 0.0);
    EXPECT_THAT(Told(), ElementsAre("rSignal Cannot retrieve the current value of 'Gain'. Error: -13"));
    EXPECT_FALSE(controller->SetOffReverseXY());
    camera->Add("ReverseX", ZltFeatureDataBoolean, true);
    camera->Add("ReverseY", ZltFeatureDataBoolean, true);
    EXPECT_TRUE(controller->SetOffReverseXY());
    EXPECT_FALSE(controller->SetOffReverseXY()) << "they are off";
    EXPECT_THAT(Written(), ElementsAre("Set ReverseX false", "Set ReverseY false"));
    (*camera)["ReverseX"].value = true;
    camera->Fail("Set ReverseX", 0);
    EXPECT_FALSE(controller->SetOffReverseXY()) << "refused";
}

} // namespace
