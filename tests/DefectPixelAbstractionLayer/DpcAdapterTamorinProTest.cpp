// The Tamorin Pro adapter: bytes, what it says when a camera fails, and which calls it makes.
#include "DpcAdapterTamorinPro.h"
#include "ColumnDefect.h"
#include "Failure.h"
#include "PixelDefect.h"
#include "TamorinProCamera.h"

#include <gmock/gmock.h>

#include <fstream>
#include <functional>
#include <random>

using namespace KTR::DPC;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

using Bytes = std::vector<std::uint8_t>;
using Metadata = std::map<std::string, double>;
using Set = DpcAdapter::CorrectionSetPtr;

SensorDefectList pixels(const std::vector<std::pair<unsigned, unsigned>>& places)
{
    SensorDefectList list;
    for (const auto& [x, y] : places)
    {
        list.push_back(boost::make_shared<PixelDefect>(x, y));
    }
    return list;
}

std::string text(const SensorDefectList& defects)
{
    std::string text;
    for (const auto& defect : defects)
    {
        const auto& pixel = dynamic_cast<const PixelDefect&>(*defect);
        text += std::to_string(pixel.getX()) + "," + std::to_string(pixel.getY()) + " ";
    }
    return text;
}

struct DpcAdapterTamorinProTest : testing::Test
{
    boost::shared_ptr<MemoryCamera> camera = makeTamorinProCamera();
    DpcAdapterTamorinPro adapter{camera};
    Set user = boost::make_shared<CorrectionSet>("DPC_User_1");
    Bytes& userFile = camera->files.back()->content;

    void SetUp() override { camera->log = {}; }
};

TEST_F(DpcAdapterTamorinProTest, SaysWhatFailed)
{
    const auto list = [&](const Set&) { adapter.GetAvailableCorrectionSets(); };
    const auto listAll = [&](const Set&) { adapter.GetAvailableCorrectionSetsWithMetadata(); };
    const auto setDefault = [&](const Set& set) { adapter.SetDefaultCorrectionSet(set); };
    const auto on = [&](const Set& set) { adapter.SetCorrectionSetEnabled(set, true); };
    const auto off = [&](const Set& set) { adapter.SetCorrectionSetEnabled(set, false); };
    const auto isOn = [&](const Set& set) { adapter.IsCorrectionSetEnabled(set); };
    const auto readable = [&](const Set& set) { adapter.IsCorrectionSetReadable(set); };
    const auto read = [&](const Set& set) { adapter.ReadCorrectionSet(set); };
    const auto write = [&](const Set& set) { adapter.WriteCorrectionSet(set, pixels({{1, 1}})); };
    const auto space = [&](const Set& set) { adapter.IsSpaceSufficient(set, {}); };
    const auto erase = [&](Set set) { adapter.EraseCorrectionSet(set); };
    const auto restore = [&](const Set& set) { adapter.RestoreFactorySettings(set); };
    const std::string listing = "Could not get enum values of CorrectionSetSelect : ";
    const std::string mode = "Could not set value of Correction mode for Correction Set DPC_User_1.\n";
    const std::string noNumber = " does not end in the number of a dataset.";
    const struct
    {
        std::string refused; // the camera's call that fails, whose words follow the text
        std::function<void(const Set&)> call;
        std::string set, text;
    } cases[] = {
        {"List FileSelector", list, "DPC_User_1", listing},
        {"OpenRead DPC_User_1", listAll, "DPC_User_1", listing},
        {"", setDefault, "DPC_User_1", "SetDefaultCorrectionSet not available on Tamorin Pro"},
        {"Set DPCMode=On", on, "DPC_User_1", mode},
        {"Set DPCDatasetFileId", on, "DPC_User_1", mode},
        {"Set DPCMode=Off", off, "DPC_User_1", ""},
        {"Get DPCDatasetFileId", isOn, "DPC_User_1", ""},
        {"", on, "DPC_User_", "The name of correction set DPC_User_" + noNumber},
        {"", isOn, "DPC_1_x7", "The name of correction set DPC_1_x7" + noNumber},
        {"", isOn, "DPC_99999999999999999999", "The name of correction set DPC_99999999999999999999" + noNumber},
        {"", readable, "DPC_Lost", "Could not get file DPC_Lost"},
        {"", read, "DPC_Lost", "Could not get file DPC_Lost"},
        {"", write, "DPC_000", "The given correction set cannot be overwritten"},
        {"", write, "User_1", "The given correction set cannot be overwritten"},
        {"", write, "DPC_User_9", "Could not get file for correction set DPC_User_9"},
        {"", space, "DPC_User_9", "Could not get file for correction set DPC_User_9"},
        {"", erase, "DPC_User_9", "Could not get file for correction set DPC_User_9"},
        {"", restore, "DPC_User_1", "RestoreFactorySettings is not available for Tamorin Pro Cameras"},
    };
    for (const auto& [refused, call, set, text] : cases)
    {
        camera->log.refused = refused;
        const auto cause = refused.empty() ? "" : "Refused: " + refused;
        EXPECT_EQ(FailureOf([&, &call = call, &set = set] { call(boost::make_shared<CorrectionSet>(set)); }),
                  text + cause);
    }
    EXPECT_THROW(adapter.GetDatasetFileId(boost::make_shared<CorrectionSet>("DPC_")), std::invalid_argument);
}

