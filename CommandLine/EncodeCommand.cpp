// encode: the on-camera bytes of a pixel list, without a camera.

#include "Command.h"
#include "DefectOutput.h"
#include "Families.h"
#include "Upload.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <map>

namespace CommandLine
{

namespace
{

using KTR::DPC::ReverseCapability;

struct Options
{
    std::string family;
    std::string file;
    std::string output;
    SensorDescription sensor;
    Conditions conditions;
};

ExitStatus Encode(const Options& options)
{
    const Family& family = FindFamily(options.family);
    const QVector<DefectInfo> list =
        LoadPixelList(options.file, static_cast<int>(options.sensor.width), static_cast<int>(options.sensor.height));
    const std::vector<std::uint8_t> bytes =
        family.encode(SelectForUpload(list, family.types), options.sensor, options.conditions);
    WriteWholeFile(options.output,
                   QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())));
    std::cerr << bytes.size() << " bytes written to " << options.output << '\n';
    return Done;
}

} // namespace

void AddEncode(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("encode", "Write the on-camera bytes of a pixel list to a file");
    command->add_option("FAMILY", options->family, "Camera family")->required()->check(CLI::IsMember(FamilyNames()));
    command->add_option("FILE", options->file, "Pixel list XML")->required();
    AddSensorSize(*command, options->sensor);
    const std::map<std::string, ReverseCapability> mirrors = {{"non", ReverseCapability::Non},
                                                              {"x", ReverseCapability::X},
                                                              {"y", ReverseCapability::Y},
                                                              {"xy", ReverseCapability::XY}};
    command->add_option("--reverse", options->sensor.reverse, "Mirror features of the camera: non, x or xy")
        ->transform(CLI::CheckedTransformer(mirrors));
    command->add_option("--sensor", options->sensor.sensorType, "Sensor type")->check(CLI::IsMember({"Mono", "Bayer"}));
    command->add_option("--gain", options->conditions.gain, "Gain, for families that keep it");
    command->add_option("--exposure", options->conditions.exposureUs, "Exposure time in microseconds, likewise");
    command->add_option("--temperature", options->conditions.temperatureC, "Temperature in degrees Celsius, likewise");
    command->add_option("-o,--output", options->output, "File to write")->required();
    command->callback([options, &request] { request.action = [options] { return Encode(*options); }; });
}

} // namespace CommandLine
