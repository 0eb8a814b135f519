// State on disk that is broken, missing or not to be written.
#include "TestRig.h"

#include "State/StateFile.h"

#include <gtest/gtest.h>

namespace Simulation
{

TEST(State, BrokenFilesCountAsNone)
{
    const std::string broken[] = {"",
                                  "[]",
                                  "{\"CorrectionSet\": 5, \"Gain\": \"much\", \"plugged\": 3}",
                                  std::string("\0\xFF{", 3),
                                  std::string(100'000, '['),
                                  R"({"CorrectionSet": "Nobody", "Width": "33", "PixelFormat": "BayerRG8", "Gain": "99",
                                      "ReverseX": "maybe", "CorrectionSetDefault": "x", "until": 9999999999999999})"};
    for (const std::string& text : broken)
    {
        TestRig rig;
        rig.provider.Shutdown();
        for (const char* name : {"control.json", "settings.json", "nonvolatile.json", "restart.json", "faults.json",
                                 "files/DefectPixelCorrectionUser", "loaded/DefectPixelCorrectionUser"})
        {
            ReplaceStateFile(rig.StateFolder() / name, text);
        }
        ASSERT_EQ(ZltErrorSuccess, rig.provider.Startup(rig.events));
        const auto camera = rig.Opened();
        EXPECT_EQ("Preset", Get<std::string>(camera, "CorrectionSet")) << text.substr(0, 40);
        EXPECT_EQ(0.0, Get<double>(camera, "Gain"));
        EXPECT_EQ("Mono8", Get<std::string>(camera, "PixelFormat"));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSet", "User"));
        EXPECT_EQ(64U * 48U, Grab(camera).front().image.size());
    }
}

TEST(State, DarkFrameThatCannotBeRead)
{
    TestRig rig(R"({"darkFrameFile": "missing.pgm"})");
    EXPECT_EQ(ZltErrorResource, rig.Camera()->Open(ZltApi::AccessModeFull));
    EXPECT_EQ(ZltErrorResource, rig.Camera()->Open(ZltApi::AccessModeFull)) << "the lock is free again";
}

TEST(State, WritesThatFailAreTold)
{
    TestRig rig;
    const auto camera = rig.Opened();
    ASSERT_EQ("Success", WriteFile(camera, {1}));
    // A folder in the place of the file: it cannot be renamed over, also not by a privileged user.
    std::filesystem::remove(rig.StateFolder() / "files" / UserFile);
    std::filesystem::create_directories(rig.StateFolder() / "files" / UserFile / "x");
    EXPECT_EQ("-1", WriteFile(camera, {2}));
    std::filesystem::create_directories(rig.StateFolder() / "nonvolatile.json" / "x");
    EXPECT_EQ(ZltErrorUnexpectedFault, Set(camera, "CorrectionSetDefault", "User"));
    EXPECT_EQ("Preset", Get<std::string>(camera, "CorrectionSetDefault"));
    std::filesystem::remove_all(rig.StateFolder() / "files");
    EXPECT_EQ("Success", WriteFile(camera, {3}));
    for (const auto& entry : std::filesystem::recursive_directory_iterator(rig.StateFolder()))
    {
        EXPECT_NE('.', entry.path().filename().string()[0]) << "a temporary file is left: " << entry.path();
    }
}

} // namespace Simulation
