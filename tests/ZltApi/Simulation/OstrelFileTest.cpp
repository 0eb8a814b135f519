// The firmware's reader of the Ostrel defect file against bytes written by hand from the layout.
#include "Firmware/Ostrel/OstrelFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>

namespace Simulation
{

namespace
{

constexpr SensorSize Small{40, 32}; // two rows in each of the sixteen segments
constexpr std::uint32_t End = 0xC000;

std::uint32_t Y(std::uint32_t y)
{
    return 0x8000 | y;
}

std::uint32_t R(std::uint32_t x)
{
    return 0x4000 | x;
}

struct Set
{
    std::uint32_t reverse;
    std::vector<std::uint32_t> table; // the last entry stands for those that are left out
    std::vector<std::uint32_t> body;
};

// One data set: pixel 5 of row 0 and pixel 6 of row 7.
// clang-format off
const FileBytes Whole = {
    'P','T','Y','1', 4,0,0,0, 'D','P','C','0',
    'F','C','O','1', 8,0,0,0, 0,0,0,0,0,0,0,2,
    'D','C','T','1', 4,0,0,0, 2,0,0,0,
    'D','F','M','T', 4,0,0,0, 16,0,0,0,
    'I','F','0','1', 72,0,0,0,
    'I','N','D','X', 4,0,0,0, 0,0,0,0,
    'D','S','E','T', 28,0,0,0, 0,0,0,0, 42,0,0,0, 0,0,0,0, 32,0,0,0, 40,0,0,0, 0,0,0,0, 0,0,0,0,
    'T','M','P','1', 4,0,0,0, 0,0,0xA0,0x41,
    'E','X','P','1', 4,0,0,0, 0,0,0x7A,0x44,
    'P','D','A','1', 42,0,0,0,
    0,0, 0,0, 0,0, 2,0, 2,0, 2,0, 2,0, 2,0, 2,0, 2,0, 2,0, 2,0, 2,0, 2,0, 2,0, 2,0,
    0x00,0x80, 0x05,0x00, 0x07,0x80, 0x06,0x00, 0x00,0xC0};
// clang-format on

void Put(FileBytes& bytes, std::size_t position, std::size_t number)
{
    for (std::size_t i = 0; i < 4; ++i)
    {
        bytes[position + i] = static_cast<unsigned char>(number >> (8 * i));
    }
}

// The file above with other data sets.
FileBytes File(const std::vector<Set>& sets)
{
    FileBytes payload;
    FileBytes file(Whole.begin(), Whole.begin() + 52);
    for (std::size_t i = 0; i < sets.size(); ++i)
    {
        std::vector<std::uint32_t> words = sets[i].table;
        words.resize(16, sets[i].table.back());
        words.insert(words.end(), sets[i].body.begin(), sets[i].body.end());
        const std::size_t info = file.size();
        file.insert(file.end(), Whole.begin() + 52, Whole.begin() + 132);
        Put(file, info + 16, i);
        Put(file, info + 28, payload.size());
        Put(file, info + 32, 2 * words.size());
        Put(file, info + 36, sets[i].reverse << 30);
        for (const std::uint32_t word : words)
        {
            payload.insert(payload.end(), {static_cast<unsigned char>(word), static_cast<unsigned char>(word >> 8)});
        }
    }
    file.insert(file.end(), Whole.begin() + 132, Whole.begin() + 140);
    Put(file, file.size() - 4, payload.size());
    file.insert(file.end(), payload.begin(), payload.end());
    return file;
}

using Positions = std::vector<std::tuple<std::uint32_t, std::uint32_t>>; // row, column

Positions Sorted(const std::vector<PixelPosition>& pixels)
{
    Positions positions;
    for (const auto& [x, y] : pixels)
    {
        positions.emplace_back(y, x);
    }
    std::sort(positions.begin(), positions.end());
    return positions;
}

Positions Decoded(const FileBytes& file, Mirroring mirroring = {}, SensorSize sensor = Small)
{
    return Sorted(DecodeOstrelFile(file, sensor, mirroring));
}

// One pixel at column 5 of row 0, columns 7 to 9 of row 7, column 5 of row 7 before them.
const Set Upright{0, {0, 2}, {Y(0), 5, Y(7), 5, R(7), R(9), End}};
const Positions UprightPixels = {{0, 5}, {7, 5}, {7, 7}, {7, 8}, {7, 9}};

} // namespace

TEST(OstrelFile, WholeFileByteForByte)
{
    const std::vector<PixelPosition> pixels = {{6, 7}, {5, 0}};
    EXPECT_EQ(Whole, EncodeOstrelFile(pixels, Small, false, false));
    EXPECT_EQ(Sorted(pixels), Decoded(Whole));
}

TEST(OstrelFile, DataSets)
{
    struct Case
    {
        const char* fault; // what it would catch
        std::vector<std::uint32_t> table;
        std::vector<std::uint32_t> body;
        Positions pixels;
    };
    // clang-format off
    const Case cases[] = {
        {"empty set", {0}, {End}, {}},
        {"rows, pixels and runs", {0, 0, 0, 2}, {Y(0), 5, Y(7), 5, R(7), R(9), End}, UprightPixels},
        {"a run of one pixel", {0}, {Y(1), R(9), R(9), End}, {{1, 9}}},
        {"the same pixel twice", {0}, {Y(1), 9, 9, R(9), R(10), End}, {{1, 9}, {1, 10}}},
        {"positions outside the sensor", {0}, {Y(1), 39, 40, 900, Y(32), 1, Y(0x3FFF), 1, End}, {{1, 39}}},
        {"a first row that no entry points to", {0, 0, 2}, {Y(4), 1, Y(5), 2, Y(8), 3, End}, {{4, 1}, {5, 2}}},
        {"the same, and a later row", {0, 0, 2, 2, 4}, {Y(4), 1, Y(5), 2, Y(8), 3, End}, {{4, 1}, {5, 2}, {8, 3}}},
        {"a table of zeros", {0}, {Y(0), 1, Y(1), 2, Y(2), 3, Y(9), 4, End}, {{0, 1}, {1, 2}}},
        {"an entry one row late", {0, 4}, {Y(0), 1, Y(2), 2, Y(3), 3, End}, {{0, 1}, {3, 3}}},
        {"an entry one row early", {0, 0, 2}, {Y(0), 1, Y(2), 2, Y(5), 3, End}, {{0, 1}}},
        {"an entry between a row and its pixels", {0, 3}, {Y(0), 1, Y(2), 2, End}, {{0, 1}}},
        {"entries behind the end", {0, 500, 0xFFFF, 2}, {Y(0), 1, Y(2), 2, End}, {{0, 1}}},
        {"the last segment", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2}, {Y(0), 1, Y(31), 2, End}, {{0, 1}, {31, 2}}},
        {"words behind the end mark", {0}, {Y(0), 1, End, Y(1), 2}, {{0, 1}}},
        {"no end mark", {0}, {Y(0), 1}, {}},
        {"a pixel without a row", {0}, {1, Y(0), 1, End}, {}},
        {"half a run", {0}, {Y(0), R(1), Y(1), 1, End}, {}},
        {"a run that ends before it starts", {0}, {Y(0), R(9), R(7), End}, {}},
        {"rows that descend", {0}, {Y(1), 1, Y(0), 1, End}, {}},
        {"a row twice", {0}, {Y(1), 1, Y(1), 2, End}, {}},
        {"pixels that descend", {0}, {Y(1), 2, 1, End}, {}},
    };
    // clang-format on
    for (const Case& test : cases)
    {
        EXPECT_EQ(test.pixels, Decoded(File({{0, test.table, test.body}}))) << test.fault;
    }
}

