// The commands on cameras: lists, features, sets, reading and writing, and frames.
#include "Tool.h"

#include <QElapsedTimer>
#include <QImage>

#include <nlohmann/json.hpp>

namespace
{

// Defects of every kind that the family stores, in the order in which a camera gives them back.
const QStringList SampleList = {"5 0 3 320 1", "2 5 9 4 1", "0 10 20 1 1", "0 319 239 1 1"};

class CameraCommands : public ToolTest
{
protected:
    Outcome WriteUser(const QStringList& lines) const
    {
        return Cli({"write", "MONO", "User", PixelList("list.xml", lines)});
    }
    QStringList ReadUser() const { return Cli({"read", "MONO", "User"}).Lines(); }
    QString Feature(const QString& camera, const QString& name) const
    {
        return Cli({"features", camera, name}).out.section('\t', 1, 1);
    }
};

TEST_F(CameraCommands, ListsTheCameras)
{
    const QStringList cameras = Cli({"cameras"}).Lines();
    ASSERT_EQ(cameras.size(), 11);
    EXPECT_EQ(cameras[2].toStdString(), "PLAIN\tVesk P\t7\tVesk\tno-dpc\tfree");
    EXPECT_EQ(cameras[3].toStdString(), "TAMORIN\tTamorin Pro T\t7\tTamorin Pro\tdpc\tfree");
    const auto json = nlohmann::json::parse(Cli({"cameras", "--json"}).out.toStdString());
    EXPECT_EQ(json[2]["dpc"], "no-dpc");

    EXPECT_EQ(Control({"unplug", "MONO"}).status, 0);
    EXPECT_FALSE(Cli({"cameras"}).out.contains("MONO"));
    EXPECT_EQ(Cli({"read", "MONO", "User"}).status, 1);
    EXPECT_EQ(Control({"plug", "MONO"}).status, 0);
    EXPECT_TRUE(Cli({"cameras"}).out.contains("MONO"));
}

TEST_F(CameraCommands, ReadsAndWritesFeatures)
{
    const QStringList wanted[] = {
        {"ExposureTime", "25000"}, {"ReverseX", "true"}, {"PixelFormat", "Mono12"}, {"Width", "128"}};
    for (const QStringList& one : wanted)
    {
        EXPECT_EQ(Cli(QStringList{"set", "MONO"} + one).status, 0);
    }
    EXPECT_EQ(
        Cli({"features", "MONO", "DeviceID", "ExposureTime", "ReverseX", "CorrectionMode", "Width", "DeviceReset"})
            .out.toStdString(),
        "DeviceID\tMONO\tstring\tr-\t\nExposureTime\t25000\tfloat\trw\t20..1e+07\n"
        "ReverseX\ttrue\tboolean\trw\t\nCorrectionMode\tOn\tenumeration\trw\tOff,On\n"
        "Width\t128\tinteger\trw\t16..320\nDeviceReset\t\tcommand\t-w\t\n");
    EXPECT_EQ(Feature("MONO", "PixelFormat"), "Mono12");
    EXPECT_GT(Cli({"features", "MONO"}).Lines().size(), 30);

    ExpectRefusals({
        {{"set", "MONO", "ExposureTime", "long"}, "\"long\" is no value of feature \"ExposureTime\""},
        {{"set", "MONO", "ExposureTime", "1e12"}, "Could not set value of feature \"ExposureTime\". (Error code: -11)"},
        {{"set", "MONO", "SensorWidth", "10"}, "Could not set value of feature \"SensorWidth\". (Error code: -6)"},
        {{"set", "MONO", "PixelFormat", "Mono99"}, "Could not get enum entry \"Mono99\" of feature \"PixelFormat\"."},
        {{"features", "MONO", "Colour"}, "Could not get feature \"Colour\". (Error code: -3)"},
        {{"features", "NONE"}, "There is no camera with the ID \"NONE\"."},
        {{"sets", "PLAIN"}, "Camera or DPC is not supported"},
    });
}

TEST_F(CameraCommands, ReadGivesBackWhatWasWritten)
{
    // This camera does not let its empty file be opened for reading.
    EXPECT_TRUE(Cli({"sets", "COLOUR"}).out.contains("User\tyes\tyes\tunknown\tno\tno\t-\n"));
    EXPECT_EQ(Cli({"sets", "MONO"}).out.toStdString(), "Preset\tno\tyes\tno\tyes\tyes\t-\n"
                                                       "User\tyes\tyes\tyes\tno\tno\t-\n");
    EXPECT_EQ(Cli({"read", "MONO", "User"}).out.toStdString(), "");

    const Outcome written = WriteUser(SampleList + QStringList{"4 7 0 1 240"});
    EXPECT_EQ(written.status, 0) << written.err.toStdString();
    EXPECT_EQ(written.out.toStdString(), "written 4, read back 4, equal\n");
    EXPECT_TRUE(written.err.contains("1 of type Column"));
    EXPECT_EQ(ReadUser(), SampleList);
    EXPECT_EQ(Cli({"read", "MONO", "User", "-o", Path("back.xml")}).status, 0);
    EXPECT_EQ(Cli({"write", "MONO", "User", Path("back.xml")}).status, 0);
    EXPECT_EQ(ReadUser(), SampleList);

    EXPECT_EQ(Cli({"enable", "MONO", "User"}).status, 0);
    EXPECT_EQ(Cli({"default", "MONO", "User"}).status, 0);
    EXPECT_EQ(Cli({"sets", "MONO"}).Lines()[1], "User\tyes\tyes\tno\tyes\tyes\t-");
    EXPECT_EQ(Cli({"disable", "MONO", "User"}).status, 0);
    EXPECT_EQ(Feature("MONO", "CorrectionMode"), "Off");
    EXPECT_EQ(Cli({"erase", "MONO", "User"}).status, 0);
    EXPECT_EQ(ReadUser(), QStringList());

    const QString list = PixelList("list.xml", SampleList);
    ExpectRefusals({
        {{"write", "MONO", "Preset", list}, "Factory set can't be overwritten!"},
        {{"write", "MONO", "Third", list}, "The camera has no correction set \"Third\", only: Preset, User."},
        {{"write", "MONO", "User", PixelList("wide.xml", {"0 321 1 1 1"})}, "File is corrupted"},
        {{"erase", "MONO", "Preset"}, "The given correction set cannot be overwritten"},
        {{"restore", "MONO", "User"}, "RestoreFactorySettings is not available for Ostrel Cameras"},
    });
}

TEST_F(CameraCommands, TellsThatAnotherProgramHoldsTheCamera)
{
    const std::unique_ptr<QProcess> other = StartCli({"grab", "MONO", "--frames", "100000", "-o", Path("never.png")});
    // Listing with the tool would open the camera, and could snatch it away from the other process.
    QElapsedTimer timer;
    timer.start();
    for (int inUse = 0; inUse < 3 && timer.elapsed() < 30'000;)
    {
        inUse = Control({"list"}).Lines()[0].endsWith("free") ? 0 : inUse + 1;
    }
    EXPECT_TRUE(Cli({"cameras"}).out.contains("MONO\tOSTREL S-1m\t7\t-\tunknown\tin-use\n"));
    const Outcome refused = Cli({"read", "MONO", "User"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains("Camera is in use by another application")) << refused.err.toStdString();
    other->kill();
    ASSERT_TRUE(other->waitForFinished());
    EXPECT_EQ(Cli({"read", "MONO", "User"}).status, 0);
}

TEST_F(CameraCommands, AWriteThatBreaksOffIsToldAndTheNextOneWorks)
{
    ASSERT_EQ(WriteUser(SampleList).status, 0);
    const std::pair<const char*, const char*> faults[] = {
        {R"({"operation": "SetValue", "feature": "FileAccessBuffer", "call": 2, "unplug": true})",
         "Error with saving pixels\nCould not write into access buffer."},
        {R"({"operation": "FileWrite", "call": 2, "code": -13})",
         "Error with saving pixels\nCould not execute file operation. (Error code: -13)"}};
    for (const auto& [fault, text] : faults)
    {
        WriteRig(QStringLiteral("[%1]").arg(fault));
        const Outcome broken = WriteUser({"0 1 1 1 1"});
        EXPECT_EQ(broken.status, 1);
        EXPECT_TRUE(broken.err.contains(text)) << broken.err.toStdString();
        WriteRig();
        Control({"plug", "MONO"});
        EXPECT_TRUE(!QString(fault).contains("unplug") || ReadUser() == SampleList) << "the earlier set stays";
        EXPECT_EQ(WriteUser(SampleList).status, 0);
        EXPECT_EQ(ReadUser(), SampleList);
    }
}

TEST_F(CameraCommands, GrabsAnEightBitFrameAndLeavesTheSettings)
{
    ASSERT_EQ(Cli({"set", "COLOUR", "PixelFormat", "BayerRG12"}).status, 0);
    const Outcome outcome = Cli({"grab", "COLOUR", "-o", Path("frame.png")});
    ASSERT_EQ(outcome.status, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.endsWith("\t352\t288\tBayerRG8\n")) << outcome.out.toStdString();
    const QImage frame(Path("frame.png"));
    EXPECT_EQ(frame.size(), QSize(352, 288));
    EXPECT_EQ(frame.depth(), 8);
    EXPECT_EQ(Feature("COLOUR", "PixelFormat"), "BayerRG12");
    EXPECT_EQ(Cli({"grab", "COLOUR", "-o", Path("no/such/folder.png")}).status, 1);
}

TEST_F(CameraCommands, AFrameThatIsNotDarkIsNoReasonToTouchTheCamera)
{
    ASSERT_EQ(WriteUser(SampleList).status, 0);
    ASSERT_EQ(Cli({"set", "MONO", "ReverseY", "true"}).status, 0);
    const Outcome bright = Cli({"commission", "MONO", "User"});
    EXPECT_EQ(bright.status, 1);
    EXPECT_TRUE(bright.err.contains("The maximum number of defects\nsupported by the tool (384) is exceeded."))
        << bright.err.toStdString();
    EXPECT_EQ(Feature("MONO", "ReverseY"), "true");
    EXPECT_EQ(Cli({"sets", "MONO"}).Lines()[0].section('\t', 4, 4), "yes"); // "Preset" is on again
    EXPECT_EQ(ReadUser(), SampleList);
    ASSERT_EQ(Control({"cover", "MONO", "on"}).status, 0);
    EXPECT_EQ(Cli({"commission", "MONO", "Preset"}).status, 1);
    const Outcome nothing = Cli({"commission", "MONO", "User", "--threshold", "255", "--exposure", "100"});
    EXPECT_EQ(nothing.status, 0);
    EXPECT_EQ(nothing.Lines().last(), "found 0, written 0, hidden 0, visible 0");
    EXPECT_EQ(Cli({"sets", "MONO"}).Lines()[0].section('\t', 4, 4), "yes");
    EXPECT_EQ(ReadUser(), SampleList);
}

} // namespace
