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
    const std::tuple<const char*, const char*, const char*, QString> cameras[] = {
        {"MONO", "OSTREL S-1m", "ostrel",
         R"("reverseX": true, "reverseY": true, "blockSize": 128, "seed": 3, "faults": )" + faults},
        {"COLOUR", "OSTREL S-2c", "ostrel",
         R"("width": 352, "height": 288, "filter": "BayerRG", "reverseX": true, "seed": 5, "userReadFailsWhenEmpty": true)"},
        {"PLAIN", "Vesk P", "plain", R"("width": 64, "height": 48)"},
        {"TAMORIN", "Tamorin Pro T", "tamorin-pro", R"("seed": 3)"},
        {"SELECTOR", "Rivo U-1", "rivo-u", R"("reverseX": true, "reverseY": true, "blockSize": 128, "seed": 3)"},
        {"SELECTOR-C", "Rivo U-2", "rivo-u", R"("filter": "BayerGB", "seed": 3)"},
        {"BOOLEAN", "Rivo G-011", "rectangle-mask", R"("seed": 3)"},
        {"MODE", "Rivo G-011", "rectangle-mask-mode", R"("seed": 3)"},
        {"COLUMNS", "Dreli G-1310", "column-mask", R"("seed": 3)"},
        {"FLASH", "Quorsalin P", "flash", R"("seed": 5, "longestRun": 8, "flashTime": 20)"},
        {"FLASH-C", "Quorsalin P", "flash", R"("seed": 5, "longestRun": 8, "flashTime": 20, "filter": "BayerGB")"}};
    QStringList rig;
    for (const auto& [id, model, firmware, more] : cameras)
    {
        rig << QStringLiteral(R"({"id": "%1", "model": "%2", "serial": "7", "firmware": "%3", "width": 320,
                                  "height": 240, "frameRate": 60, "restartTime": 100, )")
                       .arg(id, model, firmware) +
                   more + "}";
    }
    Write("rig.json", "{\"cameras\": [" + rig.join(',').toUtf8() + "]}");
}

QString ToolTest::Write(const QString& name, const QByteArray& bytes) const
{
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()) << name.toStdString();
    return Path(name);
}

QByteArray ToolTest::Bytes(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
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
    QByteArray xml = "<Camera>\n";
    for (const QString& line : lines)
    {
        const QStringList numbers = line.split(' ');
        xml += QStringLiteral("<Pixel LP:=\"1\"><Type Type:=\"%1\"/><Data><Coordinates x:=\"%2\" y:=\"%3\"/>"
                              "<Width width:=\"%4\"/><Height height:=\"%5\"/></Data></Pixel>\n")
                   .arg(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4])
                   .toUtf8();
    }
    return Write(name, xml + "</Camera>\n");
}

void ToolTest::ExpectRefusals(const std::vector<Refusal>& refusals) const
{
    for (const Refusal& row : refusals)
    {
        const Outcome outcome = Cli(row.arguments);
        EXPECT_EQ(outcome.status, row.status) << row.arguments.join(' ').toStdString();
        EXPECT_TRUE(!outcome.err.isEmpty() && outcome.err.contains(row.text))
            << row.arguments.join(' ').toStdString() << '\n'
            << outcome.err.toStdString();
    }
}
