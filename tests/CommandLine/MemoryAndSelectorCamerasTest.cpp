// The batch tool on the cameras that keep their sets behind a selector or in memory, and on their bytes.
#include "Tool.h"

#include <QFile>
#include <QRegularExpression>

namespace
{

class MemoryAndSelectorCameras : public ToolTest
{
protected:
    MemoryAndSelectorCameras()
    {
        Write("rig.json", R"({"cameras": [
            {"id": "SELECTOR", "model": "Rivo U-1", "serial": "1", "firmware": "rivo-u", "width": 320, "height": 240,
             "reverseX": true, "reverseY": true, "blockSize": 128, "seed": 3},
            {"id": "COLOUR", "model": "Rivo U-2", "serial": "2", "firmware": "rivo-u", "width": 352, "height": 288,
             "filter": "BayerGB", "seed": 4},
            {"id": "BOOLEAN", "model": "Rivo G-011", "serial": "3", "firmware": "rectangle-mask", "width": 320,
             "height": 240, "seed": 5, "fileSizeMax": 2400},
            {"id": "MODE", "model": "Rivo G-011", "serial": "4", "firmware": "rectangle-mask-mode", "width": 320,
             "height": 240, "seed": 6},
            {"id": "COLUMNS", "model": "Dreli G-1310", "serial": "5", "firmware": "column-mask", "width": 320,
             "height": 240, "seed": 7}]})");
    }
    void Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray Content(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
};

TEST_F(MemoryAndSelectorCameras, TheDocumentedExamplesHold)
{
    const QStringList size = {"--width", "640", "--height", "480"};
    const std::tuple<QString, QString, QStringList, QString> examples[] = {
        {"Rivo U", "rivo-u", {"--reverse", "x"}, ""},
        {"Established GigE", "established-gige", {}, "The defect table has no end."},
        {"Column masking", "load-defects", {}, ""}};
    for (const auto& [title, family, options, cutIs] : examples)
    {
        const QString section =
            QString(Content(DOCUMENTS "/formats.md")).section("\n## " + title, 1).section("\n## ", 0, 0);
        const auto part = [&](const QString& fence)
        { return section.section("```" + fence + "\n", 1).section("```", 0, 0); };
        const QByteArray bytes = QByteArray::fromHex(part("hex").toUtf8());
        ASSERT_FALSE(part("list").isEmpty() || bytes.isEmpty()) << title.toStdString();
        const QString xml = PixelList("list.xml", part("list").split('\n', Qt::SkipEmptyParts));
        EXPECT_EQ(Cli(QStringList{"encode", family, xml, "-o", Path("set.bin")} + size + options).status, 0);
        EXPECT_EQ(Content(Path("set.bin")).toHex(), bytes.toHex()) << title.toStdString();
        EXPECT_EQ(Cli(QStringList{"decode", family, Path("set.bin")} + size).out, part("list"));
        Write("cut.bin", bytes.left(bytes.size() / 4));
        const Outcome cut = Cli(QStringList{"decode", family, Path("cut.bin")} + size);
        EXPECT_EQ(cut.status, cutIs.isEmpty() ? 0 : 1);
        EXPECT_TRUE(cut.out.isEmpty() && cut.err.contains(cutIs)) << cut.err.toStdString();
    }
    const QStringList encode = {"encode", "load-defects", PixelList("list.xml", {"4 3 0 1 480", "0 4 7 1 1"}), "-o",
                                Path("no")};
    EXPECT_TRUE(Cli(encode + size).err.contains("Cannot Write CorrectionSet: NOT VALID!"));
}

TEST_F(MemoryAndSelectorCameras, SetsAreReadWrittenAndSwitched)
{
    const QString list = PixelList("list.xml", {"5 0 3 320 1", "0 10 20 1 1", "1 200 9 1 4", "4 7 0 1 240"});
    const struct
    {
        const char *camera, *set;
        QStringList stored;
        const char *feature, *off, *restoring, *erasing;
    } cases[] = {
        {"SELECTOR", "User", {"5 0 3 320 1", "0 10 20 1 1"}, "CorrectionMode", "Off", "not supported by Rivo-U", ""},
        {"BOOLEAN", "DefectMaskingTable", {"0 10 20 1 1"}, "DefectMaskEnable", "false", "is not supported!", ""},
        {"MODE", "DefectMaskingTable", {"0 10 20 1 1"}, "DefectMaskEnable", "Disabled", "is not supported!", ""},
        {"COLUMNS",
         "ColumnMaskingTable",
         {"0 10 20 1 1", "1 200 9 1 4", "4 7 0 1 240"},
         "DefectMaskColumnEnable",
         "false",
         "is not supported!",
         "Erase is not supported!"}};
    for (const auto& [camera, set, stored, feature, off, restoring, erasing] : cases)
    {
        const auto call = [&, &c = camera, &s = set](const char* name) { return Cli({name, c, s}); };
        EXPECT_EQ(Cli({"write", camera, set, list}).status, 0);
        EXPECT_EQ(call("read").Lines(), stored);
        EXPECT_EQ(call("default").status + call("enable").status, 0);
        EXPECT_EQ(Cli({"sets", camera}).Lines().last(), QString(set) + "\tyes\tyes\tno\tyes\tyes\t-");
        EXPECT_EQ(call("disable").status, 0);
        EXPECT_EQ(Cli({"features", camera, feature}).out.section('\t', 1, 1), off);
        EXPECT_TRUE(call("restore").err.contains(restoring));
        EXPECT_TRUE(call("erase").err.contains(erasing));
        EXPECT_EQ(call("read").out.isEmpty(), QString(erasing).isEmpty());
    }
    EXPECT_TRUE(Cli({"write", "SELECTOR", "Factory", list}).err.contains("Factory set can't be overwritten!"));
    EXPECT_TRUE(Cli({"erase", "SELECTOR", "Factory"}).err.contains("FileProtected"));
    QStringList many; // one pixel more than 600 units of 4 bytes
    for (int i = 0; i < 601; ++i)
    {
        many << QStringLiteral("0 %1 %2 1 1").arg(i % 320).arg(i / 320);
    }
    EXPECT_EQ(Cli({"write", "BOOLEAN", "DefectMaskingTable", PixelList("most.xml", many.mid(1))}).status, 0);
    EXPECT_TRUE(Cli({"write", "BOOLEAN", "DefectMaskingTable", PixelList("many.xml", many)})
                    .err.contains("Not enough memory in the camera"));
}

TEST_F(MemoryAndSelectorCameras, CommissioningHidesEveryDefectAtOnce)
{
    for (const auto& [camera, set] : {std::pair{"SELECTOR", "User"},
                                      {"COLOUR", "User"},
                                      {"BOOLEAN", "DefectMaskingTable"},
                                      {"MODE", "DefectMaskingTable"}})
    {
        ASSERT_EQ(Control({"cover", camera, "on"}).status, 0);
        const Outcome outcome = Cli({"commission", camera, set, "--exposure", "10000", "--limit", "2000"});
        ASSERT_EQ(outcome.status, 0) << outcome.err.toStdString();
        const auto figures =
            QRegularExpression("^found (\\d+), written \\1, hidden \\1, visible 0$").match(outcome.Lines().last());
        EXPECT_GT(figures.captured(1).toInt(), 10) << outcome.out.toStdString();
        EXPECT_FALSE(outcome.err.contains("Restarting")) << "what was written is in force";
    }
}

} // namespace
