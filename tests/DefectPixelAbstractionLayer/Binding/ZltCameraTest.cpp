// Tests of features, registers and memory through the camera API.
#include "ZltCamera.h"
#include "Failure.h"
#include "ScriptedCamera.h"

#include <gmock/gmock.h>

using KTR::DPC::FeatureType;
using testing::ElementsAre;
using Bytes = std::vector<unsigned char>;

class ZltCameraTest : public testing::Test
{
protected:
    ZltCameraTest()
    {
        scripted->Add("Flag", ZltFeatureDataBoolean, true);
        scripted->Add("Text", ZltFeatureDataString, std::string("old"));
        scripted->Add("Go", ZltFeatureDataCommand, false).writable = false;
        ScriptedFeature& count = scripted->Add("Count", ZltFeatureDataInteger, std::int64_t{-5});
        count.minimum = std::int64_t{-9};
        count.maximum = std::int64_t{1} << 40;
        count.increment = std::int64_t{2};
        ScriptedFeature& rate = scripted->Add("Rate", ZltFeatureDataFloat, 1.5);
        rate.minimum = 0.5;
        rate.maximum = 8.0;
        rate.increment = 0.25;
        ScriptedFeature& mode = scripted->Add("Mode", ZltFeatureDataEnumeration, std::int64_t{7});
        mode.AddEntry("Off", 3);
        mode.AddEntry("On", 7);
        mode.entries[1]->available = false;
    }

    std::shared_ptr<ScriptedCamera> scripted = std::make_shared<ScriptedCamera>(std::vector<std::string>{});
    KTR::DPC::ZltCamera camera{scripted};
};

TEST_F(ZltCameraTest, PassesValuesBothWays)
{
    auto& c = camera;
    EXPECT_TRUE(c.GetFeatureBooleanValue("Flag"));
    EXPECT_EQ(c.GetFeatureStringValue("Text"), "old");
    EXPECT_THAT((std::vector{c.GetFeatureIntegerMin("Count"), c.GetFeatureIntegerValue("Count"),
                             c.GetFeatureIntegerMax("Count"), c.GetFeatureIntegerIncrement("Count")}),
                ElementsAre(-9, -5, std::int64_t{1} << 40, 2));
    EXPECT_THAT((std::vector{c.GetFeatureDoubleMin("Rate"), c.GetFeatureDoubleValue("Rate"),
                             c.GetFeatureDoubleMax("Rate"), c.GetFeatureDoubleIncrement("Rate")}),
                ElementsAre(0.5, 1.5, 8.0, 0.25));
    EXPECT_EQ(camera.GetFeatureEnumValue("Mode"), "On");
    EXPECT_THAT(camera.GetFeatureEnumValues("Mode"), ElementsAre("Off", "On"));
    EXPECT_TRUE(camera.IsEnumEntryAvailable("Mode", "Off"));
    EXPECT_FALSE(camera.IsEnumEntryAvailable("Mode", "On"));
    EXPECT_TRUE(camera.IsFeatureReadable("Go") && !camera.IsFeatureWritable("Go"));
    camera.SetFeatureBooleanValue("Flag", false);
    camera.SetFeatureStringValue("Text", "new");
    camera.SetFeatureIntegerValue("Count", 11);
    camera.SetFeatureDoubleValue("Rate", 2.5);
    camera.SetFeatureEnumValue("Mode", "Off");
    camera.RunFeatureCommand("Go");
    EXPECT_THAT(scripted->changes, ElementsAre("Set Flag false", "Set Text new", "Set Count 11", "Set Rate 2.500000",
                                               "Set Mode 3", "Run Go"));
    for (const auto& [number, type] :
         {std::pair{1U, FeatureType::Integer}, {8U, FeatureType::None}, {9U, FeatureType::Unknown}})
    {
        (*scripted)["Go"].type = static_cast<ZltFeatureDataType>(number);
        EXPECT_EQ(camera.GetFeatureType("Go"), type) << number;
    }
}

TEST_F(ZltCameraTest, TurnsEachResultCodeIntoItsSentence)
{
    auto& c = camera;
    const struct
    {
        const char* call;
        std::function<void()> operation;
        const char* text;
    } cases[] = {
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
    for (const auto& row : cases)
    {
        scripted->Fail(row.call);
        EXPECT_EQ(FailureOf(row.operation), row.text + std::string(" (Error code: -13)")) << row.call;
        EXPECT_EQ(FailureOf(row.operation), "");
    }
    scripted->emptyHandles = {"Go"};
    EXPECT_EQ(FailureOf([&] { camera.RunFeatureCommand("Go"); }), "Could not get feature \"Go\". (Error code: 0)");
    scripted->Fail("EntryName");
    EXPECT_THAT(camera.GetFeatureEnumValues("Mode"), ElementsAre("On"));
    (*scripted)["Mode"].value = std::int64_t{4};
    EXPECT_EQ(FailureOf([&] { camera.GetFeatureEnumValue("Mode"); }),
              "Could not get enum entries of feature \"Mode\". (Error code: 0)");
}

TEST_F(ZltCameraTest, ListsFeaturesWithoutEverFailing)
{
    EXPECT_TRUE(camera.IsOpen());
    const std::vector<std::string> names = camera.GetAvailableFeatures();
    scripted->Fail("Name Go");
    EXPECT_EQ(camera.GetAvailableFeatures().size(), names.size() - 1);
    EXPECT_THAT(names, testing::IsSupersetOf({"FileSelector", "Flag", "Go"}));
    scripted->Fail("Features", 0);
    EXPECT_FALSE(camera.IsOpen());
    EXPECT_THAT(camera.GetAvailableFeatures(), ElementsAre());
}

TEST_F(ZltCameraTest, RegistersAreBigEndianAndMemoryIsAsItStands)
{
    camera.WriteRegisterZoltaLegacy(4, 0x12345678);
    EXPECT_EQ(camera.ReadRegisterZoltaLegacy(4), 0x12345678U);
    Bytes bytes(6);
    camera.ReadMemory(3, bytes);
    EXPECT_EQ(bytes, (Bytes{0, 0x12, 0x34, 0x56, 0x78, 0}));
    camera.WriteMemory(5, Bytes{0xff});
    EXPECT_EQ(camera.ReadRegisterZoltaLegacy(4), 0x12ff5678U);
    scripted->Fail("ReadMemory", 0);
    scripted->Fail("WriteMemory", 0);
    const std::uint64_t address = 0x7'0000'1c08;
    const std::string reading = "Error reading memory 0x1c08. (Error code: -13)";
    const std::string writing = "Error writing memory 0x1c08. (Error code: -13)";
    EXPECT_EQ(FailureOf([&] { camera.ReadMemory(address, bytes); }), reading);
    EXPECT_EQ(FailureOf([&] { camera.WriteMemory(address, bytes); }), writing);
}
