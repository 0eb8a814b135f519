// The cache and the configuration file: bytes, broken files, and what leaves an old file alone.
#include "RememberedCameras.h"
#include "WorkingFolder.h"

#include <sys/stat.h>

namespace
{

class InfoFiles : public testing::Test, protected WorkingFolder
{
protected:
    static std::string Remembered() { return RememberedCameras({{true, "OLD"}}); }

    const QString m_cache = QStringLiteral("Lorvane.cache");
};

TEST_F(InfoFiles, CacheBytes)
{
    EXPECT_EQ(Remembered(), "OLD=1 ");
    CamerasInfoWriterReader().SetInformationToFile(
        {{true, "A & \"B\""}, {false, "DEV_\xC3\xA4"}, {true, "bad\x01"}, {true, "\xff"}});
    const QByteArray expected = "<Data>\n <Camera ID=\"A &amp; &quot;B&quot;\">\n  <Support DPC=\"1\"/>\n </Camera>\n"
                                " <Camera ID=\"DEV_\xC3\xA4\">\n  <Support DPC=\"0\"/>\n </Camera>\n</Data>\n";
    EXPECT_EQ(ReadFile(m_cache), expected) << "an ID that would spoil the file is left out";
    EXPECT_EQ(Remembered(), "OLD=1 A & \"B\"=1 DEV_\xC3\xA4=0 ");
    CamerasInfoWriterReader().SetInformationToFile({});
    EXPECT_EQ(ReadFile(m_cache), expected) << "a run without a camera leaves the old file";
    EXPECT_EQ(QDir().entryList(QDir::Files).size(), 1) << "no temporary file is left";
    QDir().mkdir("elsewhere");
    QDir::setCurrent(Path("elsewhere"));
    EXPECT_EQ(Remembered(), "OLD=1 ") << "another working directory has another cache";
}

TEST_F(InfoFiles, BrokenCaches)
{
    const QByteArray good = "<Camera ID=\"A\"><Support DPC=\"1\"/></Camera>";
    const QByteArray deep = QByteArray("<a>").repeated(50'000) + QByteArray("</a>").repeated(50'000);
    const std::vector<std::tuple<const char*, QByteArray, const char*>> cases = {
        {"good", "<Data>" + good + "</Data>", "OLD=1 A=1 "},
        {"below another element", "<Data><X>" + good + "</X></Data>", "OLD=1 A=1 "},
        {"any root", "<Other>text" + good + "<!-- c --></Other>", "OLD=1 A=1 "},
        {"cut off", "<Data>" + good, "OLD=1 "},
        {"no support after a good one", "<Data>" + good + "<Camera ID=\"B\"/></Data>", ""},
        {"no ID", "<Data>" + good + "<Camera><Support DPC=\"1\"/></Camera></Data>", ""},
        {"no number", "<Data><Camera ID=\"A\"><Support DPC=\"yes\"/></Camera></Data>", "OLD=1 A=0 "},
        {"another number", "<Data><Camera ID=\"A\"><Support DPC=\"-7\"/><Support DPC=\"0\"/></Camera></Data>",
         "OLD=1 A=1 "},
        {"deep", "<Data>" + deep + good + "</Data>", "OLD=1 "},
        {"entities",
         "<!DOCTYPE d [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]><Data>&b;" + good +
             "</Data>",
         "OLD=1 "},
        {"huge", "<Data>" + QByteArray(2'000'000, ' ') + good + "</Data>", "OLD=1 "}};
    for (const auto& [what, bytes, expected] : cases)
    {
        WriteFile(m_cache, bytes);
        EXPECT_EQ(Remembered(), expected) << what;
    }
    QFile::remove(m_cache);
    ASSERT_EQ(::mkfifo("Lorvane.cache", 0600), 0);
    EXPECT_EQ(Remembered(), "OLD=1 ") << "a pipe is no cache, and is not waited for";
    QFile::remove(m_cache);
    QDir().mkdir(m_cache);
    CamerasInfoWriterReader().SetInformationToFile({{true, "A"}});
    EXPECT_EQ(Remembered(), "OLD=1 ") << "what cannot be written is not written";
}

TEST_F(InfoFiles, Configuration)
{
    const auto read = [](bool tutorial, bool detection)
    {
        CamerasInfoWriterReader().GetConfigInfo(tutorial, detection);
        return std::pair(tutorial, detection);
    };
    EXPECT_EQ(read(true, false), std::pair(true, false)) << "keys that are not there leave the variables alone";
    WriteFile("Lorvane.ini", "[info]\nTutorialFinished=true\n[other]\nAutomaticDetection=false\n");
    EXPECT_EQ(read(false, true), std::pair(true, true));
    CamerasInfoWriterReader().SetConfigInfo(false, false);
    EXPECT_TRUE(ReadFile("Lorvane.ini").contains("[info]\nAutomaticDetection=false\nTutorialFinished=false\n"));
    EXPECT_TRUE(ReadFile("Lorvane.ini").contains("[other]"));
}

} // namespace
