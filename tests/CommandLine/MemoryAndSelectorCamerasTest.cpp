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
        const auto camera = [](const char* id, const char* model, const char* firmware, const char* more)
        {
            return QStringLiteral(R"({"id": "%1", "model": "%2", "serial": "1", "firmware": "%3", "width": 320,
                                      "height": 240, %4 "seed": 3})")
                .arg(id, model, firmware, more);
        };
        const QStringList cameras = {
            camera("SELECTOR", "Rivo U-1", "rivo-u", R"("reverseX": true, "reverseY": true, "blockSize": 128,)"),
            camera("COLOUR", "Rivo U-2", "rivo-u", R"("filter": "BayerGB",)"),
            camera("BOOLEAN", "Rivo G-011", "rectangle-mask", ""),
            camera("MODE", "Rivo G-011", "rectangle-mask-mode", ""),
            camera("COLUMNS", "Dreli G-1310", "column-mask", "")};
        Write("rig.json", "{\"cameras\": [" + cameras.join(',').toUtf8() + "]}");
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
    const std::tuple<QString, QString, QString> examples[] = {
        {"Ostrel", "ostrel", "The given tag could not be found."},
        {"Rivo U", "rivo-u", ""},
        {"Tamorin Pro", "tamorin-pro", "Invalid file format"},
        {"Flash", "flash", "less than its header"},
        {"Column masking", "load-defects", ""},
        {"Established GigE", "established-gige", "The defect table has no end."}};
    const QString page = Content(DOCUMENTS "/formats.md");
    EXPECT_EQ(page.count("\n## "), static_cast<int>(std::size(examples)));
    for (const auto& [title, family, cutIs] : examples)
    {
        const QString section = page.section("\n## " + title + "\n", 1).section("\n## ", 0, 0);
        const auto part = [&](const QString& fence)
        { return section.section("\n```" + fence + "\n", 1).section("```", 0, 0); };
        EXPECT_TRUE(QRegularExpression("### Access.*### Bytes.*### Reading.*### Example",
                                       QRegularExpression::DotMatchesEverythingOption)
                        .match(section)
                        .hasMatch());
        const QStringList options = part("options").split(QRegularExpression("\\s"), Qt::SkipEmptyParts);
        const auto hex = part("hex").toUtf8().replace("4068 x FF", QByteArray(2 * 4068, 'F'));
        const QByteArray bytes = QByteArray::fromHex(hex);
        ASSERT_FALSE(part("list").isEmpty() || bytes.isEmpty()) << title.toStdString();
        const QString xml = PixelList("list.xml", part("list").split('\n', Qt::SkipEmptyParts));
        EXPECT_EQ(Cli(QStringList{"encode", family, xml, "-o", Path("set.bin")} + size + options).status, 0);
        EXPECT_EQ(Content(Path("set.bin")).toHex(), bytes.toHex()) << title.toStdString();
        EXPECT_EQ(Cli(QStringList{"decode", family, Path("set.bin")} + size).out, part("list"));
        Write("cut.bin", bytes.left(bytes.size() / 4 + 1));
        const Outcome cut = Cli(QStringList{"decode", family, Path("cut.bin")} + size);
        EXPECT_EQ(cut.status, cutIs.isEmpty() ? 0 : 1);
        EXPECT_TRUE(cut.out.isEmpty() && cut.err.contains(cutIs)) << cut.err.toStdString();
    }
    const QStringList encode = {"encode", "load-defects", PixelList("list.xml", {"4 3 0 1 480", "0 4 7 1 1"}), "-o",
                                Path("no")};
    EXPECT_TRUE(Cli(encode + size).err.contains("Cannot Write CorrectionSet: NOT VALID!"));
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
        const QRegularExpression allHidden("^found (\\d+), written \\1, hidden \\1, visible 0$");
        EXPECT_GT(allHidden.match(outcome.Lines().last()).captured(1).toInt(), 10) << outcome.out.toStdString();
        EXPECT_FALSE(outcome.err.contains("Restarting")) << "what was written is in force";
        EXPECT_TRUE(Cli({"sets", camera}).Lines().last().startsWith(QString(set) + "\tyes\tyes\tno\tyes"));
        EXPECT_EQ(Cli({"erase", camera, set}).status + Cli({"disable", camera, set}).status, 0);
        EXPECT_TRUE(Cli({"sets", camera}).Lines().last().startsWith(QString(set) + "\tyes\tyes\tyes\tno"));
    }
    EXPECT_TRUE(Cli({"erase", "SELECTOR", "Factory"}).err.contains("FileProtected"));
    const QStringList stretches = {"0 10 20 1 1", "1 200 9 1 4", "4 7 0 1 240"};
    EXPECT_EQ(Cli({"write", "COLUMNS", "ColumnMaskingTable", PixelList("list.xml", stretches)}).status, 0);
    EXPECT_EQ(Cli({"read", "COLUMNS", "ColumnMaskingTable"}).Lines(), stretches);
}

} // namespace
