// Tables in camera memory: what a host writes, what it reads, and what vanishes from the picture.
#include "TestRig.h"

#include <gtest/gtest.h>

#include <array>

namespace Simulation
{

namespace
{

constexpr std::uint32_t Width = 64; // of a sensor with 48 rows
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

// Whether two dark frames of one number differ in many places, all of them in these rectangles (edges inclusive).
bool DifferWithin(const Bytes& a, const Bytes& b, const std::vector<std::array<std::size_t, 4>>& rectangles)
{
    std::size_t differences = 0;
    std::size_t inside = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
    {
        bool isInside = false;
        for (const auto& [left, top, right, bottom] : rectangles)
        {
            const std::size_t x = i % Width, y = i / Width;
            isInside = isInside || (x >= left && y >= top && x <= right && y <= bottom);
        }
        differences += a[i] != b[i] ? 1 : 0;
        inside += a[i] != b[i] && isInside ? 1 : 0;
    }
    return inside == differences && inside > 15;
}

std::string Rig(const char* firmware)
{
    return std::string(R"({"reverseY": false, "fileSizeMax": 160, "firmware": ")") + firmware + R"("})";
}

} // namespace

TEST(RectangleMask, ATableOfPacketsIsInForceWhenItEnds)
{
    TestRig rig(Rig("rectangle-mask"));
    auto camera = rig.Opened();
    EXPECT_EQ((Bytes{0, 0, 0, 40}), Read(camera, 0x19100, 4));
    EXPECT_EQ(TableEnd, Read(camera, Rectangles, 8));
    const Bytes raw = GrabDark(camera);
    const Bytes first = Numbers({5, 6, 1, 1, 10, 20, 3, 2, 63, 0, 1, 48, 60, 47, 9, 9, 64, 48, 1, 1}, TableEnd);
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, first));
    const Bytes masked = GrabDark(camera);
    EXPECT_TRUE(DifferWithin(raw, masked, {{5, 6, 5, 6}, {10, 20, 12, 21}, {63, 0, 63, 47}, {60, 47, 63, 47}}));

    const Bytes packet = Numbers({1, 2, 1, 1, 3, 4, 1, 1}, PacketEnd);
    const Bytes last = Numbers({7, 8, 1, 1}, TableEnd); // written over the end of the packet
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, packet));
    EXPECT_EQ(masked, GrabDark(camera));
    rig.StartAgain(); // the host is gone, and so is its packet
    camera = rig.Opened();
    EXPECT_EQ(5U, Count(camera));
    EXPECT_EQ(first, Read(camera, Rectangles, first.size())) << "permanent";
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, packet));
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles + 16, last));
    EXPECT_EQ(3U, Count(camera));
    EXPECT_EQ(Numbers({1, 2, 1, 1, 3, 4, 1, 1, 7, 8, 1, 1}, TableEnd), Read(camera, Rectangles, 32));

    EXPECT_EQ(ZltErrorSuccess, Set(camera, "DefectMaskEnable", false));
    EXPECT_EQ(raw, GrabDark(camera));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "DefectMaskEnable", true));
    EXPECT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, TableEnd));
    EXPECT_EQ(0U, Count(camera));
    EXPECT_EQ(raw, GrabDark(camera));
}

TEST(RectangleMask, RefusesWhatDoesNotFit)
{
    TestRig rig(Rig("rectangle-mask-mode"));
    const auto camera = rig.Opened();
    EXPECT_EQ("Enabled", Get<std::string>(camera, "DefectMaskEnable"));
    // 160 bytes: a whole row or column takes 6 of them, anything else 8, but a pixel 4; more than 31 of those would
    // take a second packet.
    const std::pair<std::vector<std::uint32_t>, std::size_t> measures[] = {
        {{1, 2, 1, 1}, 31}, {{0, 2, Width, 1}, 26}, {{1, 0, 1, 48}, 26}, {{1, 2, 2, 1}, 20}, {{1, 2, 2, 2}, 20}};
    for (const auto& [entry, most] : measures)
    {
        std::vector<std::uint32_t> numbers;
        for (std::size_t i = 0; i < most; ++i)
        {
            numbers.insert(numbers.end(), entry.begin(), entry.end());
        }
        EXPECT_EQ(ZltErrorSuccess, camera->WriteMemory(Rectangles, Numbers(numbers, TableEnd)));
        numbers.insert(numbers.end(), entry.begin(), entry.end());
        EXPECT_NE(ZltErrorSuccess, camera->WriteMemory(Rectangles, Numbers(numbers, TableEnd)));
        EXPECT_EQ(most, Count(camera)) << "the table stays";
    }
    Bytes bytes(257);
    EXPECT_EQ(ZltErrorBadParameter, camera->ReadMemory(Rectangles, bytes));
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
    Bytes table = Numbers({5, 6, 9, 30, 0, 47, 63, 47, 60, 64, 0, 47, 7, 9, 8});
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Columns, table));
    for (const Bytes& wrong : {Numbers({1, 2}), Bytes(65 * 6)})
    {
        EXPECT_EQ(ZltErrorBadParameter, camera->WriteMemory(Columns, wrong));
    }
    EXPECT_EQ(ZltErrorInvalidAccess, camera->WriteMemory(CountRegister, {0, 0, 0, 1}));
    rig.StartAgain();
    camera = rig.Opened();
    EXPECT_EQ(5U, Count(camera)) << "permanent";
    table.resize(32);
    EXPECT_EQ(table, Read(camera, Columns, 32));
    EXPECT_TRUE(DifferWithin(raw, GrabDark(camera), {{5, 6, 5, 9}, {30, 0, 30, 47}, {63, 47, 63, 47}}));
    ASSERT_EQ(ZltErrorSuccess, Set(camera, "DefectMaskColumnEnable", false));
    EXPECT_EQ(raw, GrabDark(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Columns, Bytes(64 * 6, 1)));
    EXPECT_EQ(64U, Count(camera));
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(Columns, {}));
    EXPECT_EQ(0U, Count(camera));
    EXPECT_EQ(Bytes(), Read(camera, Columns, 0));
}

} // namespace Simulation
