// decode: the defects in on-camera bytes.

#include "Command.h"
#include "DefectOutput.h"
#include "Families.h"

#include "SensorDefectConversion.h"

#include <CLI/CLI.hpp>

namespace CommandLine
{

namespace
{

struct Options
{
    std::string family;
    std::string file;
    std::string output;
    SensorDescription sensor;
};

ExitStatus Decode(const Options& options, const Request& request)
{
    const Family& family = FindFamily(options.family);
    const QByteArray bytes = ReadWholeFile(options.file);
    const KTR::DPC::SensorDefectList defects =
        family.decode(std::vector<std::uint8_t>(bytes.begin(), bytes.end()), options.sensor);
    PrintDefects(
        ToDefectInfos(defects, static_cast<int>(options.sensor.width), static_cast<int>(options.sensor.height)),
        options.output, request);
    return Done;
}

} // namespace

void AddDecode(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("decode", "List the defects in on-camera bytes");
    command->add_option("FAMILY", options->family, "Camera family")->required()->check(CLI::IsMember(FamilyNames()));
    command->add_option("FILE", options->file, "File with the bytes")->required();
    AddSensorSize(*command, options->sensor);
    command->add_option("-o,--output", options->output,
                        "XML file to write; else one defect a line: type x y width height");
    command->callback([options, &request]
                      { request.action = [options, &request] { return Decode(*options, request); }; });
}

} // namespace CommandLine
