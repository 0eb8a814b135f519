// The commands that need no camera: encode, decode, detect, crop, and wrong usage.
#include "Tool.h"

#include <QFile>
#include <QImage>

#include <nlohmann/json.hpp>

namespace
{

QByteArray Bytes(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

using FileCommands = ToolTest;

TEST_F(FileCommands, EncodesOneDataSetForEachMirroringOfTheCamera)
{
    const QString empty = PixelList("empty.xml", {});
    struct Case
    {
        const char* reverse;
        int size;
        int dataSets;
    };
    for (const Case& row : {Case{"non", 174, 1}, Case{"x", 52 + 3 * (80 + 34) + 8, 3}, Case{"xy", 52 + 4 * 114 + 8, 4}})
    {
        const Outcome outcome = Cli({"encode", "ostrel", empty, "--width", "640", "--height", "480", "--reverse",
                                     row.reverse, "-o", Path("set.bin")});
        EXPECT_EQ(outcome.status, 0) << outcome.err.toStdString();
        EXPECT_EQ(Bytes(Path("set.bin")).size(), row.size) << row.reverse;
        EXPECT_EQ(Bytes(Path("set.bin")).count("IF01"), row.dataSets) << row.reverse;
    }
    const Outcome refused =
        Cli({"encode", "ostrel", empty, "--width", "640", "--height", "480", "--reverse", "y", "-o", Path("y.bin")});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains("Allowed capabilities are: Non, X, XY!"));
    EXPECT_FALSE(QFile::exists(Path("y.bin")));
}

TEST_F(FileCommands, DecodesWhatItEncodedAndTellsWhatItLeftOut)
{
    const QString list =
        PixelList("list.xml", {"4 7 0 1 480", "0 10 20 1 1", "5 0 3 640 1", "2 5 9 4 1", "1 8 8 1 3", "3 30 30 2 2"});
    const Outcome encoded = Cli({"encode", "ostrel", list, "--width", "640", "--height", "480", "-o", Path("set.bin")});
    EXPECT_EQ(encoded.status, 0);
    EXPECT_TRUE(encoded.err.contains("1 of type Column")) << encoded.err.toStdString();
    EXPECT_TRUE(encoded.err.contains("1 of type Pixel Column"));
    EXPECT_TRUE(encoded.err.contains("1 of type Cluster"));
    // The words behind the index table, by hand: row 3 whole, row 9 from 5 to 8, row 20 with pixel 10, end.
    EXPECT_EQ(Bytes(Path("set.bin")).right(18).toHex(), "03800040"
                                                        "7f42"
                                                        "09800540"
                                                        "0840"
                                                        "14800a00"
                                                        "00c0");

    const Outcome decoded = Cli({"decode", "ostrel", Path("set.bin"), "--width", "640", "--height", "480"});
    EXPECT_EQ(decoded.out.toStdString(), "5 0 3 640 1\n2 5 9 4 1\n0 10 20 1 1\n");
    const Outcome json = Cli({"--json", "decode", "ostrel", Path("set.bin"), "--width", "640", "--height", "480"});
    EXPECT_EQ(nlohmann::json::parse(json.out.toStdString())["defects"][1]["width"], 4);

    EXPECT_EQ(
        Cli({"decode", "ostrel", Path("set.bin"), "--width", "640", "--height", "480", "-o", Path("back.xml")}).status,
        0);
    EXPECT_EQ(Cli({"encode", "ostrel", Path("back.xml"), "--width", "640", "--height", "480", "-o", Path("again.bin")})
                  .status,
              0);
    EXPECT_EQ(Bytes(Path("again.bin")), Bytes(Path("set.bin")));
}

TEST_F(FileCommands, FindsTheHotPixelsOfRealDarkFrames)
{
    const QString darks = TEST_DATA "/darks/";
    for (const char* shot : {"dark-3916ms-a.pgm", "dark-3916ms-b.pgm"})
    {
        const QStringList found = Cli({"detect", darks + shot, "--threshold", "12"}).Lines();
        EXPECT_EQ(found.size(), 18) << shot;
        for (const char* pixel : {"0 33 315 1 1", "0 33 317 1 1", "0 33 319 1 1", "0 0 86 1 1"})
        {
            EXPECT_TRUE(found.contains(pixel)) << shot << ": " << pixel;
        }
    }
    const Outcome nothing = Cli({"detect", darks + "dark-25ms.pgm", "--threshold", "12"});
    EXPECT_EQ(nothing.status, 0);
    EXPECT_EQ(nothing.out.toStdString(), "");
}

TEST_F(FileCommands, DetectsWithTheOptionsGiven)
{
    QImage image(16, 8, QImage::Format_Grayscale8);
    image.fill(0);
    for (int x = 4; x < 8; ++x)
    {
        image.scanLine(3)[x] = 90;
    }
    image.scanLine(6)[12] = 50;
    ASSERT_TRUE(image.save(Path("dark.png")));
    struct Case
    {
        QStringList options;
        const char* expected;
    };
    const Case cases[] = {
        {{}, "0 4 3 1 1\n0 5 3 1 1\n0 6 3 1 1\n0 7 3 1 1\n0 12 6 1 1\n"},
        {{"--types", "0,2"}, "2 4 3 4 1\n0 12 6 1 1\n"},
        {{"--types", "0,2", "--width", "4"}, "5 4 3 4 1\n0 12 6 1 1\n"},
        {{"--types", "0,2", "--threshold", "51"}, "2 4 3 4 1\n"},
    };
    for (const Case& row : cases)
    {
        EXPECT_EQ(Cli(QStringList{"detect", Path("dark.png")} + row.options).out.toStdString(), row.expected)
            << row.options.join(' ').toStdString();
    }
    EXPECT_EQ(Cli({"detect", Path("dark.png"), "-o", Path("found.xml")}).out.toStdString(), "");
    EXPECT_EQ(Bytes(Path("found.xml")).count("<Pixel"), 5);
}

TEST_F(FileCommands, CropsAndEnlargesPixelByPixel)
{
    QImage image(4, 4, QImage::Format_Grayscale8);
    image.fill(0);
    image.scanLine(2)[1] = 200;
    ASSERT_TRUE(image.save(Path("image.png")));
    ASSERT_EQ(Cli({"crop", Path("image.png"), "--region", "1,2,2,2", "--zoom", "3", "-o", Path("piece.png")}).status,
              0);
    const QImage piece(Path("piece.png"));
    ASSERT_EQ(piece.size(), QSize(6, 6));
    EXPECT_EQ(qGray(piece.pixel(2, 2)), 200);
    EXPECT_EQ(qGray(piece.pixel(3, 3)), 0);
    EXPECT_EQ(Cli({"crop", Path("image.png"), "--region", "9,9,2,2", "-o", Path("none.png")}).status, 1);
}

TEST_F(FileCommands, RefusesWhatItCannotDo)
{
    const QString list = PixelList("list.xml", {"0 700 1 1 1"});
    QFile broken(Path("broken.xml"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("<Camera><Pixel>");
    broken.close();
    QFile cut(Path("cut.bin"));
    ASSERT_TRUE(cut.open(QIODevice::WriteOnly));
    cut.write("PTY1");
    cut.close();
    const QStringList size = {"--width", "640", "--height", "480"};
    const QStringList output = {"-o", Path("out")};
    struct Case
    {
        QStringList arguments;
        int status;
        const char* text;
    };
    const Case cases[] = {
        {{"encode", "ostrel", list}, 1, "File is corrupted"}, // x beyond the sensor
        {{"encode", "ostrel", Path("broken.xml")}, 1, "File is corrupted"},
        {{"encode", "ostrel", Path("none.xml")}, 1, "could not be read"},
        {{"encode", "other", list}, 2, "FAMILY"},
        {{"decode", "ostrel", Path("cut.bin")}, 1, "The given tag could not be found. The file might be incompatible"},
        {{"decode", "flash", Path("cut.bin")}, 1, "has 4 bytes, less than its header"},
    };
    for (const Case& row : cases)
    {
        const bool encodes = row.arguments.first() == "encode";
        const Outcome outcome = Cli(row.arguments + size + (encodes ? output : QStringList{}));
        EXPECT_EQ(outcome.status, row.status) << row.arguments.join(' ').toStdString() << outcome.err.toStdString();
        EXPECT_TRUE((outcome.err + outcome.out).contains(row.text)) << outcome.err.toStdString();
        EXPECT_FALSE(QFile::exists(Path("out")));
    }
    const Case others[] = {
        {{"detect", Path("cut.bin")}, 1, ""},
        {{"detect", TEST_DATA "/darks/dark-25ms.pgm", "--threshold", "256"}, 2, ""},
        {{"detect", TEST_DATA "/darks/dark-25ms.pgm", "--types", "6"}, 2, ""},
        {{"decode", "ostrel", Path("cut.bin"), "--width", "640"}, 2, "--height"},
        {{"fly"}, 2, ""},
        {{}, 2, ""},
    };
    for (const Case& row : others)
    {
        const Outcome outcome = Cli(row.arguments);
        EXPECT_EQ(outcome.status, row.status) << row.arguments.join(' ').toStdString();
        EXPECT_FALSE(outcome.err.isEmpty());
        EXPECT_TRUE(outcome.err.contains(row.text));
    }
    EXPECT_EQ(Cli({"--help"}).status, 0);
}

} // namespace
