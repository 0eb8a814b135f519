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
    for (const PixelPosition& pixel : dataset.value_or(TamorinProDataset()).pixels)
    {
        text += std::to_string(pixel.x) + "," + std::to_string(pixel.y) + " ";
    }
    return text;
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
    const std::pair<std::vector<unsigned char>, const char*> cases[] = {
        {{1, 0x40, 5, 0, 1, 0x40, 5, 0, 1, 0x40, 6, 0}, "5,1 5,1 6,1 "},
        {{1, 0x40, 5, 0, 1, 0x40, 4, 0, 2, 0x40, 6, 0}, "refused"},
        {{1, 0x40, 64, 0, 2, 0x40, 63, 0, 48, 0x40, 1, 0}, "63,2 "},
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
