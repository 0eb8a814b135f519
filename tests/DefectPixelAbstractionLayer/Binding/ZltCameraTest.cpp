// Tests of features, registers, memory and files through the camera API.
#include "ZltCamera.h"
#include "Failure.h"
#include "FileAccess.h"
#include "ScriptedCamera.h"

#include <gmock/gmock.h>

using KTR::DPC::FeatureType;
using testing::ElementsAre;
using Bytes = std::vector<unsigned char>;
using Names = std::vector<std::string>;
using Integer = std::int64_t;

namespace
{

const Names Files = {"Other", "DefectPixelCorrectionUser"};

struct ZltCameraTest : testing::Test
{
    ZltCameraTest()
    {
        scripted->Add("Text", ZltFeatureDataString, std::string("old"));
        scripted->Add("Go", ZltFeatureDataCommand, false).writable = false;
        ScriptedFeature& count = scripted->Add("Count", ZltFeatureDataInteger, Integer{-5});
        count.minimum = count.maximum = count.increment = Integer{2};
        scripted->Add("Rate", ZltFeatureDataFloat, 1.5).increment = 0.25;
        ScriptedFeature& mode = scripted->Add("Mode", ZltFeatureDataEnumeration, Integer{7});
        mode.AddEntry("Off", 3);
        mode.AddEntry("On", 7);
        mode.entries[1]->available = false;
    }

    std::shared_ptr<ScriptedCamera> scripted = std::make_shared<ScriptedCamera>(Files);
    KTR::DPC::ZltCamera c{scripted};
};

} // namespace

// Values and ranges pass through the batch tool, whose tests read them.
TEST_F(ZltCameraTest, KnowsKindsStepsAndWhatThereIs)
{
    EXPECT_EQ(c.GetFeatureIntegerIncrement("Count"), 2);
    EXPECT_EQ(c.GetFeatureDoubleIncrement("Rate"), 0.25);
    EXPECT_TRUE(c.IsEnumEntryAvailable("Mode", "Off") && !c.IsEnumEntryAvailable("Mode", "On"));
    c.SetFeatureStringValue("Text", "new");
    c.SetFeatureEnumValue("Mode", "Off");
    c.RunFeatureCommand("Go");
    EXPECT_THAT(scripted->changes, ElementsAre("Set Text new", "Set Mode 3", "Run Go"));
    for (const auto& [number, type] :
         {std::pair{1U, FeatureType::Integer}, {8U, FeatureType::None}, {9U, FeatureType::Unknown}})
    {
        (*scripted)["Go"].type = static_cast<ZltFeatureDataType>(number);
        EXPECT_EQ(c.GetFeatureType("Go"), type) << number;
    }
    const Names names = c.GetAvailableFeatures();
    EXPECT_THAT(names, testing::IsSupersetOf({"FileSelector", "Text", "Go"}));
    scripted->Fail("Name Go");
    EXPECT_EQ(c.GetAvailableFeatures().size(), names.size() - 1) << "listing never fails";
    scripted->Fail("Features", 0);
    EXPECT_THAT(c.GetAvailableFeatures(), ElementsAre());
    EXPECT_FALSE(c.IsOpen());
}

TEST_F(ZltCameraTest, TurnsEachResultCodeIntoItsSentence)
{
    const std::tuple<const char*, std::function<void()>, std::string> cases[] = {
        {"Find Go", [&] { c.RunFeatureCommand("Go"); }, "Could not get feature \"Go\"."},
        {"Type Go", [&] { c.GetFeatureType("Go"); }, "Could not get data type of feature \"Go\"."},
        {"Set Text", [&] { c.SetFeatureStringValue("Text", ""); }, "Could not set value of feature \"Text\"."},
        {"Get Count", [&] { c.GetFeatureIntegerValue("Count"); }, "Could not get value of feature \"Count\"."},
        {"Range Count", [&] { c.GetFeatureIntegerMin("Count"); }, "Could not get min of feature \"Count\"."},
        {"Range Count", [&] { c.GetFeatureIntegerMax("Count"); }, "Could not get max of feature \"Count\"."},
        {"Increment Count", [&] { c.GetFeatureIntegerIncrement("Count"); },
         "Could not get increment of feature \"Count\"."},
        {"Entry Mode", [&] { c.SetFeatureEnumValue("Mode", "On"); },
         "Could not get enum entry \"On\" of feature \"Mode\"."},
        {"EntryValue", [&] { c.SetFeatureEnumValue("Mode", "On"); }, "Invalid enum entry \"On\" of feature \"Mode\"."},
        {"Set Mode", [&] { c.SetFeatureEnumValue("Mode", "On"); },
         "Could not set enum value \"On\" of feature \"Mode\"."},
        {"Get Mode", [&] { c.GetFeatureEnumValue("Mode"); }, "Could not get value of feature \"Mode\"."},
        {"Entries Mode", [&] { c.GetFeatureEnumValue("Mode"); }, "Could not get enum entries of feature \"Mode\"."},
        {"Entries Mode", [&] { c.GetFeatureEnumValues("Mode"); }, "Could not enum entries \"Mode\"."},
        {"Available Mode", [&] { c.IsEnumEntryAvailable("Mode", "On"); },
         "Could not query availability of enum entry \"On\" from feature \"Mode\"."},
        {"Run Go", [&] { c.RunFeatureCommand("Go"); }, "Could not run command \"Go\"."},
        {"Readable Go", [&] { c.IsFeatureReadable("Go"); }, "Could not query readability of feature \"Go\"."},
        {"Writable Go", [&] { c.IsFeatureWritable("Go"); }, "Could not query writability of feature \"Go\"."},
    };
    for (const auto& [call, operation, text] : cases)
    {
        scripted->Fail(call);
        EXPECT_EQ(FailureOf(operation), text + " (Error code: -13)") << call;
        EXPECT_EQ(FailureOf(operation), "");
    }
    scripted->emptyHandles = {"Go"};
    EXPECT_EQ(FailureOf([&] { c.RunFeatureCommand("Go"); }), "Could not get feature \"Go\". (Error code: 0)");
    scripted->Fail("EntryName");
    EXPECT_THAT(c.GetFeatureEnumValues("Mode"), ElementsAre("On"));
    (*scripted)["Mode"].value = Integer{4};
    EXPECT_EQ(FailureOf([&] { c.GetFeatureEnumValue("Mode"); }),
              "Could not get enum entries of feature \"Mode\". (Error code: 0)");
}

