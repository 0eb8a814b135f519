// The defect rectangle table of the established GigE cameras, against bytes written out by hand.
#include "DefectRectangleTable.h"
#include "DefectText.h"
#include "Failure.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;

namespace
{

const std::string End = "FFFFFFFF 00000000";

Bytes encode(const SensorDefectList& defects)
{
    return encodeDefectTable(defects, 640, 480);
}

std::string decode(const Bytes& memory)
{
    return text(decodeDefectTable(memory, 640, 480));
}

TEST(DefectRectangleTable, WritesAndReadsTheBytesOfTheFormat)
{
    const std::vector<PixelDefect> corners = {{5, 9}, {7, 6}};
    const std::tuple<SensorDefectList, std::string, std::string> cases[] = {
        {{}, "", ""},
        {{boost::make_shared<PixelDefect>(10, 0x1234)}, "000A 1234 0001 0001", "P10,4660 "},
        {{boost::make_shared<PixelRowDefect>(5, 9, 4)}, "0005 0009 0004 0001", "L5,9,4 "},
        {{boost::make_shared<PixelColumnDefect>(8, 9, 3)}, "0008 0009 0001 0003", "C8,9,3 "},
        // Whole lines come back as runs.
        {{boost::make_shared<RowDefect>(3)}, "0000 0003 0280 0001", "L0,3,640 "},
        {{boost::make_shared<ColumnDefect>(7)}, "0007 0000 0001 01E0", "C7,0,480 "},
        // A cluster reaches from the origin to its largest coordinates.
        {{boost::make_shared<ClusterDefect>(3, 4, 2, 2)}, "0000 0000 0003 0004", "K12 "},
        {{boost::make_shared<ClusterDefect>(corners)}, "0000 0000 0007 0009", "K63 "},
        // What is cut to 16 bits, and what reaches below 0.
        {{boost::make_shared<PixelDefect>(0x10002, 3), boost::make_shared<PixelDefect>(0xFFFFFFFF, 3),
          boost::make_shared<RowDefect>(0x80000000), boost::make_shared<ClusterDefect>(0xFFFFFFFF, 1, 1, 2)},
         "0002 0003 0001 0001",
         "P2,3 "},
    };
    for (const auto& [defects, hex, read] : cases)
    {
        EXPECT_EQ(encode(defects), fromHex(hex + End)) << read;
        EXPECT_EQ(decode(fromHex(hex + End + "1234")), read) << "whatever stands behind the end";
    }
    EXPECT_EQ(text({toSensorDefect(1, 2, 0, 1, 0, 9), toSensorDefect(1, 2, 1, 0, 9, 0)}), "R2 V1 ");
}

TEST(DefectRectangleTable, RefusesWhatIsNoTable)
{
    const std::string noEnd = "The defect table has no end.";
    const std::string unknown = "Could not identify sensor defect type";
    const std::string tooMany = "The clusters of the defect table have more pixels than the sensor.";
    const std::string pixel = "0001 0002 0001 0001";
    const std::pair<std::string, std::string> cases[] = {
        {"", noEnd},
        {pixel, noEnd},
        {pixel + "FFFFFFFF 000000", noEnd},
        {"0001" + End + "0000", noEnd}, // not at a record
        {"0001 0002 0000 0000" + End, unknown},
        {"0001 0002 0000 0005" + End, unknown},
        {"0001 0002 0005 0000" + End, unknown},
        {"0000 0000 0281 0002" + End, unknown}, // wider than the sensor
        {"FFFF FFFF FFFF FFFF" + End, tooMany}, // the end of a packet
        {"0000 0000 0280 01E0 0000 0000 0002 0002" + End, tooMany},
    };
    for (const auto& [hex, words] : cases)
    {
        EXPECT_EQ(FailureOf([&, &hex = hex] { decode(fromHex(hex)); }), words) << hex;
    }
    EXPECT_EQ(FailureOf([&] { decodeDefectRectangles(fromHex(pixel + "0001"), 640, 480); }),
              "Syntax of read data is not correct!");
}

TEST(DefectRectangleTable, ReadsBackRandomLists)
{
    std::mt19937 random(3);
    for (int list = 0; list < 20; ++list)
    {
        SensorDefectList defects;
        for (auto i = random() % 300; i > 0; --i)
        {
            const auto number = [&](unsigned range) { return static_cast<std::uint32_t>(random() % range); };
            const auto x = number(640), y = number(480);
            i % 3 == 0   ? defects.push_back(boost::make_shared<PixelDefect>(x, y))
            : i % 3 == 1 ? defects.push_back(boost::make_shared<PixelRowDefect>(x, y, number(639) + 2))
                         : defects.push_back(boost::make_shared<PixelColumnDefect>(x, y, number(479) + 2));
        }
        EXPECT_EQ(decode(encode(defects)), text(defects));
    }
}

} // namespace
