// Tables in camera memory: what a host writes, what it reads, and what vanishes from the picture.
#include "TestRig.h"

#include "Firmware/Mask/Coverage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace Simulation
{

namespace
{

constexpr std::uint32_t Width = 64;
constexpr std::uint32_t Height = 48;
constexpr std::uint64_t CountRegister = 0x19104;
constexpr std::uint64_t Rectangles = 0x19300;
constexpr std::uint64_t Columns = 0x19108;
const Bytes TableEnd = {0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0};
const Bytes PacketEnd(8, 0xFF);

Bytes Numbers(const std::vector<std::uint32_t>& numbers, const Bytes& end = {})
{
    Bytes bytes;
    for (const std::uint32_t number : numbers)
    {
        bytes.push_back(static_cast<unsigned char>(number >> 8));
        bytes.push_back(static_cast<unsigned char>(number & 0xFF));
    }
    bytes.insert(bytes.end(), end.begin(), end.end());
    return bytes;
}

Bytes Read(const ZltApi::CameraPtr& camera, std::uint64_t address, std::size_t size)
{
    Bytes bytes(size);
    EXPECT_EQ(ZltErrorSuccess, camera->ReadMemory(address, bytes)) << address;
    return bytes;
}

std::uint32_t Count(const ZltApi::CameraPtr& camera)
{
    return Read(camera, CountRegister, 4)[3];
}

// Places of a dark frame that differ from another of the same number, as row * width + column.
std::vector<std::size_t> Changed(const Bytes& a, const Bytes& b)
{
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < a.size(); ++i)
    {
        a[i] != b[i] ? places.push_back(i) : void();
    }
    return places;
}

std::string Rig(const char* firmware)
{
    return std::string(
               R"({"reverseX": false, "reverseY": false, "fileSizeMax": 160, "model": "Rivo G-011", "firmware": ")") +
           firmware + R"("})";
}

} // namespace

TEST(RectangleMask, APacketedTableIsInForceWhenItEnds)
{
    TestRig rig(Rig("rectangle-mask"));
    auto camera = rig.Opened();
    EXPECT_EQ((Bytes{0, 0, 0, 40}), Read(camera, 0x19100, 4));
    EXPECT_EQ(Numbers({}, TableEnd), Read(camera, Rectangles, 8));
    const Bytes raw = GrabDark(camera);
    const Bytes first = Numbers({5, 6, 1, 1, 10, 20, 3, 2, 63, 0, 1, 48, 60, 47, 9, 9, 64, 48, 1, 1}, TableEnd);
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, first));
    EXPECT_EQ(5U, Count(camera));
    EXPECT_EQ(first, Read(camera, Rectangles, first.size()));
    const Bytes masked = GrabDark(camera);
    const auto changed = Changed(raw, masked);
    EXPECT_GT(changed.size(), 15U);
    for (const std::size_t place : changed)
    {
        const std::size_t x = place % Width, y = place / Width;
        EXPECT_TRUE((x == 5 && y == 6) || (x >= 10 && x < 13 && y >= 20 && y < 22) || x == 63 || (x >= 60 && y == 47));
    }

    // Of two packets the second is written over the end of the first.
    const Bytes packet = Numbers({1, 2, 1, 1, 3, 4, 1, 1}, PacketEnd);
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, packet));
    EXPECT_EQ(5U, Count(camera));
    EXPECT_EQ(first, Read(camera, Rectangles, first.size()));
    EXPECT_EQ(masked, GrabDark(camera));
    rig.StartAgain(); // the host is gone, and so is its packet
    camera = rig.Opened();
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles + 16, Numbers({7, 8, 1, 1}, TableEnd)));
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, packet));
    EXPECT_NE(2U, Count(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles + 16, Numbers({7, 8, 1, 1}, TableEnd)));
    EXPECT_EQ(3U, Count(camera));
    EXPECT_EQ(Numbers({1, 2, 1, 1, 3, 4, 1, 1, 7, 8, 1, 1}, TableEnd), Read(camera, Rectangles, 32));

    rig.StartAgain();
    camera = rig.Opened();
    EXPECT_EQ(3U, Count(camera)) << "permanent";
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "DefectMaskEnable", false));
    EXPECT_EQ(raw, GrabDark(camera));
    EXPECT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, TableEnd));
    EXPECT_EQ(0U, Count(camera));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "DefectMaskEnable", true));
    EXPECT_EQ(raw, GrabDark(camera));
}