TEST_F(ZltCameraTest, RegistersAreBigEndianAndMemoryIsAsItStands)
{
    c.WriteRegisterZoltaLegacy(4, 0x12345678);
    Bytes bytes(6);
    c.ReadMemory(3, bytes);
    EXPECT_EQ(bytes, (Bytes{0, 0x12, 0x34, 0x56, 0x78, 0}));
    c.WriteMemory(5, Bytes{0xff});
    EXPECT_EQ(c.ReadRegisterZoltaLegacy(4), 0x12ff5678U);
    scripted->Fail("ReadMemory", 0);
    scripted->Fail("WriteMemory", 0);
    const std::uint64_t address = 0x7'0000'1c08;
    EXPECT_EQ(FailureOf([&] { c.ReadMemory(address, bytes); }), "Error reading memory 0x1c08. (Error code: -13)");
    EXPECT_EQ(FailureOf([&] { c.WriteMemory(address, bytes); }), "Error writing memory 0x1c08. (Error code: -13)");
}

TEST_F(ZltCameraTest, FilesKnowTheirLargestSizeIfTheCameraTellsIt)
{
    constexpr auto Largest = static_cast<std::uint64_t>(ScriptedCamera::LargestFile);
    const auto failingRange = [](ScriptedCamera& camera) { camera.Fail("Range FileSize", 0); };
    const auto negativeRange = [](ScriptedCamera& camera)
    { camera.On("Range FileSize", 0, [&camera] { camera["FileSize"].maximum = Integer{-1}; }); };
    const auto failingMode = [](ScriptedCamera& camera) { camera.Fail("Set FileOpenMode", 1); };
    const struct
    {
        std::function<void(ScriptedCamera&)> fault;
        std::uint64_t other, user; // largest sizes
        bool open;                 // the file stays open
    } cases[] = {{[](ScriptedCamera&) {}, Largest, Largest, false},
                 {failingRange, 0, 0, true},
                 {negativeRange, 0, 0, false},
                 {failingMode, 0, Largest, false}};
    for (const auto& [fault, other, user, open] : cases)
    {
        for (const std::string& name : Files)
        {
            const auto camera = std::make_shared<ScriptedCamera>(Files);
            fault(*camera);
            const auto file = KTR::DPC::ZltCamera(camera).GetFile(name);
            EXPECT_EQ(file->GetSizeMax(), name == "Other" ? other : user);
            EXPECT_EQ(camera->files[name].open, open);
            const bool wrote = testing::Value(camera->changes, testing::Contains("Set FileOpenMode Write"));
            EXPECT_EQ(wrote, other != user && name != "Other") << "the second way to the user's file";
        }
    }
}

TEST_F(ZltCameraTest, FilesNeedAnOpenCameraAndAKnownMode)
{
    using Mode = KTR::DPC::FileInterface::FileOpenMode;
    const auto file = c.GetFiles().at(1);
    scripted->Fail("Run FileOperationExecute");
    EXPECT_NE(FailureOf([&] { file->Open(Mode::Read); }), "");
    EXPECT_FALSE(file->IsOpen());
    scripted->changes.clear();
    file->Open(static_cast<Mode>(2));
    EXPECT_TRUE(file->IsOpen() && scripted->changes.empty()) << "an unknown mode must not reach the camera";
    EXPECT_DEATH(c.GetFile("Missing"), "px != 0");
    EXPECT_TRUE(c.IsFileAccessSupported());
    scripted->emptyHandles = {"FileSize"};
    EXPECT_EQ(FailureOf([&] { c.GetFiles(); }), "File Access is not supported.");
    scripted->Fail("Features", 0);
    EXPECT_EQ(FailureOf([&] { c.GetFiles(); }), "Camera must be opened to query File Access compatibility.");
}
