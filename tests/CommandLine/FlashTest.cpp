// The batch tool on cameras of the flash family, which no name of theirs tells.
#include "Tool.h"

#include <QFile>
#include <QRegularExpression>

namespace
{

class Flash : public ToolTest
{
protected:
    Flash()
    {
        QFile file(Path("rig.json"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const QString camera = R"({"id": "%1", "model": "Quorsalin P", "serial": "1", "firmware": "flash", "width": 320,
            "height": 240, "seed": 5, "longestRun": 8, "flashTime": 20, "restartTime": 100, "filter": "%2"})";
        file.write("{\"cameras\": [" + (camera.arg("MONO", "Mono") + "," + camera.arg("COLOUR", "BayerGB")).toUtf8() +
                   "]}");
    }
    const QString set = "Defect Pixel List";
    const QStringList chosen = {"--adapter", "flash"};
};

TEST_F(Flash, CommissionsCoveredCameras)
{
    for (const char* camera : {"MONO", "COLOUR"})
    {
        ASSERT_EQ(Control({"cover", camera, "on"}).status, 0);
        EXPECT_TRUE(Cli({"sets", camera}).err.contains("Camera or DPC is not supported"));
        const Outcome outcome =
            Cli(chosen + QStringList{"commission", camera, set, "--exposure", "10000", "--limit", "2000"});
        EXPECT_EQ(outcome.status, 0) << outcome.err.toStdString();
        const QRegularExpression allHidden("^found (\\d+), written \\1, hidden \\1, visible 0$");
        EXPECT_GT(allHidden.match(outcome.Lines().last()).captured(1).toInt(), 10) << outcome.out.toStdString();
    }
}

TEST_F(Flash, WritesRestoresAndRefuses)
{
    const QString factory = Cli(QStringList{"read", "MONO", set} + chosen).out;
    EXPECT_GT(factory.count('\n'), 5);
    const QString list = PixelList("list.xml", {"0 9 5 1 1", "5 0 1 320 1", "0 10 5 1 1"});
    const Outcome written = Cli(QStringList{"write", "MONO", set, list} + chosen);
    EXPECT_EQ(written.out.toStdString(), "written 2, read back 2, equal\n") << written.err.toStdString();
    EXPECT_EQ(Cli(QStringList{"sets", "MONO"} + chosen).out, set + "\tyes\tyes\tno\tyes\tyes\t-\n");
    EXPECT_EQ(Cli(QStringList{"restore", "MONO", set} + chosen).status, 0);
    EXPECT_EQ(Cli(QStringList{"read", "MONO", set} + chosen).out, factory);
    ASSERT_EQ(Control({"fault", "MONO", R"({"operation": "FlashErase", "code": -1})"}).status, 0);
    EXPECT_TRUE(Cli(QStringList{"write", "MONO", set, list} + chosen)
                    .err.contains("Flash Erase command failed. Flash File Status invalid."));
    EXPECT_TRUE(Cli(QStringList{"read", "MONO", set} + chosen).err.contains("Flash status error")) << "it is erased";
    EXPECT_EQ(Cli({"sets", "MONO", "--adapter", "steam"}).status, 2);
}

} // namespace
