// The batch tool on the cameras that keep their sets behind a selector or in memory, and on their bytes.
#include "Tool.h"

#include <QFile>
#include <QImage>
#include <QRegularExpression>

namespace
{

class MemoryAndSelectorCameras : public ToolTest
{
protected:
    MemoryAndSelectorCameras()
    {
        QFile rig(Path("rig.json"));
        EXPECT_TRUE(rig.open(QIODevice::WriteOnly));
        rig.write(R"({"cameras": [
            {"id": "SELECTOR", "model": "Rivo U-1", "serial": "1", "firmware": "rivo-u", "width": 320, "height": 240,
             "reverseX": true, "reverseY": true, "blockSize": 128, "seed": 3},
            {"id": "COLOUR", "model": "Rivo U-2", "serial": "2", "firmware": "rivo-u", "width": 352, "height": 288,
             "filter": "BayerGB", "seed": 4},
            {"id": "BOOLEAN", "model": "Rivo G-011", "serial": "3", "firmware": "rectangle-mask", "width": 320,
             "height": 240, "seed": 5, "fileSizeMax": 2400},
            {"id": "MODE", "model": "Rivo G-011", "serial": "4", "firmware": "rectangle-mask-mode", "width": 320,
             "height": 240, "seed": 6}]})");
    }
    Outcome Set(const char* call, const char* camera, const char* set) const { return Cli({call, camera, set}); }
    QStringList Read(const char* camera, const char* set) const { return Set("read", camera, set).Lines(); }
    QString Feature(const char* camera, const char* name) const
    {
        return Cli({"features", camera, name}).out.section('\t', 1, 1);
    }
};

// The parts of a document's section that stand between fences of that kind.
QString Documented(const QString& section, const QString& kind)
{
    QFile file(DOCUMENTS "/formats.md");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text =
        QString::fromUtf8(file.readAll()).section("\n## " + section + "\n", 1, 1).section("\n## ", 0, 0);
    return text.section("```" + kind + "\n", 1, 1).section("```", 0, 0);
}

