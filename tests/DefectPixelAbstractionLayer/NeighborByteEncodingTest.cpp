// Neighbour masks and the file with them, against masks worked out by hand, bytes written out, and the plain search.
#include "DefectText.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "Failure.h"

#include <gtest/gtest.h>

using namespace KTR::DPC;

namespace
{

CameraInfo sensor(const std::string& type, std::uint64_t width = 640, std::uint64_t height = 480)
{
    return {"", "", type, width, height, 0};
}

// Row and column of each.
std::vector<std::uint32_t> masks(const CameraInfo& info, const std::vector<PixelCoords>& list)
{
    NeighborByteEncoding encoding(info);
    encoding.Initialize(info, list);
    EXPECT_TRUE(encoding.Generate1DNbEncodingFromDefectList());
    std::vector<std::uint32_t> found;
    for (unsigned i = 0; i < encoding.GetNumberOfDefects(); ++i)
    {
        DefectivePixelInfo result;
        EXPECT_TRUE(encoding.GetDpcInfoAt(i, result) && result.GetRow() == list[i].x &&
                    result.GetColumn() == list[i].y);
        found.push_back(result.GetNBData());
    }
    return found;
}

// Each with each, as the mask is defined.
std::uint32_t plainMask(const CameraInfo& info, const std::vector<PixelCoords>& list, const PixelCoords& place)
{
    std::uint32_t usable = 0;
    for (int d = -4; d <= 4; ++d)
    {
        const int column = place.y + d;
        const bool bad =
            std::any_of(list.begin(), list.end(), [&](auto& other) { return other.x == place.x && other.y == column; });
        const bool good = d != 0 && !bad && column >= 0 && column < int(info.sensorWidth) &&
                          (info.sensorType == "Mono" || d % 2 == 0);
        usable |= good ? 1U << (4 - d) : 0;
    }
    return usable;
}

TEST(NeighborByteEncoding, NamesTheGoodNeighbours)
{
    const struct
    {
        const char* type;
        std::vector<PixelCoords> list;
        std::vector<std::uint32_t> expected;
    } cases[] = {
        {"Mono", {{7, 0}}, {0x00F}},
        {"Mono", {{7, 639}}, {0x1E0}},
        {"Mono", {{7, 3}, {8, 636}}, {0x0EF, 0x1EE}},
        {"Mono", {{7, 100}}, {0x1EF}},
        {"Bayer", {{7, 100}}, {0x145}},
        {"Bayer", {{7, 102}, {7, 100}}, {0x105, 0x141}},
        {"Bayer", {{7, 100}, {7, 101}}, {0x145, 0x145}},
        {"Mono", {{7, 100}, {8, 100}, {7, 100}, {7, 104}}, {0x1EE, 0x1EF, 0x1EE, 0x0EF}},
        {"Mono", {{7, 65535}, {8, 0}}, {0, 0x00F}},
    };
    for (const auto& [type, list, expected] : cases)
    {
        EXPECT_EQ(masks(sensor(type), list), expected) << type << list[0].y;
    }
    std::mt19937 random(1);
    for (const auto& info : {sensor("Mono", 40), sensor("Bayer", 41), sensor("Mono", 9)})
    {
        std::vector<PixelCoords> list(600);
        std::vector<std::uint32_t> expected;
        std::generate(
            list.begin(), list.end(),
            [&] {
                return PixelCoords{std::uint16_t(random() % 30 * 257), std::uint16_t(random() % info.sensorWidth)};
            });
        for (const auto& place : list)
        {
            expected.push_back(plainMask(info, list, place));
        }
        EXPECT_EQ(masks(info, list), expected);
    }
}

TEST(NeighborByteEncoding, TakesAwayWhatCannotBeCorrected)
{
    const auto info = sensor("Mono", 9, 5);
    std::vector<PixelCoords> list = {{5, 9}, {6, 1}, {1, 10}, {6, 1}};
    for (std::uint16_t x = 0; x < 9; ++x)
    {
        list.push_back({2, x});
    }
    NeighborByteEncoding encoding;
    DefectivePixelInfo result;
    std::vector<unsigned char> bytes, small(4096);
    EXPECT_EQ(encoding.GetNumberOfDefects(), 0xFFFFFFFF);
    EXPECT_FALSE(encoding.GetDpcInfoAt(0, result) || encoding.PrepareBinaryDefectFile(bytes));
    EXPECT_EQ(encoding.GetLastErrorText(), "Defect list is empty.");
    encoding.Initialize(info, list);
    EXPECT_TRUE(encoding.Generate1DNbEncodingFromDefectList());
    EXPECT_FALSE(encoding.PrepareBinaryDefectFile(small));
    EXPECT_EQ(encoding.RemoveOutOfRangeDefects(info), (std::vector<PixelCoords>{{6, 1}, {1, 10}, {6, 1}}));
    EXPECT_EQ(encoding.RemoveUncorrectableDefects().size(), 9U);
    EXPECT_EQ(encoding.GetNumberOfDefects(), 1U) << "a place one beyond the sensor still counts";
    EXPECT_FALSE(encoding.GetDpcInfoAt(1, result));
    EXPECT_EQ(encoding.GetLastErrorText(), "Index out of range.");
    EXPECT_TRUE(encoding.Generate1DNbEncodingFromDefectList());
    EXPECT_EQ(encoding.GetNumberOfDefects(), 1U) << "the list lost them, too";
    for (const auto& [other, places] : {std::pair(sensor("Mono", 8), list), {info, {}}})
    {
        encoding.Initialize(other, places);
        EXPECT_FALSE(encoding.Generate1DNbEncodingFromDefectList());
    }
    encoding.Initialize(sensor("Infrared"), list);
    EXPECT_EQ(FailureOf([&] { encoding.Generate1DNbEncodingFromDefectList(); }), "Unknown Sensor Type!");
    const DefectivePixelInfo info2(1, 2, 0x1E4);
    EXPECT_TRUE(info2 == DefectivePixelInfo(1, 2, 0) && info2[1] == 1 && info2.GetNBBitData(2) == 1);
    EXPECT_EQ(FailureOf([&] { info2[4]; }) + FailureOf([&] { info2[-1]; }), "Index out of Bounds!Index out of Bounds!");
}

TEST(FlashDefectFile, WrittenAndReadByteForByte)
{
    using Adapter = DpcAdapterQuorsalinWithPython;
    const auto list = "P3,7 P639,479 P5,7 ";
    Bytes file = fromHex("FFFFFFFF 01000000 00100000 03000000 08000000 80020000 E0010000");
    file.resize(4096, 0xFF);
    const auto records = fromHex("0300 0700 EBF00000  7F02 DF01 E0F10000  0500 0700 AFF10000");
    file.insert(file.end(), records.begin(), records.end());
    EXPECT_EQ(Adapter::CreateBinaryDefectFile(defectsOf(std::string(list) + "R1"), sensor("Mono")), file);
    EXPECT_EQ(text(Adapter::DecodeBinaryDefectFile(file)), list);
    const auto spoil = [&](std::size_t at, std::uint8_t value)
    {
        Bytes spoilt = file;
        spoilt[at] = value;
        return [spoilt] { return text(Adapter::DecodeBinaryDefectFile(spoilt)); };
    };
    EXPECT_EQ(spoil(0, 0)(), "P768,1792 P32514,57089 P1280,1792 ") << "coordinates in the other order";
    EXPECT_EQ(spoil(12, 1)(), "P3,7 ");
    EXPECT_EQ(FailureOf(spoil(15, 0x80)), "The defect file claims 2147483651 defects, more than its 4120 bytes hold.");
    EXPECT_EQ(FailureOf([&] { Adapter::DecodeBinaryDefectFile(Bytes(4095)); }),
              "The defect file has 4095 bytes, less than its header of 4096.");
    EXPECT_TRUE(Adapter::DecodeBinaryDefectFile({}).empty());
    for (const auto& [places, words] : {std::pair("R1", "Generate1DNbEncodingFromDefectImage() failed"),
                                        {"P70000,1", "ValidateDefectivePixelCoordinates() failed"}})
    {
        EXPECT_EQ(FailureOf([&, p = places] { Adapter::CreateBinaryDefectFile(defectsOf(p), sensor("Mono")); }), words);
    }
}

} // namespace