TEST_F(DpcAdapterTamorinProTest, SwitchesDatasetsByNumber)
{
    const std::pair<const char*, unsigned> ids[] = {
        {"DPC_003", 0x2003}, {"DPC_User_002", 0x2802}, {"DPC_User_8b", 0x2808}, {"User_12", 0x200C}};
    for (const auto& [name, id] : ids)
    {
        EXPECT_EQ(adapter.GetDatasetFileId(boost::make_shared<CorrectionSet>(name)), id) << name;
    }
    EXPECT_EQ(camera->features["DPCDatasetAuto"].text, "Off") << "since the adapter was made";
    adapter.SetCorrectionSetEnabled(user, true);
    EXPECT_EQ(camera->features["DPCDatasetFileId"].value, 0x2801);
    EXPECT_TRUE(adapter.IsCorrectionSetEnabled(user));
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(adapter.GetDefaultCorrectionSet()));
    camera->features["DPCDatasetAuto"].text = "On";
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(user));
    camera->features["DPCDatasetAuto"].text = "Off";
    adapter.SetCorrectionSetEnabled(user, false);
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(user));
    EXPECT_EQ(camera->features["DPCDatasetFileId"].value, 0x2801);
    camera->features["FileSelector"].unavailable = "DPC_User_1";
    EXPECT_FALSE(adapter.IsCorrectionSetAvailable(user));
}

TEST_F(DpcAdapterTamorinProTest, ListsSetsWithTheMetadataOfTheirFirstBytes)
{
    userFile = Bytes(188, 0); // of the last block's value 4 bytes stand within the first 200
    const auto block = fromHex("'TMP1 08000000 0000A041 00000000");
    userFile.insert(userFile.end(), block.begin(), block.end());
    const auto sets = adapter.GetAvailableCorrectionSetsWithMetadata();
    ASSERT_EQ(sets.size(), 2U);
    EXPECT_EQ(sets[0]->getName(), "DPC_000");
    EXPECT_THAT(sets[0]->getAllMetadata(), IsEmpty());
    EXPECT_EQ(sets[1]->getAllMetadata(), (Metadata{{"Temperature", -999999}}));
    EXPECT_EQ(adapter.GetCorrectionSetMetadata(userFile), (Metadata{{"Temperature", 20}}));
    EXPECT_EQ(adapter.GetAvailableCorrectionSets().size(), 4U);

    const std::pair<const char*, Metadata> cases[] = {
        {"", {}},
        {"'AGA", {}},
        {"'AGAN", {}},
        {"'AGAN 00", {{"Gain", -999999}}},
        {"'AGAN 04000000 983A0000", {{"Gain", 1}}},
        {"00 'EXP1 04000000 00401C46 'TMP1 04000000 000048C1 'AGAN 04000000 1F4E0000",
         {{"ExposureTime", 10000}, {"Temperature", -12.5}, {"Gain", 1}}},
        {"'AGAN 04000000 10270000 'AGAN 04000000 204E0000", {{"Gain", 2}}},
        {"'AGAN 04000000 102700", {{"Gain", -999999}}},
        {"'EXP1 03000000 000000", {{"ExposureTime", -999999}}},
        {"'EXP1 FFFFFFFF 0000A041", {{"ExposureTime", -999999}}},
        {"'TMP1 04000000 0000803F 'AGAN 04000000 10270000 'EXP1 04000000 00000040 'TMP1 04000000 00000000",
         {{"Temperature", 1}, {"Gain", 1}, {"ExposureTime", 2}}},
    };
    for (const auto& [hex, metadata] : cases)
    {
        EXPECT_EQ(adapter.GetCorrectionSetMetadata(fromHex(hex)), metadata) << hex;
    }
}