TEST_F(MemoryAndSelectorCameras, TheDocumentedExamplesHold)
{
    const QStringList size = {"--width", "640", "--height", "480"};
    for (const auto& [section, family, options] :
         {std::tuple{"Rivo U", "rivo-u", QStringList{"--reverse", "x"}}, {"Established GigE", "established-gige", {}}})
    {
        const QString list = Documented(section, "list");
        const QByteArray bytes = QByteArray::fromHex(Documented(section, "hex").toUtf8());
        ASSERT_FALSE(list.isEmpty() || bytes.isEmpty()) << section;
        const QString xml = PixelList("list.xml", list.split('\n', Qt::SkipEmptyParts));
        EXPECT_EQ(Cli(QStringList{"encode", family, xml, "-o", Path("set.bin")} + size + options).status, 0);
        QFile file(Path("set.bin"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll().toHex(), bytes.toHex()) << section;
        EXPECT_EQ(Cli(QStringList{"decode", family, Path("set.bin")} + size).out.toStdString(), list.toStdString());

        QFile cut(Path("cut.bin"));
        ASSERT_TRUE(cut.open(QIODevice::WriteOnly));
        cut.write(bytes.left(bytes.size() / 2));
        cut.close();
        const Outcome outcome = Cli(QStringList{"decode", family, Path("cut.bin")} + size);
        EXPECT_EQ(outcome.out.toStdString(), "");
        EXPECT_EQ(outcome.err.contains("The defect table has no end."), outcome.status == 1);
        EXPECT_EQ(outcome.status, family == QString("rivo-u") ? 0 : 1);
    }
}

TEST_F(MemoryAndSelectorCameras, SetsAreReadWrittenAndSwitched)
{
    const QStringList lines = {"5 0 3 320 1", "2 5 9 4 1", "0 10 20 1 1", "0 319 239 1 1"};
    const QString list = PixelList("list.xml", lines + QStringList{"4 7 0 1 240"});
    EXPECT_EQ(Cli({"sets", "SELECTOR"}).out.toStdString(), "Factory\tyes\tyes\tno\tyes\tyes\t-\n"
                                                           "User\tyes\tyes\tyes\tno\tno\t-\n");
    const Outcome written = Cli({"write", "SELECTOR", "User", list});
    EXPECT_EQ(written.out.toStdString(), "written 4, read back 4, equal\n") << written.err.toStdString();
    EXPECT_TRUE(written.err.contains("1 of type Column"));
    EXPECT_EQ(Read("SELECTOR", "User"), lines);
    EXPECT_EQ(Set("enable", "SELECTOR", "User").status, 0);
    EXPECT_EQ(Set("default", "SELECTOR", "User").status, 0);
    EXPECT_EQ(Cli({"sets", "SELECTOR"}).out.toStdString(), "Factory\tyes\tyes\tno\tno\tno\t-\n"
                                                           "User\tyes\tyes\tno\tyes\tyes\t-\n");
    EXPECT_EQ(Set("disable", "SELECTOR", "User").status, 0);
    EXPECT_EQ(Feature("SELECTOR", "CorrectionMode"), "Off");
    EXPECT_EQ(Set("erase", "SELECTOR", "User").status, 0);
    EXPECT_EQ(Read("SELECTOR", "User"), QStringList());

    for (const char* camera : {"BOOLEAN", "MODE"})
    {
        const char* set = "DefectMaskingTable";
        EXPECT_EQ(Cli({"sets", camera}).out.toStdString(), "DefectMaskingTable\tyes\tyes\tyes\tyes\tyes\t-\n");
        const Outcome pixels = Cli({"write", camera, set, list});
        EXPECT_EQ(pixels.out.toStdString(), "written 2, read back 2, equal\n") << pixels.err.toStdString();
        EXPECT_EQ(Read(camera, set), lines.mid(2));
        EXPECT_EQ(Set("disable", camera, set).status, 0);
        EXPECT_EQ(Feature(camera, "DefectMaskEnable"), camera == QString("MODE") ? "Disabled" : "false");
        EXPECT_EQ(Set("enable", camera, set).status, 0);
        EXPECT_EQ(Set("default", camera, set).status, 0);
        EXPECT_TRUE(Set("restore", camera, set).err.contains("RestoreFactorySettings is not supported!"));
        EXPECT_EQ(Set("erase", camera, set).status, 0);
        EXPECT_EQ(Cli({"sets", camera}).out.toStdString(), "DefectMaskingTable\tyes\tyes\tyes\tyes\tyes\t-\n");
    }
    const std::pair<QStringList, const char*> refusals[] = {
        {{"write", "SELECTOR", "Factory", list}, "Factory set can't be overwritten!"},
        {{"erase", "SELECTOR", "Factory"}, "FileProtected"},
        {{"restore", "SELECTOR", "User"}, "RestoreFactorySettings is not supported by Rivo-U"},
    };
    for (const auto& [arguments, words] : refusals)
    {
        const Outcome outcome = Cli(arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(outcome.err.contains(words)) << outcome.err.toStdString();
    }
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
        const auto brightest = [&, &name = camera]
        {
            EXPECT_EQ(Cli({"grab", name, "-o", Path("frame.png")}).status, 0);
            const QImage frame(Path("frame.png"));
            uchar most = 0;
            for (int y = 0; y < frame.height(); ++y)
            {
                most = std::max(most, *std::max_element(frame.scanLine(y), frame.scanLine(y) + frame.width()));
            }
            return static_cast<int>(most);
        };
        ASSERT_EQ(Cli({"set", camera, "ExposureTime", "10000"}).status, 0);
        EXPECT_GT(brightest(), 40) << camera;
        const Outcome outcome = Cli({"commission", camera, set, "--limit", "2000"});
        ASSERT_EQ(outcome.status, 0) << outcome.err.toStdString();
        const auto figures = QRegularExpression("^found (\\d+), written (\\d+), hidden (\\d+), visible 0$")
                                 .match(outcome.Lines().last());
        ASSERT_TRUE(figures.hasMatch()) << outcome.out.toStdString();
        EXPECT_GT(figures.captured(1).toInt(), 10);
        EXPECT_EQ(figures.captured(1), figures.captured(2));
        EXPECT_FALSE(outcome.err.contains("Restarting")) << "what was written is in force";
        EXPECT_LT(brightest(), 45) << camera;
    }
}

} // namespace
