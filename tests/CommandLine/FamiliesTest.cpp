// The batch tool on cameras of each family, and on the bytes of each family's file.
#include "Tool.h"

#include <QRegularExpression>

namespace
{

using Families = ToolTest;

const QString FlashSet = "Defect Pixel List"; // of cameras that no name tells
const QStringList Flash = {"--adapter", "flash"};

TEST_F(Families, CommissioningHidesEveryDefect)
{
    const struct
    {
        const char* camera;
        QString set;
        QStringList options;
        const char* after; // the set's line then
        bool takesSetsAtOnce = false;
    } cases[] = {
        {"MONO", "User", {}, "\tno\t-"},
        {"COLOUR", "User", {}, "\tno\t-"},
        {"TAMORIN", "DPC_User_8", {"--gain", "2"}, "\tno\tExposureTime=10000,Gain=2,Temperature=40"},
        {"FLASH", FlashSet, Flash, "\tyes\t-"},
        {"FLASH-C", FlashSet, Flash, "\tyes\t-"},
        {"SELECTOR", "User", {}, "\tno\t-", true},
        {"SELECTOR-C", "User", {}, "\tno\t-", true},
        {"BOOLEAN", "DefectMaskingTable", {}, "\tyes\t-", true},
        {"MODE", "DefectMaskingTable", {}, "\tyes\t-", true},
    };
    for (const auto& [camera, set, options, after, takesSetsAtOnce] : cases)
    {
        SCOPED_TRACE(camera);
        const auto line = [&, &id = camera, &name = set] {
            return Cli(QStringList{"sets", id} + (name == FlashSet ? Flash : QStringList()))
                .Lines()
                .filter(name)
                .last();
        };
        ASSERT_EQ(Control({"cover", camera, "on"}).status, 0);
        ASSERT_EQ(Cli({"set", camera, "ExposureTime", "12000"}).status, 0);
        for (int run = 0; run < (set == "User" ? 2 : 1); ++run) // the second one starts from what the first has left
        {
            const QStringList command = {"commission", camera, set, "--exposure", "10000", "--limit", "2000"};
            const Outcome outcome = Cli(command + options);
            ASSERT_EQ(outcome.status, 0) << outcome.err.toStdString();
            const QRegularExpression allHidden("^found (\\d+), written \\1, hidden \\1, visible 0$");
            EXPECT_GT(allHidden.match(outcome.Lines().last()).captured(1).toInt(), 10) << outcome.out.toStdString();
            EXPECT_EQ(outcome.err.contains("Restarting"), !takesSetsAtOnce) << outcome.err.toStdString();
            EXPECT_EQ(Cli({"features", camera, "ExposureTime"}).out.section('\t', 1, 1), "12000");
        }
        EXPECT_EQ(line().toStdString(), (set + "\tyes\tyes\tno\tyes" + after).toStdString());
        if (takesSetsAtOnce)
        {
            EXPECT_EQ(Cli({"erase", camera, set}).status + Cli({"disable", camera, set}).status, 0);
            EXPECT_EQ(line().section('\t', 3, 4), "yes\tno") << "empty and off";
        }
    }
}

TEST_F(Families, TheDocumentedExamplesHold)
{
    const QStringList size = {"--width", "640", "--height", "480"};
    const std::tuple<QString, QString, QString> examples[] = {
        {"Ostrel", "ostrel", "The given tag could not be found."},
        {"Rivo U", "rivo-u", ""},
        {"Tamorin Pro", "tamorin-pro", "Invalid file format"},
        {"Flash", "flash", "less than its header"},
        {"Column masking", "load-defects", ""},
        {"Established GigE", "established-gige", "The defect table has no end."}};
    const QString page = Bytes(DOCUMENTS "/formats.md");
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
        EXPECT_EQ(Bytes(Path("set.bin")).toHex(), bytes.toHex()) << title.toStdString();
        EXPECT_EQ(Cli(QStringList{"decode", family, Path("set.bin")} + size).out, part("list"));
        const QString file = Write("cut.bin", bytes.left(bytes.size() / 4 + 1));
        const Outcome cut = Cli(QStringList{"decode", family, file} + size);
        EXPECT_EQ(cut.status, cutIs.isEmpty() ? 0 : 1);
        EXPECT_TRUE(cut.out.isEmpty() && cut.err.contains(cutIs)) << cut.err.toStdString();
    }
    const QString list = PixelList("list.xml", {"4 3 0 1 480", "0 4 7 1 1"}); // columns beside each other
    ExpectRefusals({{QStringList{"encode", "load-defects", list, "-o", Path("no")} + size,
                     "Cannot Write CorrectionSet: NOT VALID!"}});
}

