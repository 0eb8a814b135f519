// Tables in camera memory: what a host writes, what it reads, and which pixels they cover.
#include "Firmware/Mask/ColumnTable.h"
#include "Firmware/Mask/RectangleTable.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Simulation
{

namespace
{

constexpr SensorSize Size{64, 48};
const FileBytes TableEnd = {0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0};

// Entries of one byte a number: big-endian, the upper ones 0.
FileBytes Table(const FileBytes& numbers, const FileBytes& end = TableEnd)
{
    FileBytes bytes;
    for (const unsigned char number : numbers)
    {
        bytes.insert(bytes.end(), {0, number});
    }
    bytes.insert(bytes.end(), end.begin(), end.end());
    return bytes;
}

FileBytes Read(const MaskTable& table, std::uint64_t address, std::size_t size)
{
    FileBytes bytes(size);
    EXPECT_EQ(ZltErrorSuccess, table.Read(address, bytes)) << address;
    return bytes;
}

// Row * 100 + column of each covered pixel.
std::vector<std::uint32_t> Covered(const MaskTable& table)
{
    std::vector<std::uint32_t> places;
    for (const PixelPosition& pixel : table.Pixels(Size))
    {
        places.push_back(pixel.y * 100 + pixel.x);
    }
    return places;
}

} // namespace

TEST(RectangleTable, IsInForceWhenItsLastPacketHasCome)
{
    constexpr std::uint64_t Window = 0x19300;
    RectangleTable table(160, Size);
    EXPECT_EQ((FileBytes{0, 0, 0, 40}), Read(table, 0x19100, 4));
    const FileBytes first = Table({5, 6, 1, 1, 4, 6, 3, 2, 62, 47, 9, 9, 64, 48, 1, 1});
    EXPECT_EQ(ZltErrorSuccess, table.Write(Window, first));
    EXPECT_EQ((std::vector<std::uint32_t>{604, 605, 606, 704, 705, 706, 4762, 4763}), Covered(table));
    for (const bool isLost : {true, false})
    {
        EXPECT_EQ(ZltErrorSuccess, table.Write(Window, Table({1, 2, 1, 1, 3, 4, 1, 1}, FileBytes(8, 0xFF))));
        EXPECT_EQ(first, Read(table, Window, first.size()));
        isLost ? table.Disconnect() : void();
        EXPECT_EQ(isLost, table.Write(Window + 16, Table({7, 8, 1, 1})) == ZltErrorBadParameter);
    }
    EXPECT_EQ(Table({1, 2, 1, 1, 3, 4, 1, 1, 7, 8, 1, 1}), Read(table, Window, 32));

    // 20 such rectangles fill the 160 bytes; a pixel takes half of one.
    FileBytes numbers;
    for (int i = 0; i < 21; ++i)
    {
        numbers.insert(numbers.end(), {1, 2, 2, 1});
    }
    EXPECT_EQ(ZltErrorResource, table.Write(Window, Table(numbers)));
    numbers[2] = numbers[6] = 1;
    EXPECT_EQ(ZltErrorSuccess, table.Write(Window, Table(numbers)));
    FileBytes bytes(8);
    for (const std::uint64_t address : {std::uint64_t{0}, std::uint64_t{0x19104}, Window - 1, Window + 40 * 8 + 256})
    {
        EXPECT_NE(ZltErrorSuccess, table.Write(address, bytes)) << address;
        EXPECT_EQ(ZltErrorBadParameter, table.Read(address, bytes)) << address;
    }
}

TEST(ColumnTable, HasAsManyEntriesAsTheLengthOfTheWriteTells)
{
    constexpr std::uint64_t Window = 0x19108;
    ColumnTable table;
    FileBytes entries = Table({5, 6, 8, 63, 47, 60, 64, 0, 47, 7, 9, 8, 5, 7, 7}, {});
    EXPECT_EQ(ZltErrorSuccess, table.Write(Window, entries));
    EXPECT_EQ(ZltErrorBadParameter, table.Write(Window, FileBytes(4)));
    EXPECT_EQ(ZltErrorBadParameter, table.Write(Window, FileBytes(65 * 6)));
    EXPECT_EQ((std::vector<std::uint32_t>{605, 705, 805, 4763}), Covered(table));
    entries.resize(32); // read in steps of 4 bytes
    EXPECT_EQ(entries, Read(table, Window, 32));
    for (const std::size_t count : {64U, 0U})
    {
        EXPECT_EQ(ZltErrorSuccess, table.Write(Window, FileBytes(count * 6)));
        EXPECT_EQ(count, Read(table, 0x19104, 4)[3]);
    }
}

} // namespace Simulation