TEST(OstrelFile, MirroringPicksTheDataSet)
{
    const FileBytes all = File({Upright,
                                {1, Upright.table, {Y(0), 6, End}},
                                {2, {500}, {Y(24), 7, Y(31), 7, End}}, // the table is not looked at
                                {3, {0}, {Y(0), 8, Y(40), 1, End}}});
    EXPECT_EQ(UprightPixels, Decoded(all));
    EXPECT_EQ((Positions{{0, 6}}), Decoded(all, {true, false}));
    EXPECT_EQ((Positions{{0, 7}, {7, 7}}), Decoded(all, {false, true}));
    EXPECT_EQ((Positions{{31, 8}}), Decoded(all, {true, true}));
    EXPECT_EQ(Positions(), Decoded(File({Upright}), {true, false}));
    EXPECT_EQ(Positions(), Decoded(all, {}, {Small.height, Small.width}));
}

TEST(OstrelFile, BrokenFilesHideNothing)
{
    const FileBytes whole = File({Upright});
    ASSERT_EQ(UprightPixels, Decoded(whole));
    for (std::size_t size = 0; size < whole.size(); ++size)
    {
        EXPECT_EQ(Positions(), Decoded(FileBytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))));
    }
    FileBytes longer = whole;
    longer.push_back(0);
    EXPECT_EQ(Positions(), Decoded(longer));

    // Every byte ahead of the data set counts, except the conditions of the measurement and two reserved numbers.
    constexpr std::size_t info = 52;
    constexpr std::size_t dataSet = info + 80 + 8;
    for (std::size_t i = 0; i < dataSet; ++i)
    {
        const std::size_t inInfo = i - info;
        const bool isFree = i >= info && ((inInfo >= 36 && inInfo < 39) || (inInfo >= 48 && inInfo < 56) ||
                                          (inInfo >= 64 && inInfo < 68) || (inInfo >= 76 && inInfo < 80));
        FileBytes broken = whole;
        broken[i] ^= 0x40;
        EXPECT_EQ(isFree ? UprightPixels : Positions(), Decoded(broken)) << i;
    }
}

} // namespace Simulation
