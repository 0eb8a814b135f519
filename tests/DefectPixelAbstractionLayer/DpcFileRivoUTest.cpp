// The defect pixel file of the Rivo U family, against bytes written out by hand.
#include "DpcFileRivoU.h"
#include "DefectText.h"
#include "DpcAdapterOstrel.h"
#include "Failure.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;

namespace
{

DpcFileRivoU fileOf(const std::string& defects, ReverseCapability capability, std::uint32_t width, std::uint32_t height)
{
    DpcFileRivoU file(capability, width, height);
    file.getRawData(); // building in between changes nothing
    DpcAdapterOstrel::addDefects(file, defectsOf(defects));
    return file;
}

std::string read(const Bytes& bytes)
{
    return text(DpcFileRivoU::getSensorDefectsListFromRawData(bytes, 640));
}

TEST(DpcFileRivoU, WritesAndReadsTheBytesOfTheFormat)
{
    const std::string first = "0000 0000 0000 ", none = first + std::string(13 * 4, '0'), second = " 0100 0100 0100 ";
    const std::tuple<ReverseCapability, const char*, std::string, std::string> cases[] = {
        {ReverseCapability::Non, "", "0200 0400 2E000000 0200 2000" + none + "00C0", ""},
        {ReverseCapability::XY, "", "0200 0400 54000000 0200 2000" + none + "00C0 00C0" + none + "00C0 00C0", ""},
        // Bands of 30 rows. Row 100 opens band 3 in the second word of pair 1.
        {ReverseCapability::Non, "L10,100,11 R3 P7,100",
         "0200 0400 3C000000 1000 2000" + first + second + second + second + second + "0100" +
             "0380 0040 7F42 6480 0700 0A40 1440 00C0",
         "R3 P7,100 L10,100,11 "},
        {ReverseCapability::X, "L10,5,11",
         "0200 0400 3C000000 0800 2000" + none + "0580 0A40 1440 00C0 0580 7542 6B42 00C0", "L10,5,11 "},
        // In the mirrored sets row 379 is in band 12, and row 79 behind it in band 2.
        {ReverseCapability::XY, "P1,400 P9,100 P7,100",
         "0200 0400 7C000000 0C00 2000" + first + first + first + first + "0000" + second +
             "6480 0700 0900 9081 0100 00C0 6480 7802 7602 9081 7E02 00C0 0000 0000" + second + second + second +
             "0100 0000 0000 0000 0000 7B81 0700 0900 4F80 0100 00C0 7B81 7802 7602 4F80 7E02 00C0",
         "P7,100 P9,100 P1,400 "},
    };
    for (const auto& [capability, added, hex, expected] : cases)
    {
        const Bytes whole = bytesFrom(hex);
        auto file = fileOf(added, capability, 0x10000 + 640, 480); // the size is cut to 16 bits
        EXPECT_EQ(file.getRawData(), whole);
        EXPECT_EQ(file.getSizeInBytes(), whole.size());
        for (std::size_t size = 0; size <= whole.size(); ++size)
        {
            EXPECT_EQ(read({whole.data(), whole.data() + size}), size < 44U + whole[8] ? "" : expected) << size;
        }
    }
    EXPECT_EQ(read(Bytes(65000, 0xFF)), "");
    EXPECT_EQ(read(DpcFileOstrel(ReverseCapability::XY, 640, 480).getRawData()), "") << "another family's file";
    EXPECT_EQ(FailureOf([] { fileOf("", ReverseCapability::Y, 640, 480); }), "Allowed capabilities are: Non, X, XY!");
}

TEST(DpcFileRivoU, MirrorsCoordinatesAndKeepsTheOrder)
{
    const auto mirrored = [](const std::string& defects, std::uint32_t width, std::uint32_t height)
    { return fileOf(defects, ReverseCapability::XY, width, height).calculateDataSet(ReverseCapability::XY); };
    EXPECT_EQ(mirrored("P5,1 L5,1,5 P5,1 P3,1 P0,7", 640, 8),
              (Words{0x8006, 636, 634, 0x427A, 0x4276, 634, 0x8000, 639}));
    // What lies outside of the sensor still is a row and a pixel when it is mirrored, and never an end.
    EXPECT_EQ(mirrored("P640,480", 640, 480), (Words{0xBFFF, 0x3FFF}));
    EXPECT_EQ(mirrored("P0,0 L16390,16384,2", 65535, 65535), (Words{0xBFFE, 0x3FFE, 0x7FF8, 0x7FF7}));
}

TEST(DpcFileRivoU, ReadsBackWhatItsSizeFieldTells)
{
    DpcFileRivoU large(ReverseCapability::Non, 640, 480);
    std::string pixels;
    for (std::uint16_t i = 0; i < 52 * 640; ++i)
    {
        large.addSinglePixelDefect(i % 640, i / 640);
        pixels += i < 0x234 ? "P" + std::to_string(i) + ",0 " : "";
    }
    const Bytes bytes = large.getRawData(); // 0x8235 words, of which the field tells the lower 15 bits
    EXPECT_EQ(Bytes(bytes.begin() + 4, bytes.begin() + 10), bytesFrom("96040100 6A04"));
    EXPECT_EQ(bytes.size(), 0x10496U);
    EXPECT_EQ(read(bytes), pixels);
}

} // namespace