TEST_F(Families, WriteReadRestoreAndRefuse)
{
    const QStringList conditions = {"--gain", "1.5", "--exposure", "5000", "--temperature", "-12.5"};
    const QString pixels = PixelList("list.xml", {"0 2 9 1 1", "2 5 3 4 1", "0 5 1 1 1", "0 319 239 1 1"});
    const Outcome written = Cli(QStringList{"write", "TAMORIN", "DPC_User_3", pixels} + conditions);
    EXPECT_EQ(written.out.toStdString(), "written 3, read back 3, equal\n") << written.err.toStdString();
    EXPECT_EQ(Cli({"read", "TAMORIN", "DPC_User_3"}).out.toStdString(), "0 5 1 1 1\n0 2 9 1 1\n0 319 239 1 1\n");
    const QStringList sets = Cli({"sets", "TAMORIN"}).Lines();
    EXPECT_EQ(sets[0].toStdString(), "DPC_000\tno\tyes\tno\tyes\tyes\tExposureTime=10000,Gain=0,Temperature=20");
    EXPECT_EQ(sets[6].toStdString(), "DPC_User_3\tyes\tyes\tno\tno\tno\tExposureTime=5000,Gain=1,Temperature=-12.5");
    const QString encoded = Path("set"); // the same bytes as in the camera, without a camera
    const QStringList size = {"--width", "320", "--height", "240"};
    ASSERT_EQ(Cli(QStringList{"encode", "tamorin-pro", pixels, "-o", encoded} + size + conditions).status, 0);
    EXPECT_EQ(Bytes(encoded).toHex(), Bytes(Path("state/TAMORIN/files/DPC_User_3")).toHex());
    EXPECT_EQ(Cli({"write", "TAMORIN", "DPC_User_3", pixels}).status, 0);
    EXPECT_EQ(Cli({"sets", "TAMORIN"}).Lines()[6].section('\t', -1), "ExposureTime=10000,Gain=0,Temperature=20")
        << "what the list before was made at is not taken over";
    EXPECT_EQ(Cli({"erase", "TAMORIN", "DPC_User_3"}).status, 0);

    const QStringList stretches = {"0 10 20 1 1", "1 200 9 1 4", "4 7 0 1 240"};
    EXPECT_EQ(Cli({"write", "COLUMNS", "ColumnMaskingTable", PixelList("list.xml", stretches)}).status, 0);
    EXPECT_EQ(Cli({"read", "COLUMNS", "ColumnMaskingTable"}).Lines(), stretches);

    const QStringList read = QStringList{"read", "FLASH", FlashSet} + Flash;
    const QString factory = Cli(read).out;
    EXPECT_GT(factory.count('\n'), 5);
    const QStringList write =
        QStringList{"write", "FLASH", FlashSet, PixelList("list.xml", {"0 9 5 1 1", "5 0 1 320 1", "0 10 5 1 1"})} +
        Flash;
    EXPECT_EQ(Cli(write).out.toStdString(), "written 2, read back 2, equal\n");
    EXPECT_EQ(Cli(QStringList{"restore", "FLASH", FlashSet} + Flash).status, 0);
    EXPECT_EQ(Cli(read).out, factory);
    ASSERT_EQ(Control({"fault", "FLASH", R"({"operation": "FlashErase", "code": -1})"}).status, 0);
    ExpectRefusals({{write, "Flash Erase command failed. Flash File Status invalid."},
                    {read, "Flash status error"}, // it is erased
                    {{"sets", "FLASH"}, "Camera or DPC is not supported"},
                    {{"sets", "FLASH", "--adapter", "steam"}, "", 2},
                    {{"erase", "TAMORIN", "DPC_001"}, ""}, // the camera refuses
                    {{"erase", "SELECTOR", "Factory"}, "FileProtected"}});
}

} // namespace
