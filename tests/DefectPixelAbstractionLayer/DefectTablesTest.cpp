// The tables of the established GigE cameras, against bytes written out by hand.
#include "ColumnMaskTable.h"
#include "DefectRectangleTable.h"
#include "DefectText.h"
#include "Failure.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;

namespace
{

const std::string End = "FFFFFFFF 00000000";

std::string decode(const std::string& hex)
{
    return text(decodeDefectTable(bytesFrom(hex), 640, 480));
}

TEST(DefectRectangleTable, WritesAndReadsTheBytesOfTheFormat)
{
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"", "", ""},
        {"P10,4660", "000A 1234 0001 0001", "P10,4660 "},
        {"L5,9,4", "0005 0009 0004 0001", "L5,9,4 "},
        {"C8,9,3", "0008 0009 0001 0003", "C8,9,3 "},
        {"R3", "0000 0003 0280 0001", "L0,3,640 "}, // whole lines come back as runs
        {"V7", "0007 0000 0001 01E0", "C7,0,480 "},
        {"K3,4,2", "0000 0000 0003 0004", "K12 "},     // a cluster reaches from the origin to its largest coordinates
        {"K900,3,2", "0000 0000 0384 0003", "K2700 "}, // beyond the sensor, too
        // What is cut to 16 bits, and what reaches below 0.
        {"P65538,3 P4294967295,3 R2147483648 K4294967295,1,2", "0002 0003 0001 0001", "P2,3 "},
    };
    for (const auto& [defects, hex, read] : cases)
    {
        EXPECT_EQ(encodeDefectTable(defectsOf(defects), 640, 480), bytesFrom(hex + End)) << defects;
        EXPECT_EQ(decode(hex + End + "1234"), read) << "whatever stands behind the end";
    }
    EXPECT_EQ(decode("0000 0000 0257 018F 0000 0000 0257 018F" + End), "K239001 K239001 ") << "more than the sensor";
    EXPECT_EQ(text({toSensorDefect(1, 2, 0, 1, 0, 9), toSensorDefect(1, 2, 1, 0, 9, 0)}), "R2 V1 ");
}

TEST(DefectRectangleTable, RefusesWhatIsNoTable)
{
    const std::string noEnd = "The defect table has no end.";
    const std::string unknown = "Could not identify sensor defect type";
    const std::string tooLarge = "A cluster of the defect table has more pixels than the sensor.";
    const std::string tooMany = "The clusters of the defect table have too many pixels.";
    std::string wholeSensors;
    for (int i = 0; i < 14; ++i)
    {
        wholeSensors += "0000 0000 0280 01E0";
    }
    const std::pair<std::string, std::string> cases[] = {
        {"", noEnd},
        {"0001 0002 0001 0001 FFFFFFFF 000000", noEnd},
        {"0001" + End + "0000", noEnd}, // not at a record
        {"0001 0002 0000 0005" + End, unknown},
        {"0001 0002 0005 0000" + End, unknown},
        {"FFFF FFFF FFFF FFFF" + End, tooLarge}, // the end of a packet
        {"0000 0000 0280 01E1" + End, tooLarge},
        {wholeSensors + End, tooMany},
    };
    for (const auto& [hex, words] : cases)
    {
        EXPECT_EQ(FailureOf([&, &hex = hex] { decode(hex); }), words) << hex;
    }
    EXPECT_EQ(FailureOf([&] { decodeDefectRectangles(bytesFrom("0001 0002 0001 0001 0001"), 640, 480); }),
              "Syntax of read data is not correct!");
}

TEST(ColumnMaskTable, WritesAndReadsTheBytesOfTheFormat)
{
    const auto read = [](const std::string& hex) { return text(decodeColumnMask(bytesFrom(hex), 480)); };
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"P10,4660 C8,9,3", "000A 1234 1234 0008 0009 000B", "P10,4660 C8,9,3 "},
        {"V7 C6,0,480 C5,1,480", "0007 0000 01DF 0006 0000 01DF 0005 0001 01E0", "V7 V6 V5 "},
        {"C65538,65538,1", "0002 0002 0002", "P2,2 "}, // cut to 16 bits
    };
    for (const auto& [defects, hex, expected] : cases)
    {
        EXPECT_EQ(encodeColumnMask(defectsOf(defects), 480), bytesFrom(hex)) << defects;
        EXPECT_EQ(read(hex + "0001 0002 00"), expected) << "less than an entry behind them";
    }
    EXPECT_EQ(FailureOf([] { encodeColumnMask(defectsOf("R1"), 480); }), "Unsupported Sensor Defect!");
    EXPECT_EQ(FailureOf([&] { read("0001 0005 0004"); }),
              "An entry of the column masking table ends before it starts.");
    EXPECT_EQ(FailureOf([] { decodeColumnMask(Bytes(65 * 6), 480); }),
              "The column masking table has 65 entries, more than its 64.");
}

TEST(ColumnMaskTable, HasNoNeighbouringColumns)
{
    for (const char* mask : {"", "V10 V12 V10 P10,3", "C11,9,4 C10,5,4", "C11,5,4 C12,9,4 C11,13,9", "P639,479"})
    {
        EXPECT_TRUE(isColumnMask(defectsOf(mask), 640, 480)) << mask;
    }
    for (const char* none : {"C10,5,5 C11,9,4", "P10,20 C11,1,3 P11,4 C11,2,19", "P12,470 C13,0,400 C13,5,9 V14",
                             "C10,5,90 C10,7,2 C11,20,3", "C11,5,90 C11,7,2 C10,20,3", "P640,0", "P0,480", "C0,479,2",
                             "C0,9,0", "P0,0 R3"})
    {
        EXPECT_FALSE(isColumnMask(defectsOf(none), 640, 480)) << none;
    }
}

} // namespace
