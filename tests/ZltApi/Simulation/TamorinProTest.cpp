// The Tamorin Pro camera: its reader of dataset files, against bytes written by hand, and which dataset it applies.
#include "Firmware/TamorinPro/TamorinProFile.h"
#include "TestRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace Simulation
{

namespace
{

constexpr std::uint32_t Width = 64;
constexpr std::uint32_t Height = 48;

// clang-format off
const FileBytes Whole = {
    'P','T','Y','1', 4,0,0,0, 'D','P','C','1',
    'F','C','O','1', 8,0,0,0, 0,0,0,0, 0,0,0,2,
    'D','C','T','1', 4,0,0,0, 3,0,0,0,
    'D','F','M','T', 4,0,0,0, 17,0,0,0,
    'I','F','0','1', 84,0,0,0,
    'I','N','D','X', 4,0,0,0, 0,0,0,0,
    'D','S','E','T', 28,0,0,0, 0,0,0,0, 12,0,0,0, 0,0,0,0, 48,0,0,0, 64,0,0,0, 0,0,0,0, 0,0,0,0,
    'T','M','P','1', 4,0,0,0, 0,0,0xA0,0x41,
    'A','G','A','N', 4,0,0,0, 0x98,0x3A,0,0,
    'E','X','P','1', 4,0,0,0, 0,0,0x7A,0x44,
    'P','D','A','1', 16,0,0,0,
    1,0x40, 5,0,  9,0x40, 1,0,  9,0x40, 2,0,  0,0xC0,0,0xC0};
// clang-format on

// The pixels as "x,y", or "refused".
std::string Decoded(const FileBytes& file)
{
    const auto dataset = DecodeTamorinProFile(file, Width, Height);
    std::string text = dataset ? "" : "refused";
    for (const PixelPosition& pixel : dataset ? dataset->pixels : std::vector<PixelPosition>())
    {
        text += std::to_string(pixel.x) + "," + std::to_string(pixel.y) + " ";
    }
    return text;
}

std::size_t Bright(const Bytes& image)
{
    return static_cast<std::size_t>(std::count_if(image.begin(), image.end(), [](unsigned char v) { return v > 40; }));
}

} // namespace

TEST(TamorinProFile, WholeFileByteForByte)
{
    EXPECT_EQ(Whole, EncodeTamorinProFile({{{2, 9}, {5, 1}, {1, 9}}, 20.0F, 15'000, 1000.0F}, Width, Height));
    EXPECT_EQ("5,1 1,9 2,9 ", Decoded(Whole));
    EXPECT_EQ(1000.0F, DecodeTamorinProFile(Whole, Width, Height)->exposureUs);
    EXPECT_EQ("", Decoded(EncodeTamorinProFile({}, Width, Height)));
    EXPECT_FALSE(DecodeTamorinProFile(Whole, Height, Width));
    for (std::size_t i = 0; i < Whole.size(); ++i)
    {
        EXPECT_EQ("refused", Decoded({Whole.begin(), Whole.begin() + static_cast<std::ptrdiff_t>(i)})) << i;
        FileBytes broken = Whole;
        broken[i] ^= 0x40;
        // The file code and the conditions may be anything; a column or the last row may go beyond the sensor.
        const auto in = [i](std::size_t from) { return i >= from && i < from + 4; };
        const bool isFree = in(20) || in(116) || in(128) || in(140) || i == 154 || i == 160 || i == 162;
        EXPECT_EQ(isFree, Decoded(broken) != "refused") << i;
    }
    const struct
    {
        std::vector<unsigned char> entries; // three
        const char* pixels;
    } cases[] = {
        {{1, 0x40, 5, 0, 1, 0x40, 5, 0, 1, 0x40, 6, 0}, "5,1 5,1 6,1 "},
        {{1, 0x40, 5, 0, 1, 0x40, 4, 0, 2, 0x40, 6, 0}, "refused"},
        {{2, 0x40, 5, 0, 1, 0x40, 5, 0, 3, 0x40, 6, 0}, "refused"},
        {{1, 0x40, 64, 0, 2, 0x40, 63, 0, 48, 0x40, 1, 0}, "63,2 "},
        {{1, 0x40, 5, 0, 0, 0xC0, 0, 0xC0, 3, 0x40, 6, 0}, "refused"},
    };
    for (const auto& [entries, pixels] : cases)
    {
        FileBytes file = Whole;
        std::copy(entries.begin(), entries.end(), file.begin() + 152);
        EXPECT_EQ(pixels, Decoded(file));
    }
}

TEST(TamorinProCamera, AppliesTheDatasetThatIsChosen)
{
    TestRig rig(R"({"firmware": "tamorin-pro", "reverseX": false, "darkCurrent": 1.5})");
    auto camera = rig.Opened();
    const auto brightWith = [&](const char* feature, const auto& value)
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, feature, value));
        return Bright(Grab(camera).front().image);
    };
    // The camera's own choice, as delivered.
    const std::pair<double, std::int64_t> choices[] = {
        {1'000.0, 0x2001}, {8'000.0, 0x2000}, {2e5, 0x2002}, {4e5, 0x2003}, {10'000.0, 0x2000}};
    for (const auto& [exposure, dataset] : choices)
    {
        brightWith("ExposureTime", exposure);
        EXPECT_EQ(dataset, Get<std::int64_t>(camera, "DPCDatasetFileId")) << exposure;
    }
    const std::size_t factory = brightWith("DPCDatasetAuto", "Off");
    const std::size_t raw = brightWith("DPCMode", "Off");
    EXPECT_GT(raw, 20U);
    EXPECT_GT(factory, raw / 4);
    EXPECT_LT(factory, raw * 3 / 4);

    const Bytes dark = Grab(camera).front().image;
    TamorinProDataset dataset{{}, 40.0F, 0, 20'000.0F};
    for (std::uint32_t i = 0; i < dark.size(); ++i)
    {
        dark[i] > 40 ? dataset.pixels.push_back({i % Width, i / Width}) : void();
    }
    EXPECT_EQ("FileProtected", OpenFile(camera, "DPC_001", "Write"));
    EXPECT_EQ("Success", OpenFile(camera, "DPC_User_8", "Write"));
    EXPECT_EQ("Success", WriteBlocks(camera, "DPC_User_8", EncodeTamorinProFile(dataset, Width, Height)));
    EXPECT_EQ("Success", Execute(camera, "DPC_User_8", "Close"));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "DPCDatasetFileId", std::int64_t{0x2004}));
    brightWith("DPCDatasetFileId", std::int64_t{0x2808});
    EXPECT_EQ(raw, brightWith("DPCMode", "On")) << "written, but not loaded";

    const auto describe = [&](const char* file)
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileSelector", file));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileDescriptionBuffer", "from 40 degrees"));
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileOperationSelector", "WriteDescription"));
        return RunCommand(camera, "FileOperationExecute");
    };
    const auto description = [&](const char* file)
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileSelector", file));
        return Get<std::string>(camera, "FileDescriptionBuffer");
    };
    EXPECT_EQ(ZltErrorSuccess, describe("DPC_User_8"));
    EXPECT_EQ(ZltErrorInvalidAccess, describe("DPC_001"));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "FileDescriptionBuffer", std::string(256, 'x').c_str()));
    EXPECT_EQ(ZltErrorSuccess, RunCommand(camera, "DeviceReset"));
    EXPECT_TRUE(rig.events.Next(ZltApi::UpdateTriggerUnplugged));
    EXPECT_TRUE(rig.events.Next(ZltApi::UpdateTriggerPluggedIn));
    camera = rig.Opened();
    EXPECT_EQ(0U, brightWith("ExposureTime", 15'000.0)) << "the user's dataset is the next one";
    EXPECT_EQ(0x2808, Get<std::int64_t>(camera, "DPCDatasetFileId"));
    EXPECT_EQ("from 40 degrees", description("DPC_User_8"));
    EXPECT_EQ("Factory, 1000 us", description("DPC_001"));
    EXPECT_EQ("Success", Execute(camera, "DPC_User_8", "Delete"));
    EXPECT_EQ("", description("DPC_User_8"));
}

} // namespace Simulation