TEST(RectangleMask, RefusesWhatDoesNotFit)
{
    TestRig rig(Rig("rectangle-mask-mode"));
    const auto camera = rig.Opened();
    EXPECT_EQ("Enabled", Get<std::string>(camera, "DefectMaskEnable"));
    const auto table = [](std::size_t count, const Bytes& entry)
    {
        Bytes bytes;
        for (std::size_t i = 0; i < count; ++i)
        {
            bytes.insert(bytes.end(), entry.begin(), entry.end());
        }
        bytes.insert(bytes.end(), TableEnd.begin(), TableEnd.end());
        return bytes;
    };
    // 160 bytes: a pixel takes 4, a whole row or column 6, anything else 8.
    const std::tuple<std::vector<std::uint32_t>, std::size_t> measures[] = {
        {{1, 2, 1, 1}, 31}, {{0, 2, Width, 1}, 26}, {{1, 0, 1, Height}, 26}, {{1, 2, 2, 1}, 20}, {{1, 2, 2, 2}, 20}};
    for (const auto& [entry, most] : measures)
    {
        EXPECT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, table(most, Numbers(entry))));
        if (most < 31)
        {
            EXPECT_EQ(ZltErrorResource, camera->WriteMemory(Rectangles, table(most + 1, Numbers(entry))));
        }
        EXPECT_EQ(most, Count(camera)) << "the table stays";
    }
    Bytes bytes(257);
    EXPECT_EQ(ZltErrorBadParameter, camera->ReadMemory(Rectangles, bytes));
    EXPECT_EQ(ZltErrorBadParameter, camera->WriteMemory(Rectangles, bytes));
    bytes.resize(8);
    for (const std::uint64_t address : {std::uint64_t{0}, CountRegister, Rectangles - 1, Rectangles + 40 * 8 + 256})
    {
        EXPECT_NE(ZltErrorSuccess, camera->WriteMemory(address, bytes)) << address;
        EXPECT_EQ(ZltErrorBadParameter, camera->ReadMemory(address, bytes)) << address;
    }
}

TEST(ColumnMask, TheLengthOfTheWriteIsTheNumberOfEntries)
{
    TestRig rig(Rig("column-mask"));
    auto camera = rig.Opened();
    const Bytes raw = GrabDark(camera);
    const Bytes table = Numbers({5, 6, 9, 30, 0, 47, 63, 47, 60, 64, 0, 47, 7, 9, 8});
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Columns, table));
    EXPECT_EQ(5U, Count(camera));
    Bytes padded = table;
    padded.resize(32);
    EXPECT_EQ(padded, Read(camera, Columns, 32));
    const auto changed = Changed(raw, GrabDark(camera));
    EXPECT_GT(changed.size(), 15U);
    for (const std::size_t place : changed)
    {
        const std::size_t x = place % Width, y = place / Width;
        EXPECT_TRUE((x == 5 && y >= 6 && y <= 9) || x == 30 || (x == 63 && y == 47));
    }
    for (const Bytes& wrong : {Numbers({1, 2}), Bytes(65 * 6)})
    {
        EXPECT_EQ(ZltErrorBadParameter, camera->WriteMemory(Columns, wrong));
    }
    EXPECT_EQ(ZltErrorInvalidAccess, camera->WriteMemory(CountRegister, {0, 0, 0, 1}));
    rig.StartAgain();
    camera = rig.Opened();
    EXPECT_EQ(5U, Count(camera)) << "permanent";
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "DefectMaskColumnEnable", false));
    EXPECT_EQ(raw, GrabDark(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Columns, Bytes(64 * 6, 1)));
    EXPECT_EQ(64U, Count(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Columns, {}));
    EXPECT_EQ(0U, Count(camera));
    Bytes nothing;
    EXPECT_EQ(ZltErrorSuccess, camera->ReadMemory(Columns, nothing));
}

TEST(Coverage, CountsEachPixelOnce)
{
    std::mt19937 random(5);
    Coverage coverage({Width, Height});
    std::vector<bool> expected(std::size_t{Width} * Height);
    for (int i = 0; i < 30; ++i)
    {
        const auto number = [&](unsigned range) { return static_cast<std::uint32_t>(random() % range); };
        const auto left = number(70), top = number(60), right = left + number(12) - 2, bottom = top + number(12) - 2;
        coverage.Add(left, top, right, bottom);
        for (auto y = top; y <= bottom && y < Height; ++y)
        {
            for (auto x = left; x <= right && x < Width; ++x)
            {
                expected[y * Width + x] = true;
            }
        }
    }
    std::vector<bool> actual(expected.size());
    for (const PixelPosition& pixel : coverage.Pixels())
    {
        EXPECT_FALSE(actual[pixel.y * Width + pixel.x]);
        actual[pixel.y * Width + pixel.x] = true;
    }
    EXPECT_EQ(expected, actual);
}

} // namespace Simulation
