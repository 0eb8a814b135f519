// The commands that need no camera: encode, decode, detect, crop, and wrong usage.
#include "Tool.h"

#include <QFile>
#include <QImage>

#include <nlohmann/json.hpp>

#include <tuple>

namespace
{

using FileCommands = ToolTest;

const QStringList Size = {"--width", "640", "--height", "480"};

TEST_F(FileCommands, EncodesOneDataSetForEachMirroringOfTheCamera)
{
    const QStringList encode = QStringList{"encode", "ostrel", PixelList("empty.xml", {}), "-o", Path("out")} + Size;
    ExpectRefusals({{encode + QStringList{"--reverse", "y"}, "Allowed capabilities are: Non, X, XY!"}});
    EXPECT_FALSE(QFile::exists(Path("out")));
    for (const auto& [reverse, dataSets] : {std::pair("non", 1), {"x", 3}, {"xy", 4}})
    {
        EXPECT_EQ(Cli(encode + QStringList{"--reverse", reverse}).status, 0);
        EXPECT_EQ(Bytes(Path("out")).size(), 52 + dataSets * (80 + 34) + 8) << reverse;
    }
}

TEST_F(FileCommands, DecodesWhatItEncodedAndTellsWhatItLeftOut)
{
    const QString list =
        PixelList("list.xml", {"4 7 0 1 480", "0 10 20 1 1", "5 0 3 640 1", "2 5 9 4 1", "1 8 8 1 3", "3 30 30 2 2"});
    const auto run = [this](const char* command, const QString& input, const QStringList& more) {
        return Cli(QStringList{command, "ostrel", input} + Size + more);
    };
    const QString file = Path("set.bin"), back = Path("back.xml"), again = Path("again.bin");
    const Outcome encoded = run("encode", list, {"-o", file});
    EXPECT_EQ(encoded.status, 0);
    EXPECT_TRUE(encoded.err.contains("1 of type Column")) << encoded.err.toStdString();
    EXPECT_TRUE(encoded.err.contains("1 of type Pixel Column"));
    EXPECT_TRUE(encoded.err.contains("1 of type Cluster"));
    EXPECT_EQ(run("decode", file, {}).out.toStdString(), "5 0 3 640 1\n2 5 9 4 1\n0 10 20 1 1\n");
    const auto json = nlohmann::json::parse(run("decode", file, {"--json"}).out.toStdString());
    EXPECT_EQ(json["defects"][1]["width"], 4);
    EXPECT_EQ(run("decode", file, {"-o", back}).status + run("encode", back, {"-o", again}).status, 0);
    EXPECT_EQ(Bytes(again), Bytes(file));
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
    const std::pair<QStringList, const char*> cases[] = {
        {{}, "0 4 3 1 1\n0 5 3 1 1\n0 6 3 1 1\n0 7 3 1 1\n0 12 6 1 1\n"},
        {{"--types", "0,2"}, "2 4 3 4 1\n0 12 6 1 1\n"},
        {{"--types", "0,2", "--width", "4"}, "5 4 3 4 1\n0 12 6 1 1\n"},
        {{"--types", "0,2", "--threshold", "51"}, "2 4 3 4 1\n"},
    };
    for (const auto& [options, expected] : cases)
    {
        EXPECT_EQ(Cli(QStringList{"detect", Path("dark.png")} + options).out.toStdString(), expected);
    }
    EXPECT_EQ(Cli({"detect", Path("dark.png"), "-o", Path("found.xml")}).out.toStdString(), "");
    EXPECT_EQ(Bytes(Path("found.xml")).count("<Pixel"), 5);
    const std::tuple<const char*, const char*, int> recorded[] = {
        {"25ms", "8", 0}, {"500ms", "8", 4}, {"2000ms", "40", 4}, {"3916ms-a", "16", 18}, {"3916ms-b", "40", 7}};
    for (const auto& [shot, threshold, count] : recorded)
    {
        const QString frame = QStringLiteral(TEST_DATA "/darks/dark-%1.pgm").arg(shot);
        const QStringList found = Cli({"detect", frame, "--threshold", threshold}).Lines();
        EXPECT_EQ(found.size(), count) << shot;
        EXPECT_EQ(found.contains("0 109 200 1 1"), count > 0) << shot;
    }
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
}

TEST_F(FileCommands, RefusesWhatItCannotDo)
{
    const auto encode = [this](const char* family, const QString& list) {
        return QStringList{"encode", family, list, "-o", Path("out")} + Size;
    };
    const QString wide = PixelList("list.xml", {"0 700 1 1 1"}); // x beyond the sensor
    const QString cut = Write("cut.bin", "PTY1");
    const QString dark = TEST_DATA "/darks/dark-25ms.pgm";
    ExpectRefusals({
        {encode("ostrel", wide), "File is corrupted"},
        {encode("ostrel", Write("broken.xml", "<Camera><Pixel>")), "File is corrupted"},
        {encode("ostrel", Path("none.xml")), "could not be read"},
        {encode("other", wide), "FAMILY", 2},
        {QStringList{"decode", "flash", cut} + Size, "has 4 bytes, less than its header"},
        {{"decode", "ostrel", cut, "--width", "640"}, "--height", 2},
        {{"detect", cut}, ""},
        {{"detect", dark, "--threshold", "256"}, "", 2},
        {{"detect", dark, "--types", "6"}, "", 2},
        {{"crop", dark, "--region", "900,9,2,2", "-o", Path("out")}, ""},
        {{"fly"}, "", 2},
        {{}, "", 2},
    });
    EXPECT_FALSE(QFile::exists(Path("out")));
    EXPECT_EQ(Cli({"--help"}).status, 0);
}

} // namespace
