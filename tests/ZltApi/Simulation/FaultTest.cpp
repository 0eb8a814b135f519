// Faults on demand.
#include "TestRig.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Simulation
{

namespace
{

template <typename Number> std::string Code(Number result)
{
    return std::to_string(result);
}

} // namespace

TEST(Faults, EachKindShowsInTheRightCall)
{
    using Action = std::function<std::string(const ZltApi::CameraPtr&)>;
    const auto gain = [&](const ZltApi::CameraPtr& camera) { return Code(Set(camera, "Gain", 2.0)); };
    const auto write = [](const ZltApi::CameraPtr& camera) { return WriteFile(camera, Bytes(40)); };
    // A rule, and the results of one action, time after time.
    const std::tuple<const char*, std::vector<std::string>, Action> cases[] = {
        // clang-format off
        {R"({"operation": "SetValue", "feature": "Gain", "call": 2, "count": 2, "code": -12})", {"0", "-12", "-12", "0"}, gain},
        {R"({"operation": "SetValue", "feature": "Gain", "call": 2, "count": 0, "code": -1})", {"0", "-1", "-1"}, gain},
        {R"({"operation": "FileWrite", "feature": "DefectPixelCorrectionUser", "call": 3, "value": "Failure"})", {"Failure", "Success"}, write},
        {R"({"operation": "FileWrite", "call": 1, "shortBy": 3})", {"moved 13 to 13", "Success"}, write},
        {R"({"operation": "GetValue", "feature": "FileOperationStatus", "value": "Busy"})", {"Busy", "FileIsOpen"}, write},
        // clang-format on
        {R"({"operation": "SetValue", "feature": "Gain", "call": 2, "every": 3, "count": 2, "code": -12})",
         {"0", "-12", "0", "0", "-12", "0", "0", "0"},
         gain},
        {R"({"operation": "RunCommand", "feature": "AcquisitionStop", "hang": true})",
         {"0 hangs", "0 done"},
         [](const auto& camera)
         {
             bool done = false;
             const std::string code = Code(RunCommand(camera, "AcquisitionStop"));
             EXPECT_EQ(ZltErrorSuccess, FeatureOf(*camera, "AcquisitionStop")->IsCommandDone(done));
             return code + (done ? " done" : " hangs");
         }},
        {R"([{"operation": "Frame", "every": 2, "count": 0, "drop": true},
             {"operation": "Frame", "call": 4, "shortBy": 100}])",
         {"1 3 -1 5"},
         [](const auto& camera)
         {
             const auto entries = Grab(camera, 3);
             return Code(entries[0].id) + " " + Code(entries[1].id) + " " + Code(entries[1].status) + " " +
                    Code(entries[2].id);
         }},
    };
    for (const auto& [rule, results, action] : cases)
    {
        TestRig rig(std::string(R"({"faults": )") + rule + "}");
        const auto camera = rig.Camera();
        EXPECT_TRUE(camera->Open(ZltApi::AccessModeFull) == ZltErrorSuccess ||
                    camera->Open(ZltApi::AccessModeFull) == ZltErrorSuccess);
        for (const auto& result : results)
        {
            EXPECT_EQ(result, action(camera)) << rule;
        }
    }
}

TEST(Faults, SetAndClearedWhileRunning)
{
    TestRig rig;
    auto camera = rig.Opened();
    for (const auto& [rule, wanted] : {std::pair{R"({"operation": "SetValue", "count": 0, "code": -12})", -12},
                                       {R"([{"operation": "GetValue", "delay": 1}])", -12}, // the earlier still stands
                                       {"clear", 0}})
    {
        ASSERT_EQ(0, rig.Control({"fault", CameraId, rule}));
        EXPECT_EQ(wanted, Set(camera, "Gain", 1.0)) << rule;
    }
}

} // namespace Simulation
