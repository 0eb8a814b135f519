// The Tamorin Pro adapter: bytes, what it says when a camera fails, and which calls it makes.
#include "DpcAdapterTamorinPro.h"
#include "AdapterCalls.h"
#include "FileCameras.h"

using namespace KTR::DPC;
using testing::ElementsAre;

namespace
{

using Metadata = std::map<std::string, double>;

struct DpcAdapterTamorinProTest : AdapterTest<DpcAdapterTamorinPro>
{
    DpcAdapterTamorinProTest() : AdapterTest(makeTamorinProCamera(), "DPC_User_1") {}
    std::vector<std::uint8_t>& userFile = camera->files.back()->content;
};

TEST_F(DpcAdapterTamorinProTest, SaysWhatFailed)
{
    const std::string listing = "Could not get enum values of CorrectionSetSelect : ", noFile = "Could not get file ",
                      mode = "Could not set value of Correction mode for Correction Set DPC_User_1.\n";
    const Call metadata = [&](auto&) { adapter.GetAvailableCorrectionSetsWithMetadata(); };
    const Call writePixel = [&](auto& set) { adapter.WriteCorrectionSet(set, defectsOf("P1,1")); };
    const auto number = [&](const char* set)
    { return adapter.GetDatasetFileId(boost::make_shared<CorrectionSet>(set)); };
    ExpectRefusals({
        {"List FileSelector", sets, listing},
        {"OpenRead DPC_User_1", metadata, listing},
        {"", setDefault, "SetDefaultCorrectionSet not available on Tamorin Pro"},
        {"Set DPCMode=On", on, mode},
        {"Set DPCMode=Off", off, ""},
        {"Set DPCDatasetFileId", on, mode},
        {"", on, "The name of correction set DPC_99999999999999999999 does not end in the number of a dataset.",
         "DPC_99999999999999999999"},
        {"", readable, noFile + "DPC_7", "DPC_7"},
        {"", read, noFile + "DPC_7", "DPC_7"},
        {"", writePixel, "The given correction set cannot be overwritten", "User_1"},
        {"", writePixel, noFile + "for correction set DPC_User_9", "DPC_User_9"},
        {"", space, noFile + "for correction set 7", "7"},
        {"", erase, noFile + "for correction set 7", "7"},
        {"", restore, "RestoreFactorySettings is not available for Tamorin Pro Cameras"},
    });
    EXPECT_THROW(number("DPC_"), std::invalid_argument);
    EXPECT_EQ(number("DPC_003"), 0x2003);
    EXPECT_EQ(number("DPC_User_012b"), 0x280C);
}

TEST_F(DpcAdapterTamorinProTest, ListsSetsWithTheMetadataOfTheirFirstBytes)
{
    userFile = bytesFrom(std::string(376, '0') + " 'TMP1 08000000 0000A041 00000000"); // ends behind byte 200
    const auto found = adapter.GetAvailableCorrectionSetsWithMetadata();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0]->getMetadataSize(), 0U);
    EXPECT_EQ(found[1]->getAllMetadata(), (Metadata{{"Temperature", -999999}}));
    EXPECT_EQ(adapter.GetAvailableCorrectionSets().size(), 4U) << "behind those of the first listing";
    const std::pair<const char*, Metadata> cases[] = {
        {"'AGAN 00", {{"Gain", -999999}}},
        {"'AGAN 04000000 102700", {{"Gain", -999999}}},
        {"'EXP1 03000000 000000", {{"ExposureTime", -999999}}},
        {"'EXP1 FFFFFFFF 0000A041", {{"ExposureTime", -999999}}},
        {"'AGAN 04000000 10270000 'AGAN 04000000 1F4E0000", {{"Gain", 1}}},
        {"00 'TMP1 04000000 000048C1 'AGAN 04000000 204E0000 'EXP1 04000000 00401C46 'TMP1 04000000 00000000",
         {{"Temperature", -12.5}, {"Gain", 2}, {"ExposureTime", 10000}}},
    };
    for (const auto& [hex, metadata] : cases)
    {
        EXPECT_EQ(adapter.GetCorrectionSetMetadata(bytesFrom(hex)), metadata) << hex;
    }
}

TEST_F(DpcAdapterTamorinProTest, ReadsPixels)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"'PTY1 04000000 'DPC0 'PDB1 00000000", "Invalid file format"},
        {"'PDA1 00000000 0340 0500", ""},
        {"'PDA1 08000000 0340 0500 00C000", "P5,3 "}, // the last byte is not looked at
        {"'PDA1 09000000 0340 0500 00C000", "The file has 15 bytes, but its defect pixel data reaches to byte 16."},
        {"'PDA1 05000000 0340 0500 00", ""}, // without an end mark the last pixel is lost
        {"00 'PDA1 10000000 0340 0500 00C0 FF3F FF7F 0180 00C000C0 'PDA1", "P5,3 P16383,0 P1,16383 "},
        {"'PDA1 0C000000 00C000C0 0340 0500 00C000C0", ""},
    };
    for (const auto& [hex, expected] : cases)
    {
        std::string pixels;
        pixels += FailureOf([&, hex = hex] { pixels = text(adapter.getSensorDefectsListFromRawData(bytesFrom(hex))); });
        EXPECT_EQ(pixels, expected) << hex;
    }
    EXPECT_DEATH(adapter.getSensorDefectsListFromRawData(bytesFrom("'PDA1 080000")), "pos \\+ 3 < data.size\\(\\)");
}

TEST_F(DpcAdapterTamorinProTest, WritesPixelsAndTheirDescription)
{
    const std::string file = " DPC_User_1";
    user->setMetadata("Gain", 1.5);
    adapter.WriteCorrectionSet(user, defectsOf("P2,9 P5,1 P1,9"));
    EXPECT_THAT(log(), ElementsAre("GetFile" + file, "OpenWrite" + file, "Write" + file, "Close" + file,
                                   "Set FileSelector=DPC_User_1",
                                   "Set FileDescriptionBuffer=Gain 1.5, 20.0 \xC2\xB0\x43, 10000 \xC2\xB5S",
                                   "Set FileOperationSelector=WriteDescription", "Run FileOperationExecute"));
    EXPECT_EQ(text(adapter.ReadCorrectionSet(user)), "P5,1 P1,9 P2,9 ");
    log();
    write(user);
    EXPECT_THAT(log(), ElementsAre("GetFile" + file, "GetFile" + file, "Delete" + file));
    EXPECT_FALSE(adapter.IsCorrectionSetReadable(user));
    for (const std::uint64_t sizeMax : {156U, 157U}) // 152 bytes and 4 for each pixel must stay below the largest size
    {
        DpcAdapterTamorinPro small(makeTamorinProCamera(sizeMax));
        EXPECT_EQ(small.IsSpaceSufficient(user, defectsOf("P1,1")), sizeMax == 157);
    }
}

} // namespace
