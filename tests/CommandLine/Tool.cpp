// Runs the batch tool as a process.
#include "Tool.h"

#include <QFile>

namespace
{

constexpr int LongestRunMs = 120'000;

} // namespace

ToolTest::ToolTest()
{
    WriteRig();
}

void ToolTest::WriteRig(const QString& faults)
{
    QFile file(Path("rig.json"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QStringLiteral(R"({"cameras": [
        {"id": "MONO", "model": "OSTREL S-1m", "serial": "1", "firmware": "ostrel", "width": 320, "height": 240, "seed": 3,
         "reverseX": true, "reverseY": true, "restartTime": 100, "blockSize": 128, "faults": %1},
        {"id": "COLOUR", "model": "OSTREL S-2c", "serial": "2", "firmware": "ostrel", "width": 352, "height": 288,
         "filter": "BayerRG", "seed": 5, "reverseX": true, "restartTime": 100, "userReadFailsWhenEmpty": true,
         "frameRate": 60},
        {"id": "PLAIN", "model": "Vesk P", "serial": "3", "firmware": "plain", "width": 64, "height": 48},
        {"id": "TAMORIN", "model": "Tamorin Pro T", "serial": "4", "firmware": "tamorin-pro", "width": 320, "height": 240,
         "seed": 3, "restartTime": 100}]})")
                   .arg(faults)
                   .toUtf8());
}

QProcessEnvironment ToolTest::Environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ZLT_PROVIDER_PATH", PROVIDER_DIR);
    environment.insert("ZLT_SIMULATION_RIG", Path("rig.json"));
    environment.insert("ZLT_SIMULATION_STATE", Path("state"));
    return environment;
}

std::unique_ptr<QProcess> ToolTest::StartCli(const QStringList& arguments) const
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(Environment());
    process->start(LORVANE_CLI, arguments);
    return process;
}

Outcome ToolTest::Run(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(Environment());
    process.start(program, arguments);
    Outcome outcome;
    const bool ended = process.waitForFinished(LongestRunMs);
    outcome.out = QString::fromUtf8(process.readAllStandardOutput());
    outcome.err = QString::fromUtf8(process.readAllStandardError());
    if (ended && process.exitStatus() == QProcess::NormalExit)
    {
        outcome.status = process.exitCode();
    }
    return outcome;
}

Outcome ToolTest::Cli(const QStringList& arguments) const
{
    return Run(LORVANE_CLI, arguments);
}

Outcome ToolTest::Control(const QStringList& arguments) const
{
    return Run(SIMULATION_CTL, arguments);
}

QString ToolTest::PixelList(const QString& name, const QStringList& lines) const
{
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<Camera>\n");
    for (const QString& line : lines)
    {
        const QStringList numbers = line.split(' ');
        file.write(QStringLiteral("<Pixel LP:=\"1\"><Type Type:=\"%1\"/><Data><Coordinates x:=\"%2\" y:=\"%3\"/>"
                                  "<Width width:=\"%4\"/><Height height:=\"%5\"/></Data></Pixel>\n")
                       .arg(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4])
                       .toUtf8());
    }
    file.write("</Camera>\n");
    return Path(name);
}
