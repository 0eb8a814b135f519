// The batch tool on a camera of the Tamorin Pro family, and on its files.
#include "Tool.h"

#include <QFile>
#include <QRegularExpression>

namespace
{

using TamorinPro = ToolTest;

TEST_F(TamorinPro, WritesSetsWithTheirConditions)
{
    const QString list = PixelList("list.xml", {"0 2 9 1 1", "2 5 3 4 1", "0 5 1 1 1", "0 319 239 1 1"});
    const QStringList conditions = {"--gain", "1.5", "--exposure", "5000", "--temperature", "-12.5"};
    const Outcome written = Cli(QStringList{"write", "TAMORIN", "DPC_User_3", list} + conditions);
    EXPECT_EQ(written.out.toStdString(), "written 3, read back 3, equal\n") << written.err.toStdString();
    const QString lines = "0 5 1 1 1\n0 2 9 1 1\n0 319 239 1 1\n";
    EXPECT_EQ(Cli({"read", "TAMORIN", "DPC_User_3"}).out, lines);
    const QStringList sets = Cli({"sets", "TAMORIN"}).Lines();
    EXPECT_EQ(sets[0].toStdString(), "DPC_000\tno\tyes\tno\tyes\tyes\tExposureTime=10000,Gain=0,Temperature=20");
    EXPECT_EQ(sets[6].toStdString(), "DPC_User_3\tyes\tyes\tno\tno\tno\tExposureTime=5000,Gain=1,Temperature=-12.5");

    // The same bytes as in the camera, without a camera.
    const QStringList size = {"--width", "320", "--height", "240"};
    ASSERT_EQ(Cli(QStringList{"encode", "tamorin-pro", list, "-o", Path("set")} + size + conditions).status, 0);
    QFile ours(Path("set")), theirs(Path("state/TAMORIN/files/DPC_User_3"));
    ASSERT_TRUE(ours.open(QIODevice::ReadOnly) && theirs.open(QIODevice::ReadOnly));
    EXPECT_EQ(ours.readAll().toHex(), theirs.readAll().toHex());
    EXPECT_EQ(Cli(QStringList{"decode", "tamorin-pro", Path("set")} + size).out, lines);
    EXPECT_EQ(Cli({"erase", "TAMORIN", "DPC_User_3"}).status, 0);
    EXPECT_EQ(Cli({"erase", "TAMORIN", "DPC_001"}).status, 1) << "the camera refuses";
}

TEST_F(TamorinPro, CommissionsACoveredCamera)
{
    ASSERT_EQ(Control({"cover", "TAMORIN", "on"}).status, 0);
    const Outcome outcome =
        Cli({"commission", "TAMORIN", "DPC_User_8", "--exposure", "12000", "--gain", "2", "--limit", "2000"});
    ASSERT_EQ(outcome.status, 0) << outcome.err.toStdString();
    const auto figures =
        QRegularExpression("^found (\\d+), written \\1, hidden \\1, visible 0$").match(outcome.Lines().last());
    EXPECT_GT(figures.captured(1).toInt(), 10) << outcome.Lines().last().toStdString();
    EXPECT_EQ(Cli({"sets", "TAMORIN"}).Lines()[11].toStdString(),
              "DPC_User_8\tyes\tyes\tno\tyes\tno\tExposureTime=12000,Gain=2,Temperature=40");
}

} // namespace