TEST_F(DpcAdapterTamorinProTest, ReadsPixels)
{
    const std::string cut = "The file has 15 bytes, but its defect pixel data reaches to byte 16.";
    const struct
    {
        std::string hex, text; // of the pixels, or of the failure
    } cases[] = {
        {"", ""},
        {"'PDA", "Invalid file format"},
        {"'PTY1 04000000 'DPC0 'PDB1 00000000", "Invalid file format"},
        {"'PDA1 00000000 0340 0500", ""},
        {"'PDA1 01000000", ""},
        {"'PDA1 08000000 0340 0500 00C000", "5,3 "}, // the last byte is not looked at
        {"'PDA1 09000000 0340 0500 00C000", cut},
        {"'PDA1 04000000 0340 0500", ""}, // without an end mark the last pixel is lost
        {"'PDA1 06000000 0340 0500 0000", "5,3 "},
        {"00 'PDA1 10000000 0340 0500 00C0 FF3F FF7F 0180 00C000C0 'PDA1", "5,3 16383,0 1,16383 "},
        {"'PDA1 0C000000 00C000C0 0340 0500 00C000C0", ""},
    };
    for (const auto& [hex, expected] : cases)
    {
        std::string actual;
        const auto failure =
            FailureOf([&, &hex = hex] { actual = text(adapter.getSensorDefectsListFromRawData(fromHex(hex))); });
        EXPECT_EQ(actual + failure, expected) << hex;
    }
    for (const char* hex : {"'PDA1", "'PDA1 080000"})
    {
        EXPECT_DEATH(adapter.getSensorDefectsListFromRawData(fromHex(hex)), "pos \\+ 3 < data.size\\(\\)");
    }
}

TEST_F(DpcAdapterTamorinProTest, WritesTheFileThatTheDocumentationShows)
{
    std::ifstream page(FORMATS_PAGE);
    std::string example((std::istreambuf_iterator<char>(page)), {});
    example.erase(0, example.find("## Tamorin Pro\n"));
    example.erase(0, example.find("```hex\n") + 7);
    user->setMetadata("Gain", 1.5);
    adapter.WriteCorrectionSet(user, pixels({{2, 9}, {5, 1}, {1, 9}}));
    EXPECT_EQ(userFile, fromHex(example.substr(0, example.find("```"))));
    const std::string file = " DPC_User_1";
    const std::string description = "Set FileDescriptionBuffer=Gain 1.5, 20.0 \xC2\xB0\x43, 10000 \xC2\xB5S";
    EXPECT_THAT(camera->log.calls,
                ElementsAre("GetFile" + file, "OpenWrite" + file, "Write" + file, "Close" + file,
                            "Set FileSelector=DPC_User_1", description, "Set FileOperationSelector=WriteDescription",
                            "Run FileOperationExecute"));
    EXPECT_EQ(text(adapter.ReadCorrectionSet(user)), "5,1 1,9 2,9 ");
    camera->log = {};
    adapter.WriteCorrectionSet(user, {});
    EXPECT_THAT(camera->log.calls, ElementsAre("GetFile" + file, "GetFile" + file, "Delete" + file));
    EXPECT_FALSE(adapter.IsCorrectionSetReadable(user));
    EXPECT_THAT(adapter.ReadCorrectionSet(user), IsEmpty());

    CorrectionSet bare("DPC_User_1");
    const auto bytes = adapter.ConvertDefectsListToBinary(bare, pixels({}), 640, 512);
    EXPECT_EQ(adapter.GetCorrectionSetMetadata(bytes),
              (Metadata{{"Gain", 0}, {"ExposureTime", 10000}, {"Temperature", 20}}));

    // 152 bytes and 4 for each pixel must stay below the largest size.
    EXPECT_FALSE(DpcAdapterTamorinPro(makeTamorinProCamera(152)).IsSpaceSufficient(user, {}));
    EXPECT_TRUE(DpcAdapterTamorinPro(makeTamorinProCamera(153)).IsSpaceSufficient(user, {}));
    EXPECT_FALSE(DpcAdapterTamorinPro(makeTamorinProCamera(156)).IsSpaceSufficient(user, pixels({{1, 1}})));
    EXPECT_TRUE(DpcAdapterTamorinPro(makeTamorinProCamera(157)).IsSpaceSufficient(user, pixels({{1, 1}})));
}

TEST(DpcAdapterTamorinPro, ReadsBackRandomLists)
{
    std::mt19937 random(1);
    for (int i = 0; i < 50; ++i)
    {
        std::vector<std::pair<unsigned, unsigned>> places(random() % 3000); // row, column
        std::generate(places.begin(), places.end(), [&] { return std::pair(random() % 16384, random() % 16384); });
        SensorDefectList list;
        for (const auto& [y, x] : places)
        {
            list.push_back(boost::make_shared<PixelDefect>(x, y));
        }
        std::sort(places.begin(), places.end());
        const auto bytes = DpcAdapterTamorinPro::ConvertDefectsListToBinary(CorrectionSet("A"), list, 16384, 16384);
        const auto back = DpcAdapterTamorinPro::getSensorDefectsListFromRawData(bytes);
        EXPECT_TRUE(std::equal(back.begin(), back.end(), places.begin(), places.end(),
                               [](auto& defect, auto& place)
                               { return *defect == PixelDefect(place.second, place.first); }));
    }
}

} // namespace
