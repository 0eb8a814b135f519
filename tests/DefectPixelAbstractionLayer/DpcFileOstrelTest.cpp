// The defect pixel file of the Ostrel family, against bytes written out by hand.
#include "DpcFileOstrel.h"
#include "DefectText.h"
#include "DpcAdapterOstrel.h"
#include "Failure.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;

namespace
{

// A sensor of 640 x 480: blocks PTY1, FCO1, DCT1, DFMT.
const std::string Head = "50545931 04000000 44504330 46434F31 08000000 0000000000000002 "
                         "44435431 04000000 02000000 44464D54 04000000 10000000 ";

std::string info(const std::string& number, const std::string& offsetAndSize, const std::string& reverse)
{
    return "49463031 48000000 494E4458 04000000 " + number + "000000 44534554 1C000000 " + offsetAndSize + reverse +
           " E0010000 80020000 00000000 00000000 544D5031 04000000 0000A041 45585031 04000000 00007A44 ";
}

const std::string NoIndex = std::string(64, '0'); // all rows found from the start
// R3 P7,100 L10,100,11: 24 words. Segments have 30 rows; the second row opens segment 3 at word 3.
const std::string OneSet = Head + info("00", "00000000 30000000", "00000000") + "50444131 30000000 0000 0000 0000 " +
                           "0300 0300 0300 0300 0300 0300 0300 0300 0300 0300 0300 0300 0300 " +
                           "0380 0040 7F42 6480 0700 0A40 1440 00C0";

std::string read(const Bytes& bytes)
{
    return text(DpcFileOstrel::getSensorDefectsListFromRawData(bytes, 640));
}

TEST(DpcFileOstrel, WritesAndReadsTheBytesOfTheFormat)
{
    const std::string plain = NoIndex + "6480 0700 00C0 ";
    const std::string mirrored = NoIndex + "7B81 0700 00C0 "; // row 379
    const std::string first =
        Head + info("00", "00000000 26000000", "00000000") + info("01", "26000000 26000000", "00000040");
    const std::tuple<ReverseCapability, const char*, std::string, std::string> cases[] = {
        {ReverseCapability::Non, "",
         Head + info("00", "00000000 22000000", "00000000") + "50444131 22000000" + NoIndex + "00C0", ""},
        {ReverseCapability::Non, "L10,100,11 R3 P7,100", OneSet, "R3 P7,100 L10,100,11 "},
        {ReverseCapability::X, "P7,100",
         first + info("02", "4C000000 26000000", "000000C0") + "50444131 72000000" + plain + plain + mirrored,
         "P7,100 "},
        {ReverseCapability::XY, "P7,100",
         first + info("02", "4C000000 26000000", "00000080") + info("03", "72000000 26000000", "000000C0") +
             "50444131 98000000" + plain + plain + mirrored + mirrored,
         "P7,100 "},
    };
    for (const auto& [capability, added, hex, expected] : cases)
    {
        DpcFileOstrel file(capability, 0x10000 + 640, 480); // the size is cut to 16 bits
        DpcAdapterOstrel::addDefects(file, defectsOf(added));
        EXPECT_EQ(file.getSizeInBytes(), bytesFrom(hex).size());
        EXPECT_EQ(file.getRawData(), bytesFrom(hex));
        EXPECT_EQ(read(bytesFrom(hex)), expected);
    }
}

TEST(DpcFileOstrel, OrdersRowsAndIndexesSegments)
{
    // The table holds 0 before the segment, and the position from it on.
    const std::tuple<std::uint32_t, const char*, ReverseCapability, std::size_t, std::uint16_t, Words> cases[] = {
        {1600, "P1,260 P1,250 P1,50", ReverseCapability::X, 2, 2, {0x8032, 1, 0x80FA, 1, 0x8104, 1, 0xC000}},
        // A first row outside of segment 0 starts at word 0, which reads as not yet set.
        {1600, "P1,250 P1,260", ReverseCapability::Non, 2, 2, {0x80FA, 1, 0x8104, 1, 0xC000}},
        // The positions stay those of the unmirrored rows.
        {1600, "P1,50 P2,250 P3,250", ReverseCapability::Y, 2, 2, {0x8545, 2, 3, 0x860D, 1, 0xC000}},
        {1003, "P1,0 P1,1002", ReverseCapability::Non, 15, 2, {0x8000, 1, 0x83EA, 1, 0xC000}},
        {15, "P1,0 P1,14", ReverseCapability::Non, 15, 0, {0x8000, 1, 0x800E, 1, 0xC000}},
        {480, "P16390,16384", ReverseCapability::Non, 15, 0, {0x8000, 6, 0xC000}},
        {480, "P5,1 L5,1,5 P5,1 P3,1", ReverseCapability::Non, 15, 0, {0x8001, 3, 5, 0x4005, 0x4009, 5, 0xC000}},
    };
    for (const auto& [height, defects, reverse, segment, position, body] : cases)
    {
        Words expected(segment, 0);
        expected.resize(16, position);
        expected.insert(expected.end(), body.begin(), body.end());
        DpcFileOstrel file(ReverseCapability::XY, 640, height);
        DpcAdapterOstrel::addDefects(file, defectsOf(defects));
        EXPECT_EQ(file.calculateDataSet(reverse), expected) << defects;
    }
}

TEST(DpcFileOstrel, DecodesWhateverWordsThereAre)
{
    const std::pair<Words, std::string> cases[] = {
        {{7, 0xC000}, "P7,0 "},                             // pixels before the first row lie in row 0
        {{0x8005, 7, 0xC000, 8}, "P7,5 "},                  // nothing behind the end
        {{0x4003, 0x8005, 7, 0xC000}, "P7,5 "},             // a lone run word is dropped
        {{0x8005, 0x4003, 0x4004}, ""},                     // a run needs something behind it
        {{0x8005, 0x4001, 0x4280, 0xC000}, "R5 "},          // a run of sensor width is a row wherever it starts
        {{0x8005, 0x400A, 0x4004, 0xC000}, "L10,5,65531 "}, // a backward run has a 16-bit length
    };
    for (const auto& [words, expected] : cases)
    {
        EXPECT_EQ(text(DpcFileOstrel::parseSensorDefectsFromDataBlock(fromWords(words), 640)), expected);
    }
    EXPECT_EQ(text(DpcFileOstrel::parseSensorDefectsFromDataBlock({5, 0x80, 7, 0, 9}, 640)), "P7,5 ") << "half a word";
}

TEST(DpcFileOstrel, RefusesWhatIsNoWholeFileAndNoSensor)
{
    const std::string noTag = "The given tag could not be found. The file might be incompatible";
    const Bytes valid = bytesFrom(OneSet);
    const auto patched = [&](std::size_t position, const std::string& hex)
    {
        Bytes bytes = valid;
        const Bytes patch = bytesFrom(hex);
        std::copy(patch.begin(), patch.end(), bytes.begin() + static_cast<std::ptrdiff_t>(position));
        return bytes;
    };
    const std::pair<Bytes, std::string> cases[] = {
        {{}, noTag},
        {Bytes(300, 0xFF), noTag},
        {Bytes(valid.begin(), valid.begin() + 136), noTag},      // a tag without a length is none
        {bytesFrom("44534554 00000000"), "outside of the data"}, // the first tag alone
        {patched(72, "00"), noTag},                              // no DSET
        {patched(132, "00"), noTag},                             // no PDA1
        {patched(80, "F0FFFFFF"), "reaches to byte"},            // the offset wraps around in 32 bits
        {patched(84, "31000000"), "reaches to byte"},            // one byte too many
        {patched(84, "1F000000"), "its index table alone takes 32"},
    };
    for (const auto& [bytes, text] : cases)
    {
        EXPECT_THAT(FailureOf([&bytes = bytes] { read(bytes); }), testing::HasSubstr(text));
    }
    for (std::size_t size = 0; size < valid.size(); ++size)
    {
        EXPECT_THROW(read({valid.data(), valid.data() + size}), KTR::System::Exception) << "cut to " << size;
    }
    EXPECT_EQ(read(patched(84, "20000000")), "") << "an index table alone is an empty data set";

    using Capability = ReverseCapability;
    EXPECT_EQ(FailureOf([] { DpcFileOstrel(Capability::Y, 0, 0); }), "Allowed capabilities are: Non, X, XY!");
    EXPECT_EQ(FailureOf([] { DpcFileOstrel(Capability::XY, 0x10000, 0); }), "Width must be set!");
    EXPECT_EQ(FailureOf([] { DpcFileOstrel(Capability::X, 640, 0x10000); }), "Height must be set!");
}

TEST(DpcFileOstrel, IndexesBandsByPairsOfWords)
{
    struct FileWithInfoBlock final : DpcFileOstrel
    {
        FileWithInfoBlock(std::uint16_t element, std::uint32_t h)
            : DpcFileOstrel(32, element, ReverseCapability::Non, 640, h)
        {
        }
    };
    // Rows 0, 40, 41 and 479; the last word has no pair.
    const Words words = {0x8000, 1, 2, 0x8028, 0x8029, 3, 0x81DF, 4, 0x8000};
    const std::tuple<std::uint16_t, std::uint32_t, Bytes> cases[] = {
        {2, 480, fromWords({0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 3})}, // bands of 30 rows
        {2, 8, Bytes(32, 0)},                                                  // all rows are in band 0
        {3, 320, fromWords({0, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0})},
        {4, 480, {}},
    };
    for (const auto& [elementSize, height, index] : cases)
    {
        const auto helper = boost::make_shared<DataHelper>(false);
        FileWithInfoBlock(elementSize, height).pushBackInfoBlock(words, helper);
        EXPECT_EQ(helper->getData(), index) << elementSize;
    }
}

} // namespace
