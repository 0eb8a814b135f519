// Defects vanish from the picture when, and only when, a camera has its correction set loaded and switched on.
#include "TestRig.h"

#include "Firmware/Ostrel/OstrelFile.h"
#include "Firmware/RivoU/RivoUFile.h"
#include "Firmware/TamorinPro/TamorinProFile.h"

#include <gtest/gtest.h>

namespace Simulation
{

namespace
{

constexpr std::uint32_t Width = 64;
constexpr std::uint32_t Height = 48;
constexpr SensorSize Size{Width, Height};

using Positions = std::vector<PixelPosition>;

// The hot pixels of the test rig's camera.
Positions Hot()
{
    Positions positions;
    for (const PixelFault& fault : SeedFaults(Width, Height, 3))
    {
        fault.kind == FaultKind::Hot ? positions.push_back({fault.x, fault.y}) : void();
    }
    return positions;
}

// How many pixels stand out from a dark frame.
std::size_t Bright(const ZltApi::CameraPtr& camera)
{
    return BrightPixels(GrabDark(camera)).size();
}

// With the image turned in each way.
void ExpectClean(const ZltApi::CameraPtr& camera)
{
    for (const Mirroring mirroring : {Mirroring{false, false}, {true, false}, {false, true}, {true, true}})
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "ReverseX", mirroring.x));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "ReverseY", mirroring.y));
        EXPECT_EQ(0U, Bright(camera)) << mirroring.x << mirroring.y;
    }
}

} // namespace

TEST(Correction, WrittenSetWorksAfterRestartOnly)
{
    TestRig rig;
    auto camera = rig.Opened();
    const Positions hot = Hot();
    ASSERT_GT(hot.size(), 20U);
    EXPECT_EQ("Preset", Get<std::string>(camera, "CorrectionSet"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "Off"));
    const Bytes raw = GrabDark(camera);
    EXPECT_EQ(hot.size(), BrightPixels(raw).size());

    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "On"));
    const Bytes factory = GrabDark(camera);
    EXPECT_GT(BrightPixels(factory).size(), hot.size() / 4) << "the factory knows some";
    EXPECT_LT(BrightPixels(factory).size(), hot.size() * 3 / 4);

    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSet", "User"));
    ASSERT_EQ("Success", WriteFile(camera, EncodeOstrelFile(hot, Size, true, true)));
    EXPECT_EQ(raw, GrabDark(camera)) << "written, but not loaded";

    camera = rig.Restarted(camera);
    EXPECT_EQ("Preset", Get<std::string>(camera, "CorrectionSet")) << "the set to start with";
    EXPECT_EQ(factory, GrabDark(camera));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSet", "User"));
    const Bytes clean = GrabDark(camera);
    EXPECT_EQ(0U, BrightPixels(clean).size());
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSetDefault", "User"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "Off"));
    camera = rig.Restarted(camera);
    EXPECT_EQ("User", Get<std::string>(camera, "CorrectionSet"));
    EXPECT_EQ(clean, GrabDark(camera)) << "a restart switches the correction on";
    ExpectClean(camera);
}

TEST(Correction, ARivoUTakesItsSetsAtOnce)
{
    const std::string file = "DefectPixelCorrection";
    const Positions hot = Hot();
    TestRig rig(R"({"model": "Rivo U-1", "firmware": "rivo-u"})");
    auto camera = rig.Opened();
    const Bytes factory = GrabDark(camera);
    EXPECT_EQ(ZltErrorInvalidAccess, Set(camera, "CorrectionSetSelector", "User")) << "another correction is selected";
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSelector", "DefectPixelCorrection"));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSetSelector", "User"));
    EXPECT_EQ(factory, GrabDark(camera)) << "selecting is not applying";
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "On"));
    ASSERT_EQ("Success", WriteFile(camera, EncodeRivoUFile(hot, Size, {true, true}), file));
    ExpectClean(camera);
    rig.StartAgain(); // another program finds it so
    camera = rig.Opened();
    ASSERT_EQ("Success", OpenFile(camera, file, "Write"));
    EXPECT_EQ(0U, Bright(camera));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSelector", "DefectPixelCorrection"));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSetSelector", "Factory"));
    EXPECT_EQ("Success", Execute(camera, file, "Close"));
    EXPECT_EQ(hot.size(), Bright(camera)) << "emptied: the set of the opening";
    EXPECT_EQ(factory, GrabDark(rig.Restarted(camera)));
}

