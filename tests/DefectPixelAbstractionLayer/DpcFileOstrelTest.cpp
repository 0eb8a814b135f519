// The defect pixel file of the Ostrel family, against bytes written out by hand.
#include "DpcFileOstrel.h"
#include "Exception.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <gmock/gmock.h>

#include <boost/algorithm/hex.hpp>
#include <boost/make_shared.hpp>

#include <functional>
#include <random>

using namespace KTR::DPC;
using testing::HasSubstr;

namespace
{

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;
using Fill = std::function<void(DpcFileOstrel&)>;

Bytes fromHex(std::string hex)
{
    hex.erase(std::remove(hex.begin(), hex.end(), ' '), hex.end());
    Bytes bytes;
    boost::algorithm::unhex(hex, std::back_inserter(bytes));
    return bytes;
}

Bytes fromWords(const Words& words)
{
    DataHelper bytes(false);
    std::for_each(words.begin(), words.end(), [&](auto word) { bytes.pushBack16(word); });
    return bytes.getData();
}

// A sensor of 640 x 480: blocks PTY1, FCO1, DCT1, DFMT.
const std::string Head = "50545931 04000000 44504330 46434F31 08000000 0000000000000002 "
                         "44435431 04000000 02000000 44464D54 04000000 10000000 ";

std::string info(const std::string& number, const std::string& offsetAndSize, const std::string& reverse)
{
    return "49463031 48000000 494E4458 04000000 " + number + "000000 44534554 1C000000 " + offsetAndSize + reverse +
           " E0010000 80020000 00000000 00000000 544D5031 04000000 0000A041 45585031 04000000 00007A44 ";
}

const std::string NoIndex = std::string(64, '0'); // all rows found from the start
// A row, a pixel and a run: 24 words. Segments have 30 rows; the second row opens segment 3 at word 3.
const std::string OneSet = Head + info("00", "00000000 30000000", "00000000") + "50444131 30000000 0000 0000 0000 " +
                           "0300 0300 0300 0300 0300 0300 0300 0300 0300 0300 0300 0300 0300 " +
                           "0380 0040 7F42 6480 0700 0A40 1440 00C0";
const Fill OneSetDefects = [](DpcFileOstrel& file)
{
    file.addPixelRowDefect(10, 20, 100);
    file.addRowDefect(3);
    file.addSinglePixelDefect(7, 100);
};

SensorDefectList read(const Bytes& bytes)
{
    return DpcFileOstrel::getSensorDefectsListFromRawData(bytes, 640);
}

void expectSame(const SensorDefectList& actual, const SensorDefectList& expected, const std::string& what)
{
    ASSERT_EQ(actual.size(), expected.size()) << what;
    for (std::size_t i = 0; i < actual.size(); ++i)
    {
        EXPECT_TRUE(*actual[i] == *expected[i]) << what << ", defect " << i;
    }
}

template <typename Operation> std::string failure(Operation operation)
{
    try
    {
        operation();
        return "nothing failed";
    }
    catch (const KTR::System::Exception& exception)
    {
        return exception.ToString();
    }
}

boost::shared_ptr<SensorDefect> pixel(std::uint32_t x, std::uint32_t y)
{
    return boost::make_shared<PixelDefect>(x, y);
}

boost::shared_ptr<SensorDefect> run(std::uint32_t x, std::uint32_t y, std::uint32_t width)
{
    return boost::make_shared<PixelRowDefect>(x, y, width);
}

boost::shared_ptr<SensorDefect> row(std::uint32_t y)
{
    return boost::make_shared<RowDefect>(y);
}

TEST(DpcFileOstrel, WritesAndReadsTheBytesOfTheFormat)
{
    const Fill onePixel = [](DpcFileOstrel& file) { file.addSinglePixelDefect(7, 100); };
    const std::string plain = NoIndex + "6480 0700 00C0 ";
    const std::string mirrored = NoIndex + "7B81 0700 00C0 "; // row 379
    const struct
    {
        ReverseCapability capability;
        Fill fill;
        std::string hex;
        SensorDefectList defects;
    } cases[] = {
        {ReverseCapability::Non,
         [](auto&) {},
         Head + info("00", "00000000 22000000", "00000000") + "50444131 22000000" + NoIndex + "00C0",
         {}},
        {ReverseCapability::Non, OneSetDefects, OneSet, {row(3), pixel(7, 100), run(10, 100, 11)}},
        {ReverseCapability::X,
         onePixel,
         Head + info("00", "00000000 26000000", "00000000") + info("01", "26000000 26000000", "00000040") +
             info("02", "4C000000 26000000", "000000C0") + "50444131 72000000" + plain + plain + mirrored,
         {pixel(7, 100)}},
        {ReverseCapability::XY,
         onePixel,
         Head + info("00", "00000000 26000000", "00000000") + info("01", "26000000 26000000", "00000040") +
             info("02", "4C000000 26000000", "00000080") + info("03", "72000000 26000000", "000000C0") +
             "50444131 98000000" + plain + plain + mirrored + mirrored,
         {pixel(7, 100)}},
    };
    for (const auto& [capability, fill, hex, defects] : cases)
    {
        DpcFileOstrel file(capability, 0x10000 + 640, 480); // the size is cut to 16 bits
        fill(file);
        EXPECT_EQ(file.getRawData(), fromHex(hex));
        EXPECT_EQ(file.getRawData(), fromHex(hex)) << "building the file again changes it";
        EXPECT_EQ(file.getSizeInBytes(), fromHex(hex).size());
        expectSame(read(fromHex(hex)), defects, hex);
    }
}

TEST(DpcFileOstrel, OrdersRowsAndIndexesSegments)
{
    const auto pixels = [](const std::vector<std::pair<std::uint16_t, std::uint16_t>>& places) -> Fill
    {
        return [=](DpcFileOstrel& file) {
            std::for_each(places.begin(), places.end(),
                          [&](auto at) { file.addSinglePixelDefect(at.first, at.second); });
        };
    };
    const auto table = [](std::uint16_t a, unsigned from, std::uint16_t b) // a, and b from a segment on
    {
        Words words(16, a);
        std::fill(words.begin() + from, words.end(), b);
        return words;
    };
    const auto equalX = [](DpcFileOstrel& file)
    {
        file.addSinglePixelDefect(5, 1);
        EXPECT_EQ(file.calculateDataSet(ReverseCapability::Non).size(), 19U); // adding goes on afterwards
        file.addPixelRowDefect(5, 9, 1);
        file.addSinglePixelDefect(5, 1);
        file.addSinglePixelDefect(3, 1);
    };
    const struct
    {
        std::uint32_t height;
        Fill fill;
        ReverseCapability reverse;
        Words table, body;
    } cases[] = {
        {1600, pixels({{1, 250}, {1, 50}}), ReverseCapability::X, table(0, 2, 2), {0x8032, 1, 0x80FA, 1, 0xC000}},
        // A first row outside of segment 0 starts at word 0, which reads as not yet set.
        {1600, pixels({{1, 250}, {1, 260}}), ReverseCapability::Non, table(0, 2, 2), {0x80FA, 1, 0x8104, 1, 0xC000}},
        // The positions stay those of the unmirrored rows.
        {1600,
         pixels({{1, 50}, {2, 250}, {3, 250}}),
         ReverseCapability::Y,
         table(0, 2, 2),
         {0x8545, 2, 3, 0x860D, 1, 0xC000}},
        {1003, pixels({{1, 0}, {1, 1002}}), ReverseCapability::Non, table(0, 15, 2), {0x8000, 1, 0x83EA, 1, 0xC000}},
        {15, pixels({{1, 0}, {1, 14}}), ReverseCapability::Non, table(0, 15, 0), {0x8000, 1, 0x800E, 1, 0xC000}},
        {480, pixels({{16390, 16384}}), ReverseCapability::Non, table(0, 15, 0), {0x8000, 6, 0xC000}},
        {480, equalX, ReverseCapability::Non, table(0, 15, 0), {0x8001, 3, 5, 0x4005, 0x4009, 5, 0xC000}},
    };
    for (const auto& [height, fill, reverse, index, body] : cases)
    {
        DpcFileOstrel file(ReverseCapability::XY, 640, height);
        fill(file);
        Words expected = index;
        expected.insert(expected.end(), body.begin(), body.end());
        EXPECT_EQ(file.calculateDataSet(reverse), expected);
    }
}

TEST(DpcFileOstrel, DecodesWhateverWordsThereAre)
{
    const struct
    {
        const char* what;
        Words words;
        SensorDefectList defects;
    } cases[] = {
        {"pixels before the first row lie in row 0", {7, 0xC000}, {pixel(7, 0)}},
        {"nothing behind the end", {0x8005, 7, 0xC000, 8}, {pixel(7, 5)}},
        {"a lone run word is dropped", {0x4003, 0x8005, 7, 0xC000}, {pixel(7, 5)}},
        {"a run needs something behind it", {0x8005, 0x4003, 0x4004}, {}},
        {"a run of sensor width is a row wherever it starts", {0x8005, 0x4001, 0x4280, 0xC000}, {row(5)}},
        {"a backward run has a 16-bit length", {0x8005, 0x400A, 0x4004, 0xC000}, {run(10, 5, 0xFFFB)}},
        {"no words", {}, {}},
    };
    for (const auto& [what, words, defects] : cases)
    {
        expectSame(DpcFileOstrel::parseSensorDefectsFromDataBlock(fromWords(words), 640), defects, what);
    }
    expectSame(DpcFileOstrel::parseSensorDefectsFromDataBlock({5, 0x80, 7, 0, 9}, 640), {pixel(7, 5)}, "half a word");
}

TEST(DpcFileOstrel, RefusesWhatIsNoWholeFile)
{
    const std::string noTag = "The given tag could not be found. The file might be incompatible";
    const Bytes valid = fromHex(OneSet);
    const auto patched = [&](std::size_t position, const std::string& hex)
    {
        Bytes bytes = valid;
        const Bytes patch = fromHex(hex);
        std::copy(patch.begin(), patch.end(), bytes.begin() + static_cast<std::ptrdiff_t>(position));
        return bytes;
    };
    const struct
    {
        Bytes bytes;
        std::string text;
    } cases[] = {
        {{}, noTag},
        {Bytes(3, 0x44), noTag},
        {Bytes(300, 0xFF), noTag},
        {fromHex("44534554 00000000"), "outside of the data"}, // the first tag alone
        {patched(72, "00"), noTag},                            // no DSET
        {patched(132, "00"), noTag},                           // no PDA1
        {patched(80, "F0FFFFFF"), "reaches to byte"},          // the offset wraps around in 32 bits
        {patched(84, "31000000"), "reaches to byte"},          // one byte too many
        {patched(84, "FFFFFFFF"), "reaches to byte"},
        {patched(84, "1F000000"), "its index table alone takes 32"},
    };
    for (const auto& [bytes, text] : cases)
    {
        EXPECT_THAT(failure([&bytes = bytes] { read(bytes); }), HasSubstr(text));
    }
    for (std::size_t size = 0; size < valid.size(); ++size)
    {
        EXPECT_THROW(read({valid.data(), valid.data() + size}), KTR::System::Exception) << "cut to " << size;
    }
    EXPECT_EQ(read(patched(84, "20000000")).size(), 0U) << "an index table alone is an empty data set";
}

TEST(DpcFileOstrel, RefusesImpossibleSensors)
{
    const auto refusal = [](ReverseCapability capability, std::uint32_t width, std::uint32_t height)
    { return failure([&] { DpcFileOstrel(capability, width, height); }); };
    EXPECT_EQ(refusal(ReverseCapability::Y, 0, 0), "Allowed capabilities are: Non, X, XY!");
    EXPECT_EQ(refusal(ReverseCapability::XY, 0x10000, 0), "Width must be set!");
    EXPECT_EQ(refusal(ReverseCapability::X, 640, 0x10000), "Height must be set!");
}

TEST(DpcFileOstrel, ReadsBackRandomLists)
{
    std::mt19937 random(1);
    const auto below = [&](unsigned limit) { return static_cast<std::uint16_t>(random() % limit); };
    for (const auto capability : {ReverseCapability::Non, ReverseCapability::X, ReverseCapability::XY})
    {
        DpcFileOstrel file(capability, 640, 480);
        std::map<std::pair<std::uint16_t, std::uint16_t>, SensorDefectList> defects; // by y, then x
        for (unsigned i = below(3000); i > 0; --i)
        {
            const auto [x, y, width] = std::tuple(below(640), below(480), below(639) + 1U);
            if (i % 3 == 0)
            {
                file.addRowDefect(y);
                defects[{y, 0}].push_back(row(y));
            }
            else if (i % 3 == 1)
            {
                file.addPixelRowDefect(x, static_cast<std::uint16_t>(x + width - 1), y);
                defects[{y, x}].push_back(run(x, y, width));
            }
            else
            {
                file.addSinglePixelDefect(x, y);
                defects[{y, x}].push_back(pixel(x, y));
            }
        }
        SensorDefectList expected;
        for (const auto& [place, list] : defects)
        {
            expected.insert(expected.end(), list.begin(), list.end());
        }
        expectSame(read(file.getRawData()), expected, "random list");
    }
}

struct FileWithInfoBlock final : DpcFileOstrel
{
    FileWithInfoBlock(std::uint16_t elementSize, std::uint32_t height)
        : DpcFileOstrel(32, elementSize, ReverseCapability::Non, 640, height)
    {
    }
};

TEST(DpcFileOstrel, IndexesBandsByPairsOfWords)
{
    // Rows 0, 40 and 479 of 480; bands have 30 rows in 16 entries. The last row opens in an odd word, without a pair.
    const Words words = {0x8000, 1, 2, 0x8028, 0x8029, 3, 0x81DF, 4, 0x8000};
    const auto block = [&](std::uint16_t elementSize, std::uint32_t height)
    {
        const auto helper = boost::make_shared<DataHelper>(false);
        FileWithInfoBlock(elementSize, height).pushBackInfoBlock(words, helper);
        return helper->getData();
    };
    Words index(16, 1);
    index.front() = 0;
    index.back() = 3;
    EXPECT_EQ(block(2, 480), fromWords(index));
    index.back() = 1;
    EXPECT_EQ(block(2, 8), fromWords(Words(16, 0))) << "all rows are in band 0";
    EXPECT_EQ(block(3, 320).size(), 10 * 4U) << "code 3 stands for 32 bits";
    EXPECT_EQ(block(1, 480).size(), 32U);
    EXPECT_TRUE(block(4, 480).empty());
}

} // namespace
