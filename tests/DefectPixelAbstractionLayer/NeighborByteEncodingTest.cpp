// Neighbour masks and the file with them, against masks worked out by hand and bytes written out.
#include "DefectText.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "Failure.h"

#include <gtest/gtest.h>

using namespace KTR::DPC;
using Adapter = DpcAdapterQuorsalinWithPython;

namespace
{

CameraInfo sensor(const std::string& type, std::uint64_t width = 640, std::uint64_t height = 480)
{
    return {"", "", type, width, height, 0};
}

TEST(NeighborByteEncoding, NamesTheGoodNeighbours)
{
    // Places are row and column.
    const std::tuple<const char*, std::vector<PixelCoords>, std::vector<std::uint32_t>> cases[] = {
        {"Mono", {{7, 0}, {8, 639}, {9, 3}, {10, 636}, {11, 100}}, {0x00F, 0x1E0, 0x0EF, 0x1EE, 0x1EF}},
        {"Bayer", {{7, 102}, {7, 100}, {8, 100}, {8, 101}, {9, 100}}, {0x105, 0x141, 0x145, 0x145, 0x145}},
        {"Mono", {{7, 100}, {8, 100}, {7, 100}, {7, 104}, {7, 109}}, {0x1EE, 0x1EF, 0x1EE, 0x0EF, 0x1EF}},
        {"Mono", {{7, 65535}, {8, 0}}, {0, 0x00F}},
    };
    for (const auto& [type, list, expected] : cases)
    {
        NeighborByteEncoding encoding;
        encoding.Initialize(sensor(type), list);
        EXPECT_EQ(encoding.GetNumberOfDefects(), 0xFFFFFFFF);
        ASSERT_TRUE(encoding.Generate1DNbEncodingFromDefectList());
        DefectivePixelInfo found;
        for (unsigned i = 0; i < list.size() && encoding.GetDpcInfoAt(i, found); ++i)
        {
            EXPECT_EQ(found.GetNBData(), expected[i]) << type << i;
            EXPECT_TRUE(found == DefectivePixelInfo(list[i].x, list[i].y, 0));
        }
        EXPECT_FALSE(encoding.GetDpcInfoAt(encoding.GetNumberOfDefects(), found));
        EXPECT_EQ(encoding.GetLastErrorText(), "Index out of range.");
    }
    const DefectivePixelInfo info(1, 2, 0x1E4);
    EXPECT_TRUE(info[1] == 1 && info[0] == 0xE4 && info.GetNBBitData(2) == 1 && info.GetNBBitData(4) == 0);
    EXPECT_EQ(FailureOf([&] { info[4]; }) + FailureOf([&] { info[-1]; }), "Index out of Bounds!Index out of Bounds!");
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
    std::vector<unsigned char> bytes, small(4096);
    EXPECT_FALSE(encoding.PrepareBinaryDefectFile(bytes));
    encoding.Initialize(info, list);
    EXPECT_TRUE(encoding.Generate1DNbEncodingFromDefectList());
    EXPECT_FALSE(encoding.PrepareBinaryDefectFile(small));
    EXPECT_EQ(encoding.RemoveOutOfRangeDefects(info), (std::vector<PixelCoords>{{6, 1}, {1, 10}, {6, 1}}));
    EXPECT_EQ(encoding.RemoveUncorrectableDefects().size(), 9U);
    EXPECT_TRUE(encoding.Generate1DNbEncodingFromDefectList());
    EXPECT_EQ(encoding.GetNumberOfDefects(), 1U) << "the list lost them, too; one beyond the sensor counts as on it";
    for (const auto& [other, places] : {std::pair(sensor("Mono", 8), list), {info, {}}})
    {
        encoding.Initialize(other, places);
        EXPECT_FALSE(encoding.Generate1DNbEncodingFromDefectList());
    }
    encoding.Initialize(sensor("Infrared"), list);
    EXPECT_EQ(FailureOf([&] { encoding.Generate1DNbEncodingFromDefectList(); }), "Unknown Sensor Type!");
}

TEST(FlashDefectFile, ReadInEitherByteOrderAndByItsCount)
{
    const auto list = "P3,7 P639,479 P5,7 ";
    Bytes file = Adapter::CreateBinaryDefectFile(defectsOf(std::string(list) + "R1"), sensor("Mono"));
    const auto records = bytesFrom("0300 0700 EBF00000  7F02 DF01 E0F10000  0500 0700 AFF10000");
    EXPECT_EQ(Bytes(file.begin() + 4096, file.end()), records);
    const auto read = [&](std::size_t at, std::uint8_t value)
    {
        std::swap(file[at], value);
        std::string result;
        const auto failure = FailureOf([&] { result = text(Adapter::DecodeBinaryDefectFile(file)); });
        std::swap(file[at], value);
        return result + failure;
    };
    EXPECT_EQ(read(0, 0xFF), list);
    EXPECT_EQ(read(0, 0), "P768,1792 P32514,57089 P1280,1792 ") << "coordinates in the other order";
    EXPECT_EQ(read(12, 1), "P3,7 ");
    EXPECT_EQ(read(15, 0x80), "The defect file claims 2147483651 defects, more than its 4120 bytes hold.");
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
