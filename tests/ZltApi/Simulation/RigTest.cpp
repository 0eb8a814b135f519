// Rig files and the control program's usage.
#include "Rig/Rig.h"

#include "TestRig.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

namespace Simulation
{

namespace
{

std::string RefusalOf(const std::string& rig)
{
    try
    {
        ParseRig(rig);
        return {};
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
}

} // namespace

TEST(Rig, RefusalsAreSentences)
{
    const auto camera = [](const std::string& keys)
    { return R"({"cameras": [{"id": "A", "model": "M", "serial": "9", "firmware": "plain")" + keys + "}]}"; };
    ASSERT_EQ("", RefusalOf(camera("")));
    const std::string needs = "A camera of the rig needs an \"id\" of letters, digits, dots, hyphens and underscores, "
                              "a \"model\", a \"serial\" and a known \"firmware\".";
    const auto value = [](const std::string& key)
    { return "A camera of the rig has a value of \"" + key + "\" that does not fit."; };
    const std::pair<std::string, std::string> cases[] = {
        {"[]", "The rig must be a JSON object."},
        {"{}", "The rig needs the array \"cameras\"."},
        {R"({"cameras": [{"id": "../A", "model": "M", "serial": "9", "firmware": "plain"}]})", needs},
        {R"({"cameras": [{"id": "A", "model": "M", "serial": "9", "firmware": "steam"}]})", needs},
        {camera(R"(, "colour": true)"), "A camera of the rig has the unknown key \"colour\"."},
        {camera(R"(, "width": 15)"), value("width")},
        {camera(R"(, "height": 4294967344)"), value("height")},
        {camera(R"(, "filter": "Foveon")"), value("filter")},
        {camera(R"(, "covered": 1)"), value("covered")},
        {camera(R"(, "faults": {"code": 1, "when": 2})"), "A fault has the unknown key \"when\"."},
        {camera(R"(, "faults": [{"operation": "Open"}])"),
         "A fault needs one of the keys \"code\", \"delay\", \"drop\", \"hang\", \"shortBy\", \"unplug\" and "
         "\"value\"."},
        {camera(R"(, "faults": {"drop": true, "every": 0})"), "The calls of a fault are counted from 1."},
        {camera(R"(, "sizeIncrement": 3)"), value("sizeIncrement")},
        {camera(R"(, "without": ["Gain", 7])"), value("without")},
    };
    for (const auto& [rig, sentence] : cases)
    {
        EXPECT_EQ(sentence, RefusalOf(rig)) << rig;
    }
    const std::string element = R"({"id": "A", "model": "M", "serial": "9", "firmware": "plain"})";
    EXPECT_EQ("The rig has two cameras with the id \"A\".",
              RefusalOf(R"({"cameras": [)" + element + "," + element + "]}"));
}

TEST(Rig, StartUpThatFails)
{
    TestRig rig;
    EventLog events;
    SimulationProvider other;
    const std::string path = rig.StateFolder().parent_path().parent_path() / "rig.json";
    ::setenv("ZLT_SIMULATION_RIG", (path + ".missing").c_str(), 1);
    EXPECT_EQ(ZltErrorBadParameter, other.Startup(events));
    ::setenv("ZLT_SIMULATION_RIG", path.c_str(), 1);
    ::setenv("ZLT_SIMULATION_STATE", (path + "/state").c_str(), 1); // below a file
    EXPECT_EQ(ZltErrorResource, other.Startup(events));
    ::setenv("ZLT_SIMULATION_STATE", rig.StateFolder().parent_path().c_str(), 1);
    EXPECT_EQ(ZltErrorSuccess, other.Startup(events)) << "the same object, after two failures";
}

TEST(ControlProgram, Usage)
{
    TestRig rig;
    // Arguments, exit status, start of the complaint.
    const std::tuple<std::vector<std::string>, int, std::string> cases[] = {
        {{"dance", "CAM"}, 2, "Usage: "},
        {{"cover", "CAM"}, 2, "Usage: "},
        {{"cover", "CAM", "maybe"}, 2, "Usage: "},
        {{"unplug", "NOBODY"}, 2, "There is no simulated camera with the id \"NOBODY\"."},
        {{"fault", "CAM", R"({"code": "x"})"}, 1, "A fault has a value of \"code\" that does not fit."},
        {{"cover", "CAM", "off"}, 0, ""},
        {{"list"}, 0, ""},
    };
    for (const auto& [arguments, status, complaint] : cases)
    {
        EXPECT_EQ(status, rig.Control(arguments));
        EXPECT_EQ(complaint, rig.errors.substr(0, complaint.size()));
        EXPECT_EQ(status == 0, rig.errors.empty());
    }
    EXPECT_EQ("CAM\tOSTREL T-1\tplugged\tuncovered\tfree\n", rig.output);
    EXPECT_EQ(2, WEXITSTATUS(std::system(CONTROL_PROGRAM " list of things 2>/dev/null")));
}

} // namespace Simulation
