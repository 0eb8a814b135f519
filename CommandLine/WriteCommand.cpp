// write: uploads a pixel list into a correction set, reads it back and compares.

#include "CameraSession.h"
#include "Command.h"
#include "DefectOutput.h"
#include "Families.h"
#include "JsonOutput.h"
#include "Upload.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace CommandLine
{

namespace
{

struct Options
{
    std::string camera;
    std::string set;
    std::string file;
    Conditions conditions;
};

ExitStatus Write(const Options& options, const Request& request)
{
    CameraSession session(options.camera, request.adapter);
    const boost::shared_ptr<KTR::DPC::DpcAdapter> adapter = session.Adapter();
    const auto set = FindSet(adapter->GetAvailableCorrectionSets(), options.set);
    const QVector<DefectInfo> list = LoadPixelList(options.file, static_cast<int>(adapter->GetSensorWidth()),
                                                   static_cast<int>(adapter->GetSensorHeight()));
    std::cerr << "Writing " << list.size() << " defects into \"" << options.set << "\" of " << options.camera
              << "...\n";
    const UploadResult result = Upload(*adapter, set, Metadata(options.conditions), list);
    if (request.json)
    {
        PrintJson({{"written", result.written.size()}, {"readBack", result.readBack.size()}, {"equal", result.equal}});
    }
    else
    {
        std::cout << "written " << result.written.size() << ", read back " << result.readBack.size() << ", "
                  << (result.equal ? "equal" : "different") << '\n';
    }
    if (!result.equal)
    {
        std::cerr << "lorvane-cli: The camera does not hold what was written.\n";
        return Differences;
    }
    return Done;
}

} // namespace

void AddWrite(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("write", "Upload a pixel list into a correction set, read it back, compare");
    command->add_option("CAMERA", options->camera, "Camera ID")->required();
    command->add_option("SET", options->set, "Correction set")->required();
    command->add_option("FILE", options->file, "Pixel list XML")->required();
    command->add_option("--gain", options->conditions.gain,
                        "Gain at which the list was made, for families that keep it");
    command->add_option("--exposure", options->conditions.exposureUs, "Exposure time in microseconds, likewise");
    command->add_option("--temperature", options->conditions.temperatureC,
                        "Sensor temperature in degrees Celsius, likewise");
    command->callback([options, &request]
                      { request.action = [options, &request] { return Write(*options, request); }; });
}

} // namespace CommandLine