TEST(Correction, ATableInMemoryWorksAtOnceAndLasts)
{
    TestRig rig(R"({"model": "Dreli G-1310", "firmware": "column-mask"})");
    auto camera = rig.Opened();
    const Positions hot = Hot();
    const auto x = static_cast<unsigned char>(hot[0].x), y = static_cast<unsigned char>(hot[0].y);
    ASSERT_EQ(hot.size(), Bright(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(0x19108, {0, x, 0, y, 0, y}));
    EXPECT_EQ(hot.size() - 1, Bright(camera));
    camera = rig.Restarted(camera);
    EXPECT_EQ(hot.size() - 1, Bright(camera));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "DefectMaskColumnEnable", false));
    EXPECT_EQ(hot.size(), Bright(camera));
}

TEST(Correction, PowerLastsBetweenPrograms)
{
    TestRig rig;
    auto camera = rig.Opened();
    ASSERT_EQ("Success", WriteFile(camera, EncodeOstrelFile(Hot(), Size, true, true)));
    camera = rig.Restarted(camera);
    // Loaded, and then replaced by an empty file that is not loaded yet.
    ASSERT_EQ("Success", Execute(camera, UserFile, "Delete"));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionSet", "User"));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "PixelFormat", "Mono12"));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "ReverseY", true));
    const Bytes before = GrabDark(camera);
    rig.StartAgain(); // closes the camera
    camera = rig.Opened();
    EXPECT_EQ(before, GrabDark(camera));

    // Switching on and off is written down at once: a program that dies keeps it.
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "CorrectionMode", "Off"));
    EXPECT_EQ("Off", CameraState(rig.StateFolder()).Settings().value()["CorrectionMode"]);

    ASSERT_EQ(0, rig.Control({"unplug", CameraId}));
    ASSERT_TRUE(rig.events.Next(ZltApi::UpdateTriggerUnplugged));
    camera->Close();
    ASSERT_EQ(0, rig.Control({"plug", CameraId}));
    ASSERT_TRUE(rig.events.Next(ZltApi::UpdateTriggerPluggedIn));
    camera = rig.Opened();
    EXPECT_EQ("Preset", Get<std::string>(camera, "CorrectionSet"));
    EXPECT_EQ("Mono8", Get<std::string>(camera, "PixelFormat"));
}

TEST(Correction, ATamorinProAppliesTheDatasetThatIsChosen)
{
    TestRig rig(R"({"firmware": "tamorin-pro", "reverseX": false, "darkCurrent": 1.5})");
    auto camera = rig.Opened();
    const auto brightWith = [&](const char* feature, const auto& value)
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, feature, value));
        return BrightPixels(Grab(camera).front().image).size();
    };
    // The camera's own choice, as delivered.
    for (const auto& [exposure, dataset] : {std::pair(1e3, 0x2001), {8e3, 0x2000}, {2e5, 0x2002}, {4e5, 0x2003}})
    {
        brightWith("ExposureTime", exposure);
        EXPECT_EQ(dataset, Get<std::int64_t>(camera, "DPCDatasetFileId")) << exposure;
    }
    brightWith("ExposureTime", 1e4);
    const auto factory = brightWith("DPCDatasetAuto", "Off");
    const auto raw = brightWith("DPCMode", "Off");
    EXPECT_GT(factory, raw / 4);
    EXPECT_LT(factory, raw * 3 / 4);

    const TamorinProDataset dataset{BrightPixels(Grab(camera).front().image), 40.0F, 0, 20'000.0F};
    EXPECT_EQ("Success", WriteFile(camera, EncodeTamorinProFile(dataset, Width, Height), "DPC_User_8"));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "DPCDatasetFileId", std::int64_t{0x2004}));
    brightWith("DPCDatasetFileId", std::int64_t{0x2808});
    EXPECT_EQ(raw, brightWith("DPCMode", "On")) << "written, but not loaded";

    EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileDescriptionBuffer", "from 40 degrees"));
    EXPECT_EQ("Success", Execute(camera, "DPC_User_8", "WriteDescription"));
    camera = rig.Restarted(camera);
    EXPECT_EQ(0U, brightWith("ExposureTime", 15'000.0)) << "the user's dataset is the next one";
    for (const char* text : {"from 40 degrees", ""})
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileSelector", "DPC_User_8"));
        EXPECT_EQ(text, Get<std::string>(camera, "FileDescriptionBuffer"));
        EXPECT_EQ("Success", Execute(camera, "DPC_User_8", "Delete"));
    }
}

} // namespace Simulation
