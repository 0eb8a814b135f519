// The generic file format, against bytes written out by hand.
#include "GenericFileFormat.h"
#include "Hex.h"

#include <gmock/gmock.h>

#include <cmath>

using namespace KTR::GFF;

namespace
{

TEST(GenericFileFormat, WritesDefectFiles)
{
    // An offset counts the end mark of the payload before it, a size does not; so an empty payload has less than none.
    EXPECT_EQ(
        CreateFileDpcOstrel(std::vector<Bytes>{bytesFrom("01 00C000C0"), {}}, 480, 640, 20.0F, 1000.0F, 0xAABBCCDD),
        bytesFrom(R"(
        'PTY1 04000000 'DPC1 'FCO1 08000000 DDCCBBAA 00000002 'DCT1 04000000 02000000 'DFMT 04000000 10000000
        'IF01 48000000 'INDX 04000000 00000000
        'DSET 1C000000 00000000 01000000 00000000 E0010000 80020000 00000000 00000000
        'TMP1 04000000 0000A041 'EXP1 04000000 00007A44
        'IF01 48000000 'INDX 04000000 01000000
        'DSET 1C000000 05000000 FCFFFFFF 00000000 E0010000 80020000 00000000 00000000
        'TMP1 04000000 0000A041 'EXP1 04000000 00007A44 'PDA1 05000000 01 00C000C0)"));
    for (const auto& [gain, hex] :
         {std::pair(-1.0F, "00000000"), {0.00019F, "01000000"}, {1e6F, "FFFFFFFF"}, {NAN, "00000000"}})
    {
        const auto file = CreateFileDpcTamorinPro(Bytes(), 480, 640, gain, 0, 0, 0);
        EXPECT_EQ(Bytes(file.begin() + 128, file.begin() + 132), bytesFrom(hex)) << gain;
    }
}

TEST(GenericFileFormat, PacksCoordinatesAndValues)
{
    EXPECT_EQ(CoordsToVector({}), bytesFrom("00C000C0"));
    EXPECT_EQ(CoordsToVector({{3, 5}, {0xFFFF, 0xC001}, {3, 5}}), bytesFrom("03400500 FF7F0100 03400500 00C000C0"));
    const std::tuple<int, std::vector<std::uint16_t>, const char*> cases[] = {
        {12, {0xABC, 0xDEF}, "BCFADE"},
        {12, {0xFABC}, "BC0A"},
        {1, {1}, "01"},
        {4, {5}, "05"},
        {10, {0x3FF, 0, 1}, "FF031000"},
        {16, {0xABCD}, "CDAB"},
        {8, {}, ""},
        {0, {1}, ""},
        {-3, {1, 2}, ""},
        {20, {0xFFFF, 1}, "FFFF100000"},
    };
    for (const auto& [bits, values, hex] : cases)
    {
        EXPECT_EQ(ConvertMonoToMonoPacked(values, bits), bytesFrom(hex)) << bits;
    }
}

TEST(GenericFileFormat, WritesNonuniformityFiles)
{
    const NucData bare{{1, 2, 3, 4}, 0.5F, 5, 6, {}, {}, {}, {}, {1, 2, 3}};
    const NucData full{{7, 8, 9, 10}, 1.0F, 11, 12, 13, 14, 15, {16, -1}, {4, 5}};
    EXPECT_EQ(CreateFileNucTamorinPro({bare, full}, 0x12), bytesFrom(R"(
        'PTY1 04000000 'FPN1 'FCO1 08000000 12000000 00000002 'FPT1 04000000 04000000 'DFMT 04000000 11000000
        'IF01 5C000000 'INDX 04000000 00000000
        'DSET 1C000000 00000000 01000000 01000000 01000000 02000000 03000000 04000000
        'TMP1 04000000 05000000 'AGAN 04000000 88130000 'EXP1 04000000 06000000 'SPOV 00000000
        'IF01 88000000 'INDX 04000000 00000000
        'DSET 1C000000 03000000 01000000 01000000 07000000 08000000 09000000 0A000000
        'PFMT 04000000 0E000000 'UBPC 04000000 0F000000 'TMP1 04000000 0B000000 'AGAN 04000000 10270000
        'EXP1 04000000 0C000000 'BLM1 04000000 0D000000 'SPOV 08000000 10000000 FFFFFFFF 'PDA1 05000000 0102030405)"));
}

} // namespace
