// The firmware's reader of the Rivo U defect file against bytes written by hand from the layout.
#include "Firmware/RivoU/RivoUFile.h"

#include <gtest/gtest.h>

namespace Simulation
{

namespace
{

constexpr SensorSize Small{40, 32}; // two rows in each of the sixteen bands
constexpr Mirroring Fixed{false, false};
constexpr Mirroring Both{true, true};
constexpr Mirroring All[] = {{false, false}, {true, false}, {false, true}, {true, true}};

using Words = std::vector<std::uint32_t>;
using Positions = std::vector<std::pair<std::uint32_t, std::uint32_t>>; // row, column

FileBytes ToBytes(const Words& words)
{
    FileBytes bytes;
    for (const std::uint32_t word : words)
    {
        bytes.push_back(static_cast<unsigned char>(word & 0xFF));
        bytes.push_back(static_cast<unsigned char>(word >> 8));
    }
    return bytes;
}

// A file for a camera that cannot mirror; the last index entry stands for those that are left out.
FileBytes UprightFile(const Words& index, const Words& set)
{
    const auto size = static_cast<std::uint32_t>(2 * set.size());
    Words words = {2, 4, 44 + size, 0, size, 32};
    words.insert(words.end(), index.begin(), index.end());
    words.insert(words.end(), 16 - index.size(), index.back());
    words.insert(words.end(), set.begin(), set.end());
    return ToBytes(words);
}

Positions Decoded(const FileBytes& file, Mirroring able = Fixed, Mirroring mirroring = {})
{
    Positions positions;
    for (const auto& [x, y] : DecodeRivoUFile(file, Small, able, mirroring))
    {
        positions.emplace_back(y, x);
    }
    return positions;
}

} // namespace

TEST(RivoUFile, FourDataSetsWordForWord)
{
    // clang-format off
    const Words words = {
        2, 4, 12 + 64 + 4 * 14, 0, 14, 32,
        0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, // row 7 begins in pair 1
        0x8000, 5, 6, 0x8007, 8, 9, 0xC000, 0x8000, 34, 33, 0x8007, 31, 30, 0xC000,
        0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 0, // mirrored, row 24 is in band 12 and row 31 in band 15
        0x801F, 5, 6, 0x8018, 8, 9, 0xC000, 0x801F, 34, 33, 0x8018, 31, 30, 0xC000};
    // clang-format on
    EXPECT_EQ(ToBytes(words), EncodeRivoUFile({{9, 7}, {8, 7}, {6, 0}, {5, 0}}, Small, Both));
    for (const Mirroring mirroring : All)
    {
        EXPECT_EQ((Positions{{0, 5}, {0, 6}, {7, 8}, {7, 9}}), Decoded(ToBytes(words), Both, mirroring))
            << mirroring.x << mirroring.y;
        EXPECT_EQ(Positions(), Decoded(ToBytes(words), {true, false}, mirroring)) << "another camera's file";
        EXPECT_EQ(Positions(), Decoded(ToBytes(words), Fixed, mirroring));
    }
}

TEST(RivoUFile, DataSets)
{
    constexpr std::uint32_t End = 0xC000, Y = 0x8000, R = 0x4000;
    // clang-format off
    const struct
    {
        const char* fault; // what it would catch
        Words index, set;
        Positions pixels;
    } cases[] = {
        {"rows, pixels and runs", {0, 0, 0, 1}, {Y, 5, Y | 7, 5, R | 7, R | 9, End}, {{0, 5}, {7, 5}, {7, 7}, {7, 8}, {7, 9}}},
        {"the same pixel twice", {0}, {Y | 1, 9, 9, R | 9, R | 10, End}, {{1, 9}, {1, 10}}},
        {"positions outside the sensor", {0}, {Y | 1, 39, 40, 900, Y | 40, 1, End}, {{1, 39}}},
        {"an entry one pair late", {0, 0, 0, 2}, {Y, 5, Y | 7, 5, End}, {}},
        {"an index of zeros", {0}, {Y, 5, Y | 7, 5, End}, {}},
        {"a band without rows that does not repeat", {0, 0, 0, 1, 0}, {Y, 5, Y | 7, 5, End}, {}},
        {"no end mark", {0}, {Y, 1}, {}},
        {"a pixel without a row", {0}, {1, Y, 1, End}, {}},
        {"a row without pixels", {0}, {Y, Y | 1, 1, End}, {}},
        {"half a run", {0}, {Y, R | 1, 2, End}, {}},
        {"a run that ends before it starts", {0}, {Y, R | 9, R | 7, End}, {}},
        {"rows that descend", {0}, {Y | 1, 1, Y, 1, End}, {}},
        {"pixels that descend", {0}, {Y | 1, 2, 1, End}, {}},
    };
    // clang-format on
    for (const auto& test : cases)
    {
        EXPECT_EQ(test.pixels, Decoded(UprightFile(test.index, test.set))) << test.fault;
    }
}

TEST(RivoUFile, BrokenFilesHideNothing)
{
    const FileBytes whole = UprightFile({0}, {0x8001, 9, 0xC000});
    ASSERT_EQ((Positions{{1, 9}}), Decoded(whole));
    for (std::size_t i = 0; i < whole.size(); ++i)
    {
        FileBytes broken = whole;
        broken[i] ^= 0x40;
        EXPECT_TRUE(i >= 44 || Decoded(broken).empty()) << "byte " << i;
        EXPECT_EQ(Positions(), Decoded(FileBytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(i)))) << i;
    }
}

} // namespace Simulation
