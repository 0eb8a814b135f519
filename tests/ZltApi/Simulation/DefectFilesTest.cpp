// The firmwares' readers of defect files against bytes written by hand from the layouts.
#include "Firmware/Flash/FlashFile.h"
#include "Firmware/Ostrel/OstrelFile.h"
#include "Firmware/RivoU/RivoUFile.h"
#include "Firmware/TamorinPro/TamorinProFile.h"
#include "Hex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>

namespace Simulation
{

namespace
{

constexpr SensorSize Small{40, 32}; // two rows in each of the sixteen segments
constexpr SensorSize Middle{64, 48};
constexpr std::uint32_t End = 0xC000, Y = 0x8000, R = 0x4000; // kinds of words

using Words = std::vector<std::uint32_t>;
using Pixels = std::vector<PixelPosition>;

FileBytes ToBytes(const Words& words)
{
    FileBytes bytes;
    for (const std::uint32_t word : words)
    {
        bytes.insert(bytes.end(), {static_cast<unsigned char>(word), static_cast<unsigned char>(word >> 8)});
    }
    return bytes;
}

// The index or table of a data set; its last entry stands for those that are left out.
Words Indexed(Words index, const Words& body)
{
    index.resize(16, index.back());
    index.insert(index.end(), body.begin(), body.end());
    return index;
}

// Each pixel as "x,y ", sorted by rows.
std::string Text(Pixels pixels)
{
    std::sort(pixels.begin(), pixels.end(),
              [](const auto& a, const auto& b) { return std::pair(a.y, a.x) < std::pair(b.y, b.x); });
    std::string text;
    for (const auto& [x, y] : pixels)
    {
        text += std::to_string(x) + "," + std::to_string(y) + " ";
    }
    return text;
}

// What a file gives when it is cut anywhere, and when a bit of one of its first bytes is another one.
void ExpectEachByteCounts(const FileBytes& whole, std::size_t count, unsigned char bit, const std::string& broken,
                          const std::function<std::string(const FileBytes&)>& decoded,
                          const std::function<bool(std::size_t)>& isFree)
{
    for (std::size_t i = 0; i < whole.size(); ++i)
    {
        FileBytes other(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_EQ(broken, decoded(other)) << "cut to " << i;
        other = whole;
        other[i] ^= bit;
        EXPECT_TRUE(i >= count || isFree(i) == (decoded(other) != broken)) << "byte " << i;
    }
}

bool IsIn(std::size_t i, std::size_t from, std::size_t size = 4)
{
    return i >= from && i < from + size;
}

// One data set: pixel 5 of row 0 and pixel 6 of row 7.
const FileBytes WholeOstrel =
    bytesFrom("'PTY1 04000000 'DPC0 'FCO1 08000000 00000000 00000002 'DCT1 04000000 02000000 'DFMT 04000000 10000000"
              " 'IF01 48000000 'INDX 04000000 00000000"
              " 'DSET 1C000000 00000000 2A000000 00000000 20000000 28000000 00000000 00000000"
              " 'TMP1 04000000 0000A041 'EXP1 04000000 00007A44"
              " 'PDA1 2A000000 0000 0000 0000 0200 0200 0200 0200 0200 0200 0200 0200 0200 0200 0200 0200 0200"
              " 0080 0500 0780 0600 00C0");

void Put(FileBytes& bytes, std::size_t position, std::size_t number)
{
    std::generate_n(bytes.begin() + static_cast<std::ptrdiff_t>(position), 4,
                    [&] { return static_cast<unsigned char>(std::exchange(number, number >> 8)); });
}

// The file above with other data sets: for which mirroring, and the words.
FileBytes Ostrel(const std::vector<std::pair<std::uint32_t, Words>>& sets)
{
    FileBytes payload;
    FileBytes file(WholeOstrel.begin(), WholeOstrel.begin() + 52);
    for (std::size_t i = 0; i < sets.size(); ++i)
    {
        const FileBytes set = ToBytes(sets[i].second);
        const std::size_t info = file.size();
        file.insert(file.end(), WholeOstrel.begin() + 52, WholeOstrel.begin() + 132);
        Put(file, info + 16, i);
        Put(file, info + 28, payload.size());
        Put(file, info + 32, set.size());
        Put(file, info + 36, sets[i].first << 30);
        payload.insert(payload.end(), set.begin(), set.end());
    }
    file.insert(file.end(), WholeOstrel.begin() + 132, WholeOstrel.begin() + 140);
    Put(file, file.size() - 4, payload.size());
    file.insert(file.end(), payload.begin(), payload.end());
    return file;
}

std::string OstrelText(const FileBytes& file, Mirroring mirroring = {}, SensorSize sensor = Small)
{
    return Text(DecodeOstrelFile(file, sensor, mirroring));
}

// A file for a camera that cannot mirror.
FileBytes RivoU(const Words& index, const Words& set)
{
    const auto size = static_cast<std::uint32_t>(2 * set.size());
    Words words = {2, 4, 44 + size, 0, size, 32};
    const Words indexed = Indexed(index, set);
    words.insert(words.end(), indexed.begin(), indexed.end());
    return ToBytes(words);
}

std::string RivoUText(const FileBytes& file, Mirroring able = {false, false}, Mirroring mirroring = {})
{
    return Text(DecodeRivoUFile(file, Small, able, mirroring));
}

} // namespace

// Row 0 with pixel 5; row 7 with pixel 5 and the run from 7 to 9.
const Words Upright = Indexed({0, 2}, {Y, 5, Y | 7, 5, R | 7, R | 9, End});
const std::string UprightPixels = "5,0 5,7 7,7 8,7 9,7 ";

TEST(OstrelFile, DataSets)
{
    const Pixels two = {{6, 7}, {5, 0}};
    EXPECT_EQ(WholeOstrel, EncodeOstrelFile(two, Small, false, false));
    EXPECT_EQ(Text(two), OstrelText(WholeOstrel));
    // What each would catch; the table and the body.
    const std::tuple<const char*, Words, Words, std::string> cases[] = {
        {"empty set", {0}, {End}, ""},
        {"rows, pixels and runs", {0, 0, 0, 2}, {Y, 5, Y | 7, 5, R | 7, R | 9, End}, UprightPixels},
        {"a run of one pixel", {0}, {Y | 1, R | 9, R | 9, End}, "9,1 "},
        {"the same pixel twice", {0}, {Y | 1, 9, 9, R | 9, R | 10, End}, "9,1 10,1 "},
        {"outside the sensor", {0}, {Y | 1, 39, 40, 900, Y | 32, 1, Y | 0x3FFF, 1, End}, "39,1 "},
        {"a first row without an entry", {0, 0, 2}, {Y | 4, 1, Y | 5, 2, Y | 8, 3, End}, "1,4 2,5 "},
        {"and a later row", {0, 0, 2, 2, 4}, {Y | 4, 1, Y | 5, 2, Y | 8, 3, End}, "1,4 2,5 3,8 "},
        {"a table of zeros", {0}, {Y, 1, Y | 1, 2, Y | 2, 3, Y | 9, 4, End}, "1,0 2,1 "},
        {"an entry one row late", {0, 4}, {Y, 1, Y | 2, 2, Y | 3, 3, End}, "1,0 3,3 "},
        {"an entry one row early", {0, 0, 2}, {Y, 1, Y | 2, 2, Y | 5, 3, End}, "1,0 "},
        {"an entry between a row and its pixels", {0, 3}, {Y, 1, Y | 2, 2, End}, "1,0 "},
        {"entries behind the end", {0, 500, 0xFFFF, 2}, {Y, 1, Y | 2, 2, End}, "1,0 "},
        {"the last segment", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2}, {Y, 1, Y | 31, 2, End}, "1,0 2,31 "},
        {"words behind the end mark", {0}, {Y, 1, End, Y | 1, 2}, "1,0 "},
        {"no end mark", {0}, {Y, 1}, ""},
        {"a pixel without a row", {0}, {1, Y, 1, End}, ""},
        {"half a run", {0}, {Y, R | 1, Y | 1, 1, End}, ""},
        {"a run that ends before it starts", {0}, {Y, 5, R | 9, R | 7, End}, ""},
        {"rows that descend", {0}, {Y | 1, 1, Y, 1, End}, ""},
        {"a row twice", {0}, {Y | 1, 1, Y | 1, 2, End}, ""},
        {"pixels that descend", {0}, {Y | 1, 2, 1, End}, ""},
    };
    for (const auto& [fault, table, body, pixels] : cases)
    {
        EXPECT_EQ(pixels, OstrelText(Ostrel({{0, Indexed(table, body)}}))) << fault;
    }
}

TEST(OstrelFile, MirroringPicksTheDataSet)
{
    const FileBytes all = Ostrel({{0, Upright},
                                  {1, Indexed({0, 2}, {Y, 6, End})},
                                  {2, Indexed({500}, {Y | 24, 7, Y | 31, 7, End})}, // the table is not looked at
                                  {3, Indexed({0}, {Y, 8, Y | 40, 1, End})}});
    EXPECT_EQ(UprightPixels, OstrelText(all));
    EXPECT_EQ("6,0 ", OstrelText(all, {true, false}));
    EXPECT_EQ("7,0 7,7 ", OstrelText(all, {false, true}));
    EXPECT_EQ("8,31 ", OstrelText(all, {true, true}));
    EXPECT_EQ("", OstrelText(Ostrel({{0, Upright}}), {true, false}));
    EXPECT_EQ("", OstrelText(all, {}, {Small.height, Small.width}));

    FileBytes whole = Ostrel({{0, Upright}});
    // Every byte ahead of the data set counts, but for the conditions of the measurement and two reserved numbers.
    ExpectEachByteCounts(
        whole, 140, 0x40, "", [](auto& file) { return OstrelText(file); },
        [](std::size_t i) { return IsIn(i, 88, 3) || IsIn(i, 100, 8) || IsIn(i, 116) || IsIn(i, 128); });
    whole.push_back(0);
    EXPECT_EQ("", OstrelText(whole)) << "a byte too many";
}

TEST(RivoUFile, DataSets)
{
    constexpr Mirroring Both{true, true};
    // Row 7 begins in pair 1; mirrored, row 24 is in band 12 and row 31 in band 15.
    Words words = {2, 4, 12 + 64 + 4 * 14, 0, 14, 32};
    for (const Words& set : {Indexed({0, 0, 0, 1}, {Y, 5, 6, Y | 7, 8, 9, End, Y, 34, 33, Y | 7, 31, 30, End}),
                             Indexed({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 0},
                                     {Y | 31, 5, 6, Y | 24, 8, 9, End, Y | 31, 34, 33, Y | 24, 31, 30, End})})
    {
        words.insert(words.end(), set.begin(), set.end());
    }
    const FileBytes four = ToBytes(words);
    EXPECT_EQ(four, EncodeRivoUFile({{9, 7}, {8, 7}, {6, 0}, {5, 0}}, Small, Both));
    for (const Mirroring mirroring : {Mirroring{false, false}, {true, false}, {false, true}, {true, true}})
    {
        EXPECT_EQ("5,0 6,0 8,7 9,7 ", RivoUText(four, Both, mirroring)) << mirroring.x << mirroring.y;
        EXPECT_EQ("", RivoUText(four, {true, false}, mirroring)) << "another camera's file";
        EXPECT_EQ("", RivoUText(four, {false, false}, mirroring));
    }
    const std::tuple<const char*, Words, Words, std::string> cases[] = {
        {"rows, pixels and runs", {0, 0, 0, 1}, {Y, 5, Y | 7, 5, R | 7, R | 9, End}, UprightPixels},
        {"the same pixel twice", {0}, {Y | 1, 9, 9, R | 9, R | 10, End}, "9,1 10,1 "},
        {"outside the sensor", {0}, {Y | 1, 39, 40, 900, Y | 40, 1, End}, "39,1 "},
        {"an entry one pair late", {0, 0, 0, 2}, {Y, 5, Y | 7, 5, End}, ""},
        {"an index of zeros", {0}, {Y, 5, Y | 7, 5, End}, ""},
        {"a band without rows that does not repeat", {0, 0, 0, 1, 0}, {Y, 5, Y | 7, 5, End}, ""},
        {"no end mark", {0}, {Y, 1}, ""},
        {"a pixel without a row", {0}, {1, Y, 1, End}, ""},
        {"a row without pixels", {0}, {Y, Y | 1, 1, End}, ""},
        {"half a run", {0}, {Y, R | 1, 2, End}, ""},
        {"a run that ends before it starts", {0}, {Y, 5, R | 9, R | 7, End}, ""},
        {"rows that descend", {0}, {Y | 1, 1, Y, 1, End}, ""},
        {"pixels that descend", {0}, {Y | 1, 2, 1, End}, ""},
    };
    for (const auto& [fault, index, set, pixels] : cases)
    {
        EXPECT_EQ(pixels, RivoUText(RivoU(index, set))) << fault;
    }
    const FileBytes whole = RivoU({0}, {Y | 1, 9, End});
    ASSERT_EQ("9,1 ", RivoUText(whole));
    ExpectEachByteCounts(
        whole, 44, 0x40, "", [](auto& file) { return RivoUText(file); }, [](std::size_t) { return false; });
}

TEST(TamorinProFile, WholeFileByteForByte)
{
    const FileBytes whole = bytesFrom(
        "'PTY1 04000000 'DPC1 'FCO1 08000000 00000000 00000002 'DCT1 04000000 03000000 'DFMT 04000000 11000000"
        " 'IF01 54000000 'INDX 04000000 00000000"
        " 'DSET 1C000000 00000000 0C000000 00000000 30000000 40000000 00000000 00000000"
        " 'TMP1 04000000 0000A041 'AGAN 04000000 983A0000 'EXP1 04000000 00007A44"
        " 'PDA1 10000000 0140 0500 0940 0100 0940 0200 00C000C0");
    const auto decoded = [](const FileBytes& file)
    {
        const auto dataset = DecodeTamorinProFile(file, Middle.width, Middle.height);
        return dataset ? Text(dataset->pixels) : "refused";
    };
    EXPECT_EQ(whole, EncodeTamorinProFile({{{2, 9}, {5, 1}, {1, 9}}, 20.0F, 15'000, 1000.0F}, 64, 48));
    EXPECT_EQ("5,1 1,9 2,9 ", decoded(whole));
    EXPECT_EQ(1000.0F, DecodeTamorinProFile(whole, 64, 48)->exposureUs);
    EXPECT_EQ("", decoded(EncodeTamorinProFile({}, 64, 48)));
    EXPECT_FALSE(DecodeTamorinProFile(whole, 48, 64));
    // The file code and the conditions may be anything; a column or the last row may go beyond the sensor.
    ExpectEachByteCounts(whole, whole.size(), 0x40, "refused", decoded,
                         [](std::size_t i) {
                             return IsIn(i, 20) || IsIn(i, 116) || IsIn(i, 128) || IsIn(i, 140) || i == 154 ||
                                    i == 160 || i == 162;
                         });
    for (const auto& [entries, pixels] : {std::pair("0140 0500 0140 0500 0140 0600", "5,1 5,1 6,1 "),
                                          {"0140 0500 0140 0400 0240 0600", "refused"},
                                          {"0140 4000 0240 3F00 3040 0100", "63,2 "}})
    {
        FileBytes file = whole;
        const FileBytes bytes = bytesFrom(entries);
        std::copy(bytes.begin(), bytes.end(), file.begin() + 152);
        EXPECT_EQ(pixels, decoded(file));
    }
}

TEST(FlashFile, WholeFileByteForByte)
{
    // Pixels with the bits of the neighbours that serve.
    const auto decoded = [](const FileBytes& file)
    {
        const auto pixels = DecodeFlashFile(file, Middle);
        std::string text = pixels ? "" : "refused";
        for (const MaskedPixel& pixel : pixels.value_or(std::vector<MaskedPixel>()))
        {
            text += std::to_string(pixel.position.x) + "," + std::to_string(pixel.position.y) + ":" +
                    std::to_string(pixel.usable) + " ";
        }
        return text;
    };
    const auto fileOf = [](const std::string& mark, const std::string& count, const std::string& records)
    {
        FileBytes file = bytesFrom(mark + " 01000000 00100000 " + count + " 08000000 40000000 30000000");
        file.resize(4096, 255);
        const FileBytes bytes = bytesFrom(records);
        file.insert(file.end(), bytes.begin(), bytes.end());
        return file;
    };
    const FileBytes whole = fileOf("FFFFFFFF", "02000000", "0300 0700 EFF10000 3F00 2F00 E0F10000");
    EXPECT_EQ("3,7:495 63,47:480 ", decoded(whole));
    EXPECT_EQ("3,7:495 63,47:480 ", decoded(fileOf("00FFFFFF", "02000000", "0003 0007 EFF10000 003F 002F E0F10000")));
    EXPECT_EQ("", decoded(fileOf("FFFFFFFF", "01000000", "4000 0700 EFF10000")));
    EXPECT_EQ("0,7:8 2,7:35 3,7:71 4,7:143 ",
              decoded(EncodeFlashFile({{3, 7}, {0, 7}, {2, 7}, {4, 7}}, Middle, ColorFilter::Mono)));
    EXPECT_EQ("10,7:321 12,7:261 ", decoded(EncodeFlashFile({{10, 7}, {12, 7}}, Middle, ColorFilter::BayerRG)));
    ExpectEachByteCounts(whole, whole.size(), 0x02, "refused", decoded,
                         [](std::size_t i) { return i < 4 || (i >= 28 && i < 4096) || (i >= 4096 && i % 8 < 5); });
}

} // namespace Simulation
